// The domestic forms of the section of open positions: a summary, or single lots day by day.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "page/statement_rows.h"

namespace tradebill::position_section_test {
namespace {

// clang-format off
const Columns kSummaryColumns = {
    {"合约　　　　　", "12%"},
    {"手数　　　　　", "8%"},
    {"买卖　　　　　", "8%"},
    {"价格　　　　　", "12%"},
    {"昨结　　　　　", "12%"},
    {"今结　　　　　", "12%"},
    {"持仓盈亏　　　　　　　　　", "18%"},
    {"占用保证金　　　　　　　　", "18%"},
};
const Columns kDetailColumns = {
    {"交易所　　　", "9%"},
    {"合约　　　　　　　", "13%"},
    {"手数　　　　", "9%"},
    {"日期　　　　　", "10%"},
    {"买入　　　　　", "10%"},
    {"卖出　　　　　　", "12%"},
    {"浮动盈亏　　　　　　", "15%"},
    {"占用保证金　　　　　　", "15%"},
    {"投保　　", "7%"},
};
// clang-format on

const std::string kPlain = "positionspannormal";

std::string Top(const Columns& columns) {
    return TitleBlock({"期末持仓", "clickPositions", "Positionsbtn", "LastPositions.jpg", "</div>\r\n", "  "}) +
           TableTop("tabPositions", kPlain, columns);
}

std::string Row(const std::string& band, const std::vector<std::string>& texts,
                const std::string& profitClass = kPlain) {
    return HtmlRow(band, kPlain, texts, {{6, profitClass}});
}

class PositionSection : public PageFixture {
protected:
    PositionSection() { report.Request.StatementKind = 1; }

    void ExpectRows(const Columns& columns, const std::string& rows) {
        CHtmlBuilder page(path_);
        EXPECT_TRUE(AddPositionSection(page, report));
        EXPECT_EQ(Page(), ClosedPage(Top(columns) + rows + kTableFoot + "\r\n"));
    }
};

class PositionSummary : public PositionSection {
protected:
    PositionSummary() { report.Request.StatementFormat = 2; }
    const std::string dashes_ = DashRow("", kPlain, kSummaryColumns);

    static std::string Total(const std::string& profit, const std::string& margin) {
        return HtmlRow("", "positionsumnormal", {"总计", "", "", "", "", "", profit, margin});
    }
};

TEST_F(PositionSummary, OfNothingHasATotalOfZeros) {
    ExpectRows(kSummaryColumns, Total("0.00", "0.00"));
}

TEST_F(PositionSummary, ShowsOneRowAndDashesForEachPosition) {
    AddPosition(report, {{"CONTRACT", "cu2405"},
                         {"POSITION_VOL", "3"},
                         {"BID", "买"},
                         {"POSITION_PRICE", "68,000"},
                         {"YSETTLE_PRICE", "68100.0"},
                         {"SETTLE_PRICE", "68200.000"},
                         {"DSYK", "1500.5"},
                         {"DEPOSIT", "20000"}});
    AddPosition(report, {{"BILL_DATE", "20240103"},  // and exchange, month, other lots and hedge aren't shown
                         {"EXCH_NAME", "e"},
                         {"CONTRACT", "al2406"},
                         {"DELIVERY", "2406"},
                         {"BID_POSITION_VOL", "7"},
                         {"ASK_POSITION_VOL", "8"},
                         {"POSITION_VOL", "1"},
                         {"BID", "卖"},
                         {"POSITION_PRICE", "1"},
                         {"YSETTLE_PRICE", "2"},
                         {"SETTLE_PRICE", "3"},
                         {"DSYK", "-2000"},
                         {"DEPOSIT", "0.256"},
                         {"HEDGE", "投"}});
    AddPosition(report, {{"CONTRACT", "zn2407"}, {"DSYK", "0.00"}});
    ExpectRows(
        kSummaryColumns,
        Row("billclr1", {"cu2405", "3", "买", "68,000", "68100.0", "68200.000", "1500.5", "20000"}, "positionspanbid") +
            dashes_ + Row("billclr2", {"al2406", "1", "卖", "1", "2", "3", "-2000", "0.256"}, "positionspanask") +
            dashes_ + Row("billclr1", {"zn2407", "", "", "", "", "", "0.00", ""}) + dashes_ +
            Total("-499.50", "20000.26"));
}

TEST_F(PositionSummary, TotalIsBlackWhateverItsSign) {
    AddPosition(report, {{"CONTRACT", "a"}, {"DSYK", "5"}});
    ExpectRows(kSummaryColumns, Row("billclr1", {"a", "", "", "", "", "", "5", ""}, "positionspanbid") + dashes_ +
                                    Total("5.00", "0.00"));
}

TEST_F(PositionSummary, HoldsInAllFormatsButZeroOneAndThree) {
    for (const int format : {2, 6, 201, 4, -1}) {
        report.Request.StatementFormat = format;
        ExpectRows(kSummaryColumns, Total("0.00", "0.00"));
    }
    for (const int format : {0, 1, 3}) {
        report.Request.StatementFormat = format;
        ExpectRows(kDetailColumns, "");
    }
}

TEST_F(PositionSummary, TrimsTheFrontOfAContract) {
    AddPosition(report, {{"CONTRACT", " \t　　cu 2405 "}});
    ExpectRows(kSummaryColumns,
               Row("billclr1", {"cu 2405 ", "", "", "", "", "", "", ""}) + dashes_ + Total("0.00", "0.00"));
}

TEST_F(PositionSummary, ReadsAmountsAsFarAsTheyGo) {
    AddPosition(report, {{"CONTRACT", "a"}, {"DSYK", " 1.5x"}, {"DEPOSIT", "1,000"}});
    AddPosition(report, {{"CONTRACT", "b"}, {"DSYK", "-"}, {"DEPOSIT", "n/a"}});
    ExpectRows(kSummaryColumns, Row("billclr1", {"a", "", "", "", "", "", " 1.5x", "1,000"}, "positionspanbid") +
                                    dashes_ + Row("billclr2", {"b", "", "", "", "", "", "-", "n/a"}) + dashes_ +
                                    Total("1.50", "1.00"));
}

class PositionDetail : public PositionSection {
protected:
    PositionDetail() { report.Request.StatementFormat = 0; }

    static std::string Dashes(const std::string& band) { return DashRow(band, kPlain, kDetailColumns); }

    static std::string Subtotal(const std::string& band, const std::string& profit, const std::string& margin,
                                const std::string& profitClass) {
        return HtmlRow(band, "positionsumnormal", {"小计", "", "", "", "", "", profit, margin, ""},
                       {{6, profitClass}}) +
               Dashes(band);
    }

    /// A lot of nothing but contract, day and profit.
    void AddSmallLot(std::string_view contract, std::string_view day, std::string_view profit) {
        AddLot(report, {{"CONTRACT", contract}, {"BILL_DATE", day}, {"DSYK", profit}});
    }
    static std::string SmallLot(const std::string& band, const std::string& contract, const std::string& day,
                                const std::string& profit, const std::string& profitClass = kPlain) {
        return Row(band, {"", contract, "", "", "", "", "", "", ""}) +
               Row(band, {"", "", "", day, "", "", profit, "", ""}, profitClass) + Dashes(band);
    }
};

TEST_F(PositionDetail, OfNothingIsHeaderAndDashes) {
    ExpectRows(kDetailColumns, "");
}

TEST_F(PositionDetail, OneRecordFillsTwoRowsAndASubtotalOfOneBand) {
    AddLot(report, {{"BILL_DATE", "20240103"},
                    {"EXCH_NAME", "上期所"},
                    {"CONTRACT", "铜"},
                    {"DELIVERY", "2405"},
                    {"POSITION_VOL", "3"},
                    {"OPEN_DATE", "20240102"},
                    {"BID", "买"},
                    {"OPEN_PRICE", "68000"},
                    {"YSETTLE_PRICE", "1"},
                    {"SETTLE_PRICE", "2"},
                    {"FLOATPL", "777"},
                    {"DSYK", "1500.5"},
                    {"DEPOSIT", "20000"},
                    {"HEDGE", "投机"}});
    ExpectRows(kDetailColumns,
               Row("billclr1", {"上期所", "铜2405", "3", "20240102", "68000", "", "", "", ""}) +
                   Row("billclr1", {"", "", "", "20240103", "", "", "1500.5", "20000", "投机"}, "positionspanbid") +
                   Dashes("billclr1") + Subtotal("billclr1", "1500.50", "20000.00", "positionsumbid"));
}

TEST_F(PositionDetail, PutsThePriceUnderTheSide) {
    const auto lot = [this](std::string_view side) {
        AddLot(report, {{"BILL_DATE", "1"}, {"BID", side}, {"OPEN_PRICE", "5"}});
    };
    lot("买");
    lot(" 买入");
    lot("卖");
    lot("");
    const std::string second = Row("billclr1", {"", "", "", "1", "", "", "", "", ""}) + Dashes("billclr1");
    const std::string bought = Row("billclr1", {"", "", "", "", "5", "", "", "", ""}) + second;
    const std::string sold = Row("billclr1", {"", "", "", "", "", "5", "", "", ""}) + second;
    ExpectRows(kDetailColumns,
               bought + bought + sold + sold + Subtotal("billclr1", "0.00", "0.00", "positionsumnormal"));
}

TEST_F(PositionDetail, GivesEachDayABandAndASubtotal) {
    AddSmallLot("a", "20240102", "10");
    AddSmallLot("b", "20240102", "-30.5");
    AddSmallLot("c", "20240103", "7");
    AddSmallLot("d", "20240102", "0.00");
    ExpectRows(kDetailColumns, SmallLot("billclr1", "a", "20240102", "10", "positionspanbid") +
                                   SmallLot("billclr1", "b", "20240102", "-30.5", "positionspanask") +
                                   Subtotal("billclr1", "-20.50", "0.00", "positionsumask") +
                                   SmallLot("billclr2", "c", "20240103", "7", "positionspanbid") +
                                   Subtotal("billclr2", "7.00", "0.00", "positionsumbid") +
                                   SmallLot("billclr1", "d", "20240102", "0.00") +
                                   Subtotal("billclr1", "0.00", "0.00", "positionsumnormal"));
}

TEST_F(PositionDetail, FirstRecordOpensAGroupEvenWithoutADay) {
    AddSmallLot("a", "", "1");
    AddSmallLot("b", "20240103", "2");
    ExpectRows(kDetailColumns, SmallLot("billclr1", "a", "", "1", "positionspanbid") +
                                   Subtotal("billclr1", "1.00", "0.00", "positionsumbid") +
                                   SmallLot("billclr2", "b", "20240103", "2", "positionspanbid") +
                                   Subtotal("billclr2", "2.00", "0.00", "positionsumbid"));
}

TEST_F(PositionDetail, TrimsTheFrontOfExchangeAndContract) {
    AddLot(report, {{"BILL_DATE", "1"}, {"EXCH_NAME", " \t　　上期所 "}, {"CONTRACT", "　cu "}, {"DELIVERY", "2405"}});
    AddLot(report, {{"BILL_DATE", "1"}, {"CONTRACT", " "}, {"DELIVERY", " 2405"}});
    const std::string second = Row("billclr1", {"", "", "", "1", "", "", "", "", ""}) + Dashes("billclr1");
    ExpectRows(kDetailColumns, Row("billclr1", {"上期所 ", "cu 2405", "", "", "", "", "", "", ""}) + second +
                                   Row("billclr1", {"", "2405", "", "", "", "", "", "", ""}) + second +
                                   Subtotal("billclr1", "0.00", "0.00", "positionsumnormal"));
}

TEST_F(PositionDetail, KeepsLotsOfAllDays) {
    report.ReportDays = {1, 1};  // only the foreign form looks at the range
    AddSmallLot("a", "19991231", "");
    ExpectRows(kDetailColumns,
               SmallLot("billclr1", "a", "19991231", "") + Subtotal("billclr1", "0.00", "0.00", "positionsumnormal"));
}

TEST_F(PositionDetail, TakesThePageWidth) {
    report.ReportDocument.PageWidth = 800;
    CHtmlBuilder page(path_);
    EXPECT_TRUE(AddPositionSection(page, report));
    EXPECT_NE(Page().find("<table width = \"800\" style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" "
                          "id= \"tabPositions\">\r\n"),
              std::string::npos);
}

}  // namespace
}  // namespace tradebill::position_section_test
