// The day's realised and position P/L, which the money sheet of the client bill lacks: read from the totals rows, or,
// in its premium form, added up.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "readers/bill_sheet_fixture.h"
#include "readers/fixed_readers.h"
#include "readers/scan_listener.h"

namespace tradebill::client_bill_totals_test {
namespace {

const std::string kEmpty = "nothing";

const BillLines kMoneySheet = {"客户帐单_资金清单", "h", "---------", "h", "1 1 0 0 1 1 1 1 1"};

BillLines Sheet(const std::string& title, const BillLines& rows, const std::string& totals) {
    return Joined({{title, "h", "h", "h"}, rows, {totals}});
}
BillLines OpenSheet(const BillLines& rows, const std::string& totals = "合计") {
    return Sheet("客户帐单_持仓盈亏单", rows, totals);
}
BillLines ClosedSheet(const BillLines& rows, const std::string& totals = "合计") {
    return Sheet("客户帐单_平仓盈亏单", rows, totals);
}

/// What the stores hold of the day's P/L whenever something is told of a sheet.
class CTotalsWatch : public CScanListener {
public:
    explicit CTotalsWatch(const CReport& report) : report_(report) {}

    Texts seen;

    void OnTemplate(const TemplateSeen& /*seen*/) override {}
    void OnReader(std::string_view /*layout*/) override {}
    void OnDate(std::string_view /*dateWord*/, std::string_view /*date*/) override {}
    void OnSection(const SectionSeen& section) override { kind_ = section.kind; }
    void OnRow(std::string_view row, Row /*columns*/, const RowVerdict& /*verdict*/) override {
        if (row.starts_with(Gbk("合计"))) return;
        if (kind_ == SectionKind::Open) Note(std::string(row), "CCDSYK");
        if (kind_ == SectionKind::Closed) Note(std::string(row), "PCYK");
    }
    void OnLabelWanted(std::string_view /*label*/) override {}
    void OnLabelMet(std::string_view /*label*/) override {}
    void OnMoney(const MoneyRecord& /*record*/, std::string_view /*currency*/) override {}
    void OnRecord(const RecordSeen& /*record*/) override {}

private:
    void Note(const std::string& row, const std::string& field) {
        const Texts texts = TextsOf(report_.MoneyStore.Records, field);
        seen.push_back(row.substr(0, row.find(' ')) + ":" + (texts.empty() ? std::string() : texts.front()));
    }

    const CReport& report_;
    SectionKind kind_ = SectionKind::Money;
};

class ClientBillTotals : public BillSheetFixture {
protected:
    ClientBillTotals() { MakeReport(201); }

    using ReaderFixture::Read;
    void Read(const BillLines& lines, CScanListener* listener = nullptr) {
        MakeReport(201);
        Read(ReadClientBillStatement, kBillDay, BillOf(lines), listener);
    }
    void ReadPremium(const BillLines& lines, CScanListener* listener = nullptr) {
        MakeReport(201);
        Read(ReadClientBillPremiumStatement, kBillDay, BillOf(lines), listener);
    }

    /// A field of the only money record; kEmpty if it has none.
    std::string MoneyField(const std::string& name) {
        const Fields money = Money();
        const auto found = money.find(name);
        return found == money.end() ? kEmpty : found->second;
    }
};

TEST_F(ClientBillTotals, TakePositionPLFromTheTotalsRowAndNotFromTheRows) {
    Read(Joined({kMoneySheet, OpenSheet({"1 x 2 1 3 1 1 1 50 1 1"}, "合计 0 0 123.45 1 1 1")}));
    EXPECT_EQ(MoneyField("CCDSYK"), "123.45");
    EXPECT_EQ(MoneyField("PCYK"), kEmpty);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 123.45);
    EXPECT_EQ(FigureOf("20240105").PositionPL, 123.45);
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "DSYK"), (Texts{"50", "50"}));
}

TEST_F(ClientBillTotals, TakeClosedPLFromTheTotalsRowAndNotFromTheRows) {
    Read(Joined({kMoneySheet, ClosedSheet({"1 1 1 1 1 1 1 1 1 50 1 1"}, "合计 0 -77.5 1 1")}));
    EXPECT_EQ(MoneyField("PCYK"), "-77.5");
    EXPECT_EQ(MoneyField("CCDSYK"), kEmpty);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, -77.5);
    EXPECT_EQ(report.MoneyStore.MinDayPL, -77.5);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 0);
    EXPECT_EQ(FigureOf("20240105").ClosedPL, -77.5);
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "OFFSETPL"), (Texts{"50"}));
}

TEST_F(ClientBillTotals, TakePositionPLFromTheFourthColumnOfTheTotalsRow) {
    const struct {
        std::string totals;
        std::string text;
        double amount;
    } cases[] = {
        {"合计 1 2", kEmpty, 0},
        {"合计 1 2 7.5", "7.5", 7.5},
        {"合计 1 2 7.5 8", "7.5", 7.5},
        {"1 2 3 合计 4", "合计", 0},
        {"1 2 合计 4", "4", 4},
        {"|合计 1 2 7.5|", "7.5", 7.5},
        {"|| 合计 1 2 7.5 ||", "7.5", 7.5},
        {"| 合计 1 7.5 |", kEmpty, 0},
        {"合计|1|2|7.5", kEmpty, 0},
        {"合计 1 2 1,234.5", "1,234.5", 1},
        {"合计 1 2 -", "-", 0},
        {"合计 1 2 123456789012345", "123456789012345", 123456789012345},
        {"合计 1 2 1234567890123456.5", "123456789012345", 123456789012345},
    };
    for (const auto& row : cases) {
        Read(Joined({kMoneySheet, OpenSheet({}, row.totals)}));
        EXPECT_EQ(MoneyField("CCDSYK"), row.text) << row.totals;
        EXPECT_EQ(report.MoneyStore.TotalPositionPL, row.amount) << row.totals;
        EXPECT_EQ(FigureOf("20240105").PositionPL, row.amount) << row.totals;
    }
}

TEST_F(ClientBillTotals, TakeClosedPLFromTheThirdColumnOfTheTotalsRow) {
    const struct {
        std::string totals;
        std::string text;
        double amount;
    } cases[] = {
        {"合计 1", kEmpty, 0},
        {"合计 1 7.5", "7.5", 7.5},
        {"合计 1 7.5 8", "7.5", 7.5},
        {"1 合计 4", "4", 4},
        {"|合计 1 7.5|", "7.5", 7.5},
        {"|| 合计 1 7.5 ||", "7.5", 7.5},
        {"| 合计 7.5 |", kEmpty, 0},
        {"合计|1|7.5", kEmpty, 0},
        {"合计 1 1,234.5", "1,234.5", 1},
        {"合计 1 123456789012345", "123456789012345", 123456789012345},
        {"合计 1 1234567890123456.5", "123456789012345", 123456789012345},
    };
    for (const auto& row : cases) {
        Read(Joined({kMoneySheet, ClosedSheet({}, row.totals)}));
        EXPECT_EQ(MoneyField("PCYK"), row.text) << row.totals;
        EXPECT_EQ(report.MoneyStore.TotalClosedPL, row.amount) << row.totals;
        EXPECT_EQ(FigureOf("20240105").ClosedPL, row.amount) << row.totals;
    }
}

TEST_F(ClientBillTotals, LeaveTheDaysFiguresAloneIfTheTotalsRowIsShort) {
    Read(Joined({OpenSheet({}, "合计 1 2"), ClosedSheet({}, "合计 1")}));
    EXPECT_TRUE(NothingRead());
}

TEST_F(ClientBillTotals, AreReportedBeforeTheRowsOfTheirSheet) {
    CTotalsWatch watch(report);
    Read(Joined({kMoneySheet, OpenSheet({"o1 x 2 1 0 1 1 1 50 1 1", "o2 x 2 1 0 1 1 1 50 1 1"}, "合计 0 0 123.45"),
                 ClosedSheet({"c1 1 1 1 1 1 1 1 1 50 1 1", "c2 1 1 1 1 1 1 1 1 50 1 1"}, "合计 0 77.5")}),
         &watch);
    EXPECT_EQ(watch.seen, (Texts{"o1:123.45", "o2:123.45", "c1:77.5", "c2:77.5"}));
}

TEST_F(ClientBillTotals, ReachTheStatisticsEvenWithoutAMoneyRecord) {
    Read(Joined({OpenSheet({}, "合计 0 0 123.45"), ClosedSheet({}, "合计 0 77.5")}));
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 0);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 0);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 0);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Days.size(), 1U);
    EXPECT_EQ(FigureOf("20240105").PositionPL, 123.45);
    EXPECT_EQ(FigureOf("20240105").ClosedPL, 77.5);
}

TEST_F(ClientBillTotals, StayAwayWithTheirSheet) {
    Read(Joined({kMoneySheet, {"客户帐单_持仓盈亏单", "h", "h", "h", "1 x 2 1 0 1 1 1 50 1 1"}}));
    EXPECT_EQ(MoneyField("CCDSYK"), kEmpty);
    EXPECT_EQ(MoneyField("PCYK"), kEmpty);
    EXPECT_EQ(report.OpiSumStore.Count(), 0);
}

TEST_F(ClientBillTotals, OfThePremiumFormAddUpClosedRows) {
    ReadPremium(Joined(
        {kMoneySheet, ClosedSheet({"1 1 1 1 1 1 1 1 1 10.5 1", "1 1 1 1 1 1 1 1 1 -3.25 1", "1 1 1 1 1 1 1 1 1 100",
                                   "1 1 1 1 1 1 1 1 1 x 1", "1 1 1 1 1 1 1 1 1 2,000 1"},
                                  "合计 1 999 999")}));
    EXPECT_EQ(MoneyField("PCYK"), "9.250000");  // the row of ten columns stays out
    EXPECT_EQ(MoneyField("CCDSYK"), kEmpty);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 9.25);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 9.25);
    EXPECT_EQ(report.MoneyStore.MinDayPL, 0);
    EXPECT_EQ(FigureOf("20240105").ClosedPL, 9.25);
}

TEST_F(ClientBillTotals, OfThePremiumFormAddUpEachOpenRecord) {
    ReadPremium(
        Joined({kMoneySheet, OpenSheet({"1 1 x 1 2 1 3 1 1 1 50.5", "1 1 x 1 2 1 0 1 1 1 -20.25",
                                        "1 1 x 1 0 1 0 1 1 1 1000", "1 1 x 1 0 1 4 1 1 1 0.5", "1 1 x 1 2 1 3 1 1 1"},
                                       "合计 1 1 999 999")}));
    EXPECT_EQ(MoneyField("CCDSYK"), "81.250000");  // 50.5 twice: its row has both sides
    EXPECT_EQ(MoneyField("PCYK"), kEmpty);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 81.25);
    EXPECT_EQ(FigureOf("20240105").PositionPL, 81.25);
}

TEST_F(ClientBillTotals, OfThePremiumFormAreZeroForSheetsWithoutRows) {
    ReadPremium(Joined({kMoneySheet, OpenSheet({}), ClosedSheet({})}));
    EXPECT_EQ(MoneyField("CCDSYK"), "0.000000");
    EXPECT_EQ(MoneyField("PCYK"), "0.000000");
    ReadPremium(Joined({OpenSheet({}), ClosedSheet({})}));
    EXPECT_EQ(report.TradeStatistics.DayFigures.Days.size(), 1U);
}

TEST_F(ClientBillTotals, OfThePremiumFormStayAwayWithTheirSheet) {
    const BillLines open = {"客户帐单_持仓盈亏单", "h", "h", "h", "1 1 x 1 2 1 3 1 1 1 50.5"};
    ReadPremium(Joined({ClosedSheet({"1 1 1 1 1 1 1 1 1 10.5 1"}), kMoneySheet, open}));
    EXPECT_EQ(MoneyField("CCDSYK"), kEmpty);
    EXPECT_EQ(MoneyField("PCYK"), "10.500000");
    ReadPremium(open);
    EXPECT_TRUE(NothingRead());
}

TEST_F(ClientBillTotals, OfThePremiumFormAreReportedBehindTheRowsOfTheirSheet) {
    CTotalsWatch watch(report);
    ReadPremium(Joined({kMoneySheet, OpenSheet({"o1 1 x 1 2 1 0 1 1 1 50", "o2 1 x 1 2 1 0 1 1 1 50"}),
                        ClosedSheet({"c1 1 1 1 1 1 1 1 1 50 1", "c2 1 1 1 1 1 1 1 1 50 1"})}),
                &watch);
    EXPECT_EQ(watch.seen, (Texts{"c1:", "c2:", "o1:", "o2:"}));
    EXPECT_EQ(MoneyField("PCYK"), "100.000000");
    EXPECT_EQ(MoneyField("CCDSYK"), "100.000000");
}

TEST_F(ClientBillTotals, OfThePremiumFormReachTheStatisticsEvenWithoutAMoneyRecord) {
    ReadPremium(Joined({OpenSheet({"1 1 x 1 2 1 0 1 1 1 50"}), ClosedSheet({"1 1 1 1 1 1 1 1 1 -7.5 1"})}));
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 0);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 0);
    EXPECT_EQ(FigureOf("20240105").PositionPL, 50);
    EXPECT_EQ(FigureOf("20240105").ClosedPL, -7.5);
}

TEST_F(ClientBillTotals, OfThePremiumFormAreCutInTheRecordAlone) {
    ReadPremium(Joined({kMoneySheet, ClosedSheet({"1 1 1 1 1 1 1 1 1 1234567890.5 1"}),
                        OpenSheet({"1 1 x 1 2 1 0 1 1 1 -123456789.25"})}));
    EXPECT_EQ(MoneyField("PCYK"), "1234567890.5000");
    EXPECT_EQ(FigureOf("20240105").ClosedPL, 1234567890.5);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 1234567890.5);
    EXPECT_EQ(MoneyField("CCDSYK"), "-123456789.2500");
    EXPECT_EQ(FigureOf("20240105").PositionPL, -123456789.25);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, -123456789.25);
}

TEST_F(ClientBillTotals, OfThePremiumFormTakeHugeAmounts) {
    ReadPremium(
        Joined({kMoneySheet, ClosedSheet({"1 1 1 1 1 1 1 1 1 1e300 1"}), OpenSheet({"1 1 x 1 2 1 0 1 1 1 -1e300"})}));
    EXPECT_EQ(MoneyField("PCYK"), "100000000000000");  // the first of 301 digits
    EXPECT_EQ(FigureOf("20240105").ClosedPL, 1e300);
    EXPECT_EQ(MoneyField("CCDSYK"), "-10000000000000");
    EXPECT_EQ(FigureOf("20240105").PositionPL, -1e300);
}

TEST_F(ClientBillTotals, OfThePremiumFormAddUpFieldsAsTheyAreCut) {
    ReadPremium(Joined({kMoneySheet, ClosedSheet({"1 1 1 1 1 1 1 1 1 1234567890123456 1"}),
                        OpenSheet({"1 1 x 1 2 1 0 1 1 1 1234567890123456"})}));
    EXPECT_EQ(FigureOf("20240105").ClosedPL, 123456789012345);
    EXPECT_EQ(FigureOf("20240105").PositionPL, 123456789012345);
}

}  // namespace
}  // namespace tradebill::client_bill_totals_test
