#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/bill_sheet_fixture.h"

namespace tradebill::spaced_title_premium_reader_test {
namespace {

class SpacedTitlePremiumReader : public BillSheetFixture {
protected:
    SpacedTitlePremiumReader() { MakeReport(6); }

    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) {
        Read(ReadSpacedTitlePremiumStatement, kBillDay, Statement(lines));
    }

    /// The record of a money sheet of these rows. Any format but 6 keeps the reader's own equity.
    Fields ReadMoneyRows(std::string_view first, std::string_view second, int format = 6) {
        MakeReport(format);
        Read({"资 金 清 单", "---------", "上日结存", first, "---------", "当日结存", second});
        return Money();
    }
};

TEST_F(SpacedTitlePremiumReader, FillsMoneyFromTwoRowsOfColumns) {
    Read({"资 金 清 单", "日  期:20240102", "上日结存", "m0 m1 m2 m3 m4 m5 m6", "---------", "当日结存",
          "n0 20.25 30.5 n3"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"},
                               {"QCQY", "m0"},
                               {"CRJ", "m1"},
                               {"CCDSYK", "m2"},
                               {"PCYK", "m3"},
                               {"SXF", "m4"},
                               {"QLJSZ", "m5"},
                               {"QMJC", "n0"},
                               {"BZJZY", "20.25"},
                               {"KYZJ", "30.5"},
                               {"KHQY", "50.75"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(SpacedTitlePremiumReader, TakesEquityAsMarginAndFundsAndNotAsPrinted) {
    for (const int format : {6, 201}) {
        EXPECT_EQ(ReadMoneyRows("1 1 1 1 1 1", "999 400 600.126 888", format).at("KHQY"), "1000.13") << format;
    }
}

TEST_F(SpacedTitlePremiumReader, LeavesTheFiguresOfAShortSecondMoneyRowEmpty) {
    EXPECT_EQ(ReadMoneyRows("m0 m1 m2 m3 m4 m5", "1 1", 201), (Fields{{"BILL_DATE", "20240105"},
                                                                      {"QCQY", "m0"},
                                                                      {"CRJ", "m1"},
                                                                      {"CCDSYK", "m2"},
                                                                      {"PCYK", "m3"},
                                                                      {"SXF", "m4"},
                                                                      {"QLJSZ", "m5"}}));
}

TEST_F(SpacedTitlePremiumReader, RaisesAnErrorForAFirstMoneyRowOfExactlyFiveColumns) {
    EXPECT_EQ(ErrorOf([this] { Read({"资 金 清 单", "h", "h", "1 1 1 1", "h", "h", "1 1 1"}); }), 0U);
    EXPECT_TRUE(NothingRead());
    EXPECT_EQ(ErrorOf([this] { Read({"资 金 清 单", "h", "h", "1 1 1 1 1", "h", "h", "1 1 1"}); }), 0x80070057U);
    EXPECT_TRUE(NothingRead());
    EXPECT_EQ(ErrorOf([this] { Read({"资 金 清 单", "h", "h", "1 1 1 1 1 1", "h", "h", "1 1 1"}); }), 0U);
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(SpacedTitlePremiumReader, RaisesAnErrorIfTheTextEndsAboveAMoneyRow) {
    const std::vector<BillLines> texts = {
        {"资 金 清 单"},
        {"资 金 清 单", "h", "h"},
        {"资 金 清 单", "h", "h", "1 1 1 1 1 1"},
        {"资 金 清 单", "h", "h", "1 1 1 1 1 1", "h", "h"},
    };
    for (const BillLines& lines : texts) {
        EXPECT_EQ(ErrorOf([&] { Read(ReadSpacedTitlePremiumStatement, kBillDay, BillOf(lines)); }), 0x80070057U)
            << lines.size();
        EXPECT_TRUE(NothingRead()) << lines.size();
    }
    EXPECT_EQ(ErrorOf([this] { Read({"资 金 清 单", "h", "h", "1 1 1 1"}); }), 0U);  // too short to go on
    EXPECT_TRUE(NothingRead());
}

TEST_F(SpacedTitlePremiumReader, RaisesAnErrorForATradeOfExactlyNineColumns) {
    const auto read = [this] {
        Read({"资 金 清 单",    "h", "h", "1 1 1 1 1 1", "h",     "h",        "1 1 1",           //
              "成 交 记 录 单", "h", "h", Ones(10),      Ones(8), Ones(9),    Ones(10), "合计",  //
              "平 仓 盈 亏 单", "h", "h", Ones(10),      "合计",  "持仓明细", "h",      "h",    Ones(13), "合计"});
    };
    EXPECT_EQ(ErrorOf(read), 0x80070057U);
    EXPECT_EQ(report.MatchStore.Count(), 1);  // the row above it
    EXPECT_EQ(report.PingDetailStore.Count(), 0);
    EXPECT_EQ(report.OpiDetailStore.Count(), 0);
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_TRUE(report.TradeStatistics.DayFigures.Days.empty());
}

TEST_F(SpacedTitlePremiumReader, LetsItsErrorsPassThroughTheDispatch) {
    const std::string text = Statement({"资 金 清 单", "h", "h", "1 1 1 1 1", "h", "h", "1 1 1"});
    EXPECT_EQ(ErrorOf([&] { ReadStatement(kBillDay, text); }), 0U);
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    MakeReport(6);
    EXPECT_EQ(ErrorOf([&] { ReadStatement(kBillDay, text + Gbk("注：权利金另计\r\n")); }), 0x80070057U);
    EXPECT_TRUE(NothingRead());
}

TEST_F(SpacedTitlePremiumReader, FeedsTheDaysMoneyToTheStatistics) {
    ReadMoneyRows("1000 50 20 -30 10 7.5", "1030 412 618");
    const DayFigure figure = FigureOf("20240105");
    EXPECT_EQ(figure.Opening, 1000);
    EXPECT_EQ(figure.CashFlow, 50);
    EXPECT_EQ(figure.PositionPL, 20);
    EXPECT_EQ(figure.ClosedPL, -30);
    EXPECT_EQ(figure.Closing, 1030);
    EXPECT_EQ(report.MoneyStore.TotalPremium, 7.5);
    ASSERT_EQ(report.TradeStatistics.DayUsages.Days.size(), 1U);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.front()->Margin, 412);
}

TEST_F(SpacedTitlePremiumReader, TakesTheDaysTotalsFromTheMoneyRowAlone) {
    Read({"资 金 清 单", "h", "h", "1000 0 20 -30 10 0", "h", "h", "990 396 594",  //
          "平 仓 盈 亏 单", "h", "h", "1 1 1 1 1 1 1 1 1 77", "合计 1 88 99", "持 仓 盈 亏 汇 总", "h", "h",
          "1 1 1 1 1 1 55 1", "合计 1 66 66 66"});
    EXPECT_EQ(Money().at("CCDSYK"), "20");
    EXPECT_EQ(Money().at("PCYK"), "-30");
    EXPECT_EQ(FigureOf("20240105").PositionPL, 20);
    EXPECT_EQ(FigureOf("20240105").ClosedPL, -30);
}

TEST_F(SpacedTitlePremiumReader, FillsATradeFromItsColumns) {
    Read({"成 交 记 录 单", "日  期:20240102", "合约", "t0 买t1 t2 t3 开仓t4 t5 t6 t7 t8 t9 t10", "合计"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                         {"MATCH_DATE", "t2"},
                                                                         {"CONTRACT", "t0"},
                                                                         {"MATCH_VOL", "t3"},
                                                                         {"BID", "买t1"},
                                                                         {"OFFSET", "开仓t4"},
                                                                         {"MATCH_PRICE", "t5"},
                                                                         {"TURNOVER", "t6"},
                                                                         {"POUNDAGE", "t7"},
                                                                         {"EXCH_NAME", "t9"}}}));
}

TEST_F(SpacedTitlePremiumReader, FillsAClosedPositionFromItsColumns) {
    Read({"平 仓 盈 亏 单", "---------", "合约", "p0 卖p1 p2 买p3 p4 p5 p6 p7 p8 p9 p10", "合计"});
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                              {"MATCH_DATE", "p2"},
                                                                              {"CONTRACT", "p0"},
                                                                              {"MATCH_VOL", "买p3"},
                                                                              {"BID", "买"},
                                                                              {"MATCH_PRICE", "p4"},
                                                                              {"SETTLE_PRICE", "p5"},
                                                                              {"OPEN_DATE", "p7"},
                                                                              {"OPEN_PRICE", "p8"},
                                                                              {"OFFSETPL", "p9"}}}));
}

TEST_F(SpacedTitlePremiumReader, InvertsTheSideOfClosedPositionsAndFoldsThem) {
    Read({"平 仓 盈 亏 单", "h", "h", "cu2405 卖 1 2 105 99 1 1 100 1", "cu2405 买入 1 1 103 99 1 1 100 1", "合计"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖"}));
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->LONG_WIN_PL, 10);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->SHORT_LOSE_PL, -3);
}

TEST_F(SpacedTitlePremiumReader, FillsAnOpenPositionFromItsColumns) {
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

TEST_F(SpacedTitlePremiumReader, FillsASummaryRowFromItsColumns) {
    Read({"持 仓 盈 亏 汇 总", "---------", "合约", "s0 买s1 卖2 s3 s4 s5 s6 s7 s8", "合计"});
    EXPECT_EQ(FieldsOfAll(report.OpiSumStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                          {"CONTRACT", "s0"},
                                                                          {"POSITION_VOL", "卖2"},
                                                                          {"BID", "买"},
                                                                          {"SETTLE_PRICE", "s3"},
                                                                          {"YSETTLE_PRICE", "s4"},
                                                                          {"POSITION_PRICE", "s5"},
                                                                          {"DSYK", "s6"},
                                                                          {"DEPOSIT", "s7"}}}));
}

TEST_F(SpacedTitlePremiumReader, MakesOneRecordOfEachSummaryRowWhateverItsLots) {
    Read({"持 仓 盈 亏 汇 总", "h", "h", "a 买/Buy 0 1 1 1 1 1", "b 卖 -1 1 1 1 1 1", "c 净 x 1 1 1 1 1", "合计"});
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "CONTRACT"), (Texts{"a", "b", "c"}));
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "POSITION_VOL"), (Texts{"0", "-1", "x"}));
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"买", "卖", "卖"}));
}

TEST_F(SpacedTitlePremiumReader, FeedsOpenRowsAndNotTheSummaryToTheStatistics) {
    Read({"持仓明细", "h", "h", "1 cu2405 1 1 买 1 3 1 1 1 1 1 300", "1 al2406 1 1 卖 1 2 1 1 1 1 1 50", "合计",
          "持 仓 盈 亏 汇 总", "h", "h", "cu2405 买 3 1 1 1 1 300", "ru2405 卖 4 1 1 1 1 90", "合计"});
    EXPECT_EQ(PositionsOf("20240105"), (Texts{"cu 买 3 300.000000", "al 卖 2 50.000000"}));
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
}

TEST_F(SpacedTitlePremiumReader, IsChosenByTheWordForPremium) {
    const std::string text = Statement({"资 金 清 单", "h", "h", "1 m1 1 1 1 m5", "h", "h", "1 1 1"});
    ReadStatement(kBillDay, text);
    EXPECT_FALSE(Money().contains("CRJ"));
    EXPECT_FALSE(Money().contains("QLJSZ"));
    MakeReport(6);
    ReadStatement(kBillDay, text + Gbk("注：权利金另计\r\n"));
    EXPECT_EQ(Money().at("CRJ"), "m1");
    EXPECT_EQ(Money().at("QLJSZ"), "m5");
}

}  // namespace
}  // namespace tradebill::spaced_title_premium_reader_test
