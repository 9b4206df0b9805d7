#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/bill_sheet_fixture.h"

namespace tradebill::spaced_title_reader_test {
namespace {

class SpacedTitleReader : public BillSheetFixture {
protected:
    SpacedTitleReader() { MakeReport(6); }

    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) {
        Read(ReadSpacedTitleStatement, kBillDay, Statement(lines));
    }

    /// The record of a money sheet of these rows. Any format but 6 keeps the reader's own equity.
    Fields ReadMoneyRows(std::string_view first, std::string_view second, int format = 6) {
        MakeReport(format);
        Read({"资 金 清 单", "---------", "上日结存", first, "---------", "当日结存", second});
        return Money();
    }
};

TEST_F(SpacedTitleReader, FillsMoneyFromTwoRowsOfColumns) {
    Read({"资 金 清 单", "日  期:20240102", "上日结存", "m0 m1 m2 m3 m4 m5 m6", "---------", "当日结存",
          "n0 20.25 30.5 n3"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"},
                               {"QCQY", "m0"},
                               {"CCDSYK", "m2"},
                               {"PCYK", "m3"},
                               {"SXF", "m4"},
                               {"QMJC", "n0"},
                               {"BZJZY", "20.25"},
                               {"KYZJ", "30.5"},
                               {"KHQY", "50.75"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(SpacedTitleReader, LeavesCashFlowEmpty) {
    const Fields money = ReadMoneyRows("1000 500 1 1 1", "1 1 1");
    EXPECT_FALSE(money.contains("CRJ"));
    EXPECT_EQ(report.MoneyStore.TotalCashFlow, 0);
    EXPECT_EQ(FigureOf("20240105").CashFlow, 0);
}

TEST_F(SpacedTitleReader, TakesEquityAsMarginAndFundsAndNotAsPrinted) {
    for (const int format : {6, 201}) {
        EXPECT_EQ(ReadMoneyRows("1 1 1 1 1", "999 400 600.126 888", format).at("KHQY"), "1000.13") << format;
        EXPECT_EQ(ReadMoneyRows("1 1 1 1 1", "999 400 none", format).at("KHQY"), "400.00") << format;
        EXPECT_EQ(ReadMoneyRows("1 1 1 1 1", "999 1,000 -2.5", format).at("KHQY"), "-1.50") << format;
    }
}

TEST_F(SpacedTitleReader, NeedsFiveColumnsInTheFirstMoneyRow) {
    Read({"资 金 清 单", "h", "h", "1 1 1 1", "h", "h", "1 1 1"});
    EXPECT_TRUE(NothingRead());
    EXPECT_EQ(ReadMoneyRows("1 1 1 1 m4", "1 1 1").at("SXF"), "m4");
}

TEST_F(SpacedTitleReader, EndsAtAShortFirstMoneyRowEvenIfTheSecondIsMissing) {
    EXPECT_EQ(ErrorOf([this] { Read({"资 金 清 单", "h", "h", "1 1 1 1"}); }), 0U);
    EXPECT_TRUE(NothingRead());
}

TEST_F(SpacedTitleReader, LeavesTheFiguresOfAShortSecondMoneyRowEmpty) {
    const Fields firstRowOnly{
        {"BILL_DATE", "20240105"}, {"QCQY", "m0"}, {"CCDSYK", "m2"}, {"PCYK", "m3"}, {"SXF", "m4"}};
    EXPECT_EQ(ReadMoneyRows("m0 m1 m2 m3 m4", "1 1", 201), firstRowOnly);
    Fields withEquityOfTheStore = firstRowOnly;
    withEquityOfTheStore["KHQY"] = "0.00";
    EXPECT_EQ(ReadMoneyRows("m0 m1 m2 m3 m4", "1 1", 6), withEquityOfTheStore);
}

TEST_F(SpacedTitleReader, TakesMoneyFromTheThirdAndTheSixthRowBelowTheTitle) {
    Read({"0 0 0 0 0 0", "** 资 金 清 单 **", "1 1 1 1 1 1", "", "2 2 2 2 2 2", "3 3 3 3 3 3", "4 4 4 4 4 4",
          "5 5 5 5 5 5", "6 6 6 6 6 6", "7 7 7 7 7 7"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"},
                               {"QCQY", "3"},
                               {"CCDSYK", "3"},
                               {"PCYK", "3"},
                               {"SXF", "3"},
                               {"QMJC", "6"},
                               {"BZJZY", "6"},
                               {"KYZJ", "6"},
                               {"KHQY", "12.00"}}));
}

TEST_F(SpacedTitleReader, FindsNoMoneyUnderATitleOfOtherBlanks) {
    for (const std::string_view title : {"资金清单", "资  金  清  单", "资 金清 单", "客户帐单_资金清单"}) {
        Read({title, "h", "h", "1 1 1 1 1", "h", "h", "1 1 1"});
        EXPECT_TRUE(NothingRead()) << title;
    }
}

TEST_F(SpacedTitleReader, RaisesAnErrorIfTheTextEndsAboveAMoneyRow) {
    const std::vector<BillLines> texts = {
        {"资 金 清 单"},
        {"资 金 清 单", "h", "h"},
        {"资 金 清 单", "h", "h", "1 1 1 1 1"},
        {"资 金 清 单", "h", "h", "1 1 1 1 1", "h", "h"},
    };
    for (const BillLines& lines : texts) {
        EXPECT_EQ(ErrorOf([&] { Read(ReadSpacedTitleStatement, kBillDay, BillOf(lines)); }), 0x80070057U)
            << lines.size();
        EXPECT_TRUE(NothingRead()) << lines.size();
    }
    EXPECT_EQ(ErrorOf([this] { Read({"资 金 清 单", "h", "h", "1 1 1 1 1", "h", "h", "x"}); }), 0U);
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(SpacedTitleReader, KeepsTheTablesReadBeforeAMoneyError) {
    const auto read = [this] {
        Read({"成 交 记 录 单", "h", "h", Ones(9),  "合计", "平 仓 盈 亏 单",    "h", "h", Ones(10), "合计",  //
              "持仓明细",       "h", "h", Ones(13), "合计", "持 仓 盈 亏 汇 总", "h", "h", Ones(8),  "合计",
              "资 金 清 单"});
    };
    EXPECT_EQ(ErrorOf(read), 0x80070057U);
    EXPECT_EQ(report.MatchStore.Count(), 1);
    EXPECT_EQ(report.PingDetailStore.Count(), 1);
    EXPECT_EQ(report.OpiDetailStore.Count(), 1);
    EXPECT_EQ(report.OpiSumStore.Count(), 1);
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_TRUE(report.TradeStatistics.DayFigures.Days.empty());
}

TEST_F(SpacedTitleReader, FeedsTheDaysMoneyToTheStatistics) {
    ReadMoneyRows("1000 50 20 -30 10", "990 396 594");
    const DayFigure figure = FigureOf("20240105");
    EXPECT_EQ(figure.Opening, 1000);
    EXPECT_EQ(figure.PositionPL, 20);
    EXPECT_EQ(figure.ClosedPL, -30);
    EXPECT_EQ(figure.Closing, 990);
    ASSERT_EQ(report.TradeStatistics.DayUsages.Days.size(), 1U);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.front()->Risk, 0.4);
}

TEST_F(SpacedTitleReader, TakesTheDaysTotalsFromTheMoneyRowAlone) {
    Read({"资 金 清 单", "h", "h", "1000 0 20 -30 10", "h", "h", "990 396 594",  //
          "平 仓 盈 亏 单", "h", "h", "1 1 1 1 1 1 1 1 1 77", "合计 1 88 99", "持 仓 盈 亏 汇 总", "h", "h",
          "1 1 1 1 1 1 55 1", "合计 1 66 66 66"});
    EXPECT_EQ(Money().at("CCDSYK"), "20");
    EXPECT_EQ(Money().at("PCYK"), "-30");
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 20);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, -30);
    EXPECT_EQ(FigureOf("20240105").PositionPL, 20);
    EXPECT_EQ(FigureOf("20240105").ClosedPL, -30);
}

TEST_F(SpacedTitleReader, FillsATradeFromItsColumns) {
    Read({"成 交 记 录 单", "日  期:20240102", "成交日期", "t0 t1 t2 买t3 开仓t4 t5 t6 t7 t8 t9", "合计"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                         {"MATCH_DATE", "t0"},
                                                                         {"CONTRACT", "t1"},
                                                                         {"MATCH_VOL", "t2"},
                                                                         {"BID", "买t3"},
                                                                         {"OFFSET", "开仓t4"},
                                                                         {"MATCH_PRICE", "t5"},
                                                                         {"TURNOVER", "t6"},
                                                                         {"POUNDAGE", "t7"},
                                                                         {"EXCH_NAME", "t8"}}}));
}

TEST_F(SpacedTitleReader, FillsAClosedPositionFromItsColumns) {
    Read({"平 仓 盈 亏 单", "---------", "平仓日期", "p0 买p1 p2 卖p3 p4 p5 p6 p7 p8 p9 p10", "合计"});
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                              {"MATCH_DATE", "p0"},
                                                                              {"CONTRACT", "买p1"},
                                                                              {"MATCH_VOL", "p2"},
                                                                              {"BID", "买"},
                                                                              {"MATCH_PRICE", "p4"},
                                                                              {"SETTLE_PRICE", "p5"},
                                                                              {"OPEN_DATE", "p7"},
                                                                              {"OPEN_PRICE", "p8"},
                                                                              {"OFFSETPL", "p9"}}}));
}

TEST_F(SpacedTitleReader, InvertsTheSideOfClosedPositionsAndFoldsThem) {
    Read({"平 仓 盈 亏 单", "h", "h",          //
          "1 cu2405 2 卖 105 99 1 1 100 1",    // a long position, closed 5 points higher
          "1 cu2405 1 买入 103 99 1 1 100 1",  // a short one, closed 3 points higher
          "合计"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖"}));
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->LONG_WIN_PL, 10);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->SHORT_LOSE_PL, -3);
}

TEST_F(SpacedTitleReader, FillsAnOpenPositionFromItsColumns) {
    Read({"持仓明细", "---------", "交易所", "o0 o1 o2 o3 买o4 o5 o6 o7 o8 o9 o10 o11 o12 o13", "合计"});
    EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                             {"EXCH_NAME", "o0"},
                                                                             {"CONTRACT", "o1"},
                                                                             {"DELIVERY", "o2"},
                                                                             {"OPEN_DATE", "o3"},
                                                                             {"BID", "买o4"},
                                                                             {"HEDGE", "o5"},
                                                                             {"POSITION_VOL", "o6"},
                                                                             {"OPEN_PRICE", "o7"},
                                                                             {"YSETTLE_PRICE", "o8"},
                                                                             {"SETTLE_PRICE", "o9"},
                                                                             {"FLOATPL", "o10"},
                                                                             {"DSYK", "o11"},
                                                                             {"DEPOSIT", "o12"}}}));
}

TEST_F(SpacedTitleReader, FillsASummaryRowFromItsColumns) {
    Read({"持 仓 盈 亏 汇 总", "---------", "合约", "s0 s1 买s2 s3 s4 s5 s6 s7 s8", "合计"});
    EXPECT_EQ(FieldsOfAll(report.OpiSumStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                          {"CONTRACT", "s0"},
                                                                          {"POSITION_VOL", "s1"},
                                                                          {"BID", "买s2"},
                                                                          {"SETTLE_PRICE", "s3"},
                                                                          {"YSETTLE_PRICE", "s4"},
                                                                          {"POSITION_PRICE", "s5"},
                                                                          {"DSYK", "s6"},
                                                                          {"DEPOSIT", "s7"}}}));
}

TEST_F(SpacedTitleReader, MakesOneRecordOfEachSummaryRowWhateverItsLots) {
    Read({"持 仓 盈 亏 汇 总", "h", "h", "a 0 买 1 1 1 1 1", "b -1 卖 1 1 1 1 1", "c x 净 1 1 1 1 1", "合计"});
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "CONTRACT"), (Texts{"a", "b", "c"}));
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "POSITION_VOL"), (Texts{"0", "-1", "x"}));
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"买", "卖", "净"}));
}

TEST_F(SpacedTitleReader, FeedsOpenRowsAndNotTheSummaryToTheStatistics) {
    Read({"持仓明细", "h", "h", "1 cu2405 1 1 买 1 3 1 1 1 1 1 300", "1 al2406 1 1 卖 1 2 1 1 1 1 1 50", "合计",
          "持 仓 盈 亏 汇 总", "h", "h", "cu2405 3 买 1 1 1 1 300", "ru2405 4 卖 1 1 1 1 90", "合计"});
    EXPECT_EQ(PositionsOf("20240105"), (Texts{"cu 买 3 300.000000", "al 卖 2 50.000000"}));
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
}

TEST_F(SpacedTitleReader, KeepsBars) {
    Read({"成 交 记 录 单", "h", "h", "|t0 t1 t2 t3 t4 t5 t6 t7 t8|", "合计",  //
          "资 金 清 单", "h", "h", "|m0 1 1 1 m4|", "h", "h", "|n0 1 n2|"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"|t0"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "EXCH_NAME"), (Texts{"t8|"}));
    const Fields money = Money();
    EXPECT_EQ(money.at("QCQY"), "|m0");
    EXPECT_EQ(money.at("SXF"), "m4|");
    EXPECT_EQ(money.at("QMJC"), "|n0");
    EXPECT_EQ(money.at("KYZJ"), "n2|");
}

}  // namespace
}  // namespace tradebill::spaced_title_reader_test
