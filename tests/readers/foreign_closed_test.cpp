#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "readers/foreign_fixture.h"
#include "readers/near_words.h"
#include "report/product_source.h"
#include "report/report.h"

namespace tradebill::foreign_closed_test {
namespace {

/// Every contract has the unit 10.
class CTenfold final : public CProductSource {
public:
    [[nodiscard]] std::int32_t UnitOf(std::string_view /*contract*/, std::string_view /*delivery*/) const override {
        return 10;
    }
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view /*name*/) const override { return std::nullopt; }
};

class ForeignClosed : public ForeignFixture {
protected:
    /// Reads a table of these rows alone.
    void ReadRows(std::initializer_list<std::string_view> rows) {
        ReadText(Statement({"平仓明细", "--------", "Date Contract", "--------"}) + Statement(rows) +
                 Statement({"--------", "持仓明细"}));
    }

    /// Reads a table of the rows "1" to "9", of 7 columns each, of which one holds a word, and of an ending row.
    void ReadNumberedRows(int wordRow, std::string_view word, std::string_view end,
                          std::string_view title = "平仓明细") {
        std::string text = Statement({title});
        for (int row = 1; row <= 9; ++row) {
            const std::string date = row == wordRow ? std::string(word) : "c0";
            text += Statement({date + " " + std::to_string(row) + " c2 c3 c4 c5 c6"});
        }
        ReadText(text + Statement({end}));
    }

    /// The contracts of the tally, in order of first appearance.
    Texts Contracts() {
        Texts contracts;
        for (const auto& offset : report.ReportDocument.Offsets) contracts.emplace_back(offset->CONTRACT);
        return contracts;
    }

    /// The only contract of the tally.
    ContractOffset Tally() {
        EXPECT_EQ(report.ReportDocument.Offsets.size(), 1U);
        return report.ReportDocument.Offsets.empty() ? ContractOffset{} : *report.ReportDocument.Offsets.front();
    }
};

TEST_F(ForeignClosed, CountsTheSecondRowOfEachPair) {
    ReadRows({"a A c d 1 5 6", "b B c d 1 5 6", "c C c d 1 5 6", "d D c d 1 5 6", "e E c d 1 5 6"});
    EXPECT_EQ(Contracts(), (Texts{"B", "D"}));
    ReadRows({"a A c d 1 5 6"});
    EXPECT_EQ(Contracts(), Texts{});
}

TEST_F(ForeignClosed, DoesNotCountSubtotalsHeadingsAndShortRows) {
    for (const std::string_view between : {"小计 A c d 1 5 6", "合计：", "共 2", "a A c d 1 5 设计",
                                           "a 公共 c d 1 5 6 7", "HKEX", "a b", "a A c d 1 5"}) {
        ReadRows({between, "a A c d 1 5 6", between, "b B c d 1 5 6", between, between, "c C c d 1 5 6", between,
                  "d D c d 1 5 6", between});
        EXPECT_EQ(Contracts(), (Texts{"B", "D"})) << between;
    }
}

TEST_F(ForeignClosed, CountsRowsFromSevenColumnsOn) {
    ReadRows({"a A c d 1 5", "b B c d 1 5 6", "c C c d 1 5 6"});
    EXPECT_EQ(Contracts(), (Texts{"C"}));
    ReadRows({"a A c d 1 5 6 7 8 9", "b B c d 1 5 6", "c C c d 1 5 6 7 8 9"});
    EXPECT_EQ(Contracts(), (Texts{"B"}));
}

TEST_F(ForeignClosed, CountsAnewInEachStatement) {
    ReadRows({"a A c d 1 5 6", "b B c d 1 5 6", "c C c d 1 5 6"});
    ReadNextDay({"平仓明细", "--", "--", "--", "e E c d 1 5 6", "f F c d 1 5 6", "--", "资金汇总"});
    EXPECT_EQ(Contracts(), (Texts{"B", "F"}));
}

TEST_F(ForeignClosed, TalliesContractLotsResultAndCurrency) {
    ReadRows({"a0 a1 a2 a3 11 12 13 a7", "p0 p1 p2 p3 4 5 6.5 p7 p8"});
    const ContractOffset tally = Tally();
    EXPECT_STREQ(tally.CONTRACT, "p1");
    EXPECT_STREQ(tally.DELIVERY, "");
    EXPECT_STREQ(tally.CURRENCY, "p7");
    EXPECT_EQ(tally.LONG_VOL, 4);
    EXPECT_EQ(tally.LONG_COUNT, 1);
    EXPECT_EQ(tally.LONG_WIN_VOL, 4);
    EXPECT_EQ(tally.LONG_WIN_COUNT, 1);
    EXPECT_EQ(tally.LONG_WIN_PL, 6.5);
    EXPECT_EQ(tally.LONG_MAX_WIN, 6.5);
    EXPECT_EQ(tally.LONG_LOSE_COUNT, 0);
    EXPECT_EQ(report.AccountStatistics.WinCount, 1);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 6.5);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 6.5);
}

TEST_F(ForeignClosed, KeepsTheRowWithTheDayOfItsOpening) {
    ReadRows({"20240105 S c d 1 5 6 USD", "20240108 S c d 2 5 -9.5 USD", "a A c d 1 5 6", "b B c d 1 5 6"});
    ASSERT_EQ(report.ForeignClosedStore.Count(), 2);
    const PingDetail& row = report.ForeignClosedStore.Rows[0];
    EXPECT_STREQ(row.CONTRACT, "S");
    EXPECT_STREQ(row.OPEN_DATE, "20240105");
    EXPECT_STREQ(row.MATCH_DATE, "20240108");
    EXPECT_STREQ(row.MATCH_VOL, "2");
    EXPECT_STREQ(row.OFFSETPL, "-9.5");
    EXPECT_STREQ(row.CURRENCY, "USD");
    EXPECT_STREQ(report.ForeignClosedStore.Rows[1].OPEN_DATE, "");  // the row before is another contract's
    EXPECT_EQ(report.PingDetailStore.Count(), 0);
    report.Clear();
    EXPECT_EQ(report.ForeignClosedStore.Count(), 0);
}

TEST_F(ForeignClosed, HasNoCurrencyInRowsOfSevenColumns) {
    ReadRows({"a0 a1 a2 a3 11 12 13 a7", "p0 p1 p2 p3 4 5 6.5"});
    EXPECT_STREQ(Tally().CURRENCY, "");
}

TEST_F(ForeignClosed, TalliesBuysAndSellsAlike) {
    ReadRows({"a A c d 1 5 6", "b HSI c ref      2 5 -6", "c C c d 1 5 6", "d HSI c ref       3 5 -7"});
    const ContractOffset tally = Tally();
    EXPECT_EQ(tally.LONG_VOL, 5);
    EXPECT_EQ(tally.LONG_COUNT, 2);
    EXPECT_EQ(tally.LONG_LOSE_VOL, 5);
    EXPECT_EQ(tally.LONG_LOSE_PL, -13);
    EXPECT_EQ(tally.LONG_MAX_LOSS, -7);
    EXPECT_EQ(tally.SHORT_COUNT, 0);
    EXPECT_EQ(tally.SHORT_VOL, 0);
    EXPECT_EQ(report.AccountStatistics.LoseCount, 2);
    EXPECT_EQ(report.AccountStatistics.TotalPL, -13);
    EXPECT_EQ(report.AccountStatistics.MaxLoss, -7);
}

TEST_F(ForeignClosed, TakesTheResultAsPrinted) {
    const struct {
        std::string_view result;
        double amount;
    } cases[] = {{"250.00", 250}, {"-3.25", -3.25}, {"1,234.50", 1}, {"none", 0}, {"+2", 2}};
    const CTenfold products;
    for (const auto& row : cases) {
        Begin();
        report.Products = &products;
        ReadNextDay({"平仓明细", "--", "--", "--", "a A c d 1 5 6", "b B c d 2 100 " + std::string(row.result), "--",
                     "持仓明细"});
        EXPECT_EQ(report.AccountStatistics.TotalPL, row.amount) << row.result;
        EXPECT_EQ(report.AccountStatistics.FlatCount, row.amount == 0 ? 1 : 0) << row.result;
    }
}

TEST_F(ForeignClosed, KeepsThousandsMarksInLots) {
    ReadRows({"a A c d 1 5 6", "b B c d 1,000 5 6"});
    EXPECT_EQ(Tally().LONG_VOL, 1);
}

TEST_F(ForeignClosed, KeepsTheCurrencyOfAContractsFirstRow) {
    ReadRows({"a A c d 1 5 6", "b HSI c d 1 5 6 HKD", "c C c d 1 5 6", "d HSI c d 2 5 7 USD"});
    EXPECT_STREQ(Tally().CURRENCY, "HKD");
    EXPECT_EQ(Tally().LONG_WIN_VOL, 3);
    EXPECT_EQ(Tally().LONG_WIN_PL, 13);
    EXPECT_EQ(Tally().LONG_MAX_WIN, 7);
}

TEST_F(ForeignClosed, AddsNothingToTheRowStores) {
    ReadRows({"a A c d 1 5 6", "b B c d 1 5 6"});
    EXPECT_EQ(Contracts(), (Texts{"B"}));
    EXPECT_EQ(report.PingDetailStore.Count(), 0);
    EXPECT_EQ(report.MatchStore.Count() + report.OpiDetailStore.Count() + report.OpiSumStore.Count(), 0);
}

// Of the rows 4 to 8 the second and the fourth count.
TEST_F(ForeignClosed, BeginsInTheFourthRowAndEndsAboveTheRowOverTheNextTitle) {
    for (const std::string_view terminator : {"持仓明细", "资金汇总"}) {
        ReadNumberedRows(0, "", terminator);
        EXPECT_EQ(Contracts(), (Texts{"5", "7"})) << terminator;
        ReadNumberedRows(8, terminator, terminator);
        EXPECT_EQ(Contracts(), (Texts{"5"})) << terminator;
    }
}

TEST_F(ForeignClosed, LooksForItsEndFromTheThirdRowBelowTheTitle) {
    for (const std::string_view terminator : {"持仓明细", "资金汇总"}) {
        for (const int row : {1, 2}) {
            ReadNumberedRows(row, terminator, terminator);
            EXPECT_EQ(Contracts(), (Texts{"5", "7"})) << terminator << row;
        }
        ReadNumberedRows(3, terminator, terminator);
        EXPECT_EQ(Contracts(), Texts{}) << terminator;
    }
}

TEST_F(ForeignClosed, EndsAtTheFirstOfTwoWords) {
    ReadNumberedRows(7, "持仓明细", "资金汇总");
    EXPECT_EQ(Contracts(), (Texts{"5"}));
    ReadNumberedRows(7, "资金汇总", "持仓明细");
    EXPECT_EQ(Contracts(), (Texts{"5"}));
}

TEST_F(ForeignClosed, NeedsItsWholeTitleAndEnds) {
    for (const std::string& title : NearWords("平仓明细")) {
        ReadNumberedRows(0, "", "持仓明细", title);
        EXPECT_EQ(Contracts(), Texts{}) << title;
    }
    for (const std::string_view terminator : {"持仓明细", "资金汇总"}) {
        for (const std::string& word : NearWords(terminator)) {
            ReadNumberedRows(0, "", word);
            EXPECT_EQ(Contracts(), Texts{}) << word;
        }
    }
    ReadNumberedRows(0, "", "(资金汇总)", "(平仓明细)");
    EXPECT_EQ(Contracts(), (Texts{"5", "7"}));
}

TEST_F(ForeignClosed, EndsAtTheTitlesOfItsNeighboursOnly) {
    ReadNumberedRows(6, "成交记录", "持仓明细");
    EXPECT_EQ(Contracts(), (Texts{"5", "7"}));
    ReadNumberedRows(0, "", "成交记录");
    EXPECT_EQ(Contracts(), Texts{});
}

}  // namespace
}  // namespace tradebill::foreign_closed_test
