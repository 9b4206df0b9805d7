#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/bill_sheet_fixture.h"

namespace tradebill::client_bill_premium_reader_test {
namespace {

class ClientBillPremiumReader : public BillSheetFixture {
protected:
    ClientBillPremiumReader() { MakeReport(201); }

    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) {
        Read(ReadClientBillPremiumStatement, kBillDay, Statement(lines));
    }

    /// The record of a money sheet of this row.
    Fields ReadMoneyRow(std::string_view row, int format = 201) {
        MakeReport(format);
        Read({"客户帐单_资金清单", "客户号: 1", "---------", "序号 上日结存", row});
        return Money();
    }

    /// What an open sheet of this row leaves in OpiSumStore.
    std::vector<Fields> ReadOpenRow(std::string_view row) {
        MakeReport(201);
        Read({"客户帐单_持仓盈亏单", "客户号: 1", "---------", "序号 交易所", row, "合计"});
        return FieldsOfAll(report.OpiSumStore.Rows);
    }
};

TEST_F(ClientBillPremiumReader, FillsMoneyFromOneRowOfColumns) {
    Read({"客户帐单_资金清单", "日  期:20240102", "---------", "序号 上日结存",
          "m0 m1 7.5 2.25 m4 m5 m6 m7 m8 m9 m10 m11 m12 m13 m14 m15 m16"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"},
                               {"QCQY", "m1"},
                               {"CRJ", "5.25"},
                               {"SXF", "m4"},
                               {"QMJC", "m6"},
                               {"KHQY", "m15"},
                               {"KYZJ", "m7"},
                               {"BZJZY", "m9"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(ClientBillPremiumReader, TakesEquityFromTheSixteenthColumnOrTheClosingBalance) {
    EXPECT_EQ(ReadMoneyRow("1 1 0 0 1 1 m6 1 1 1 1 1 1 1 m14").at("KHQY"), "m6");
    EXPECT_EQ(ReadMoneyRow("1 1 0 0 1 1 m6 1 1 1 1 1 1 1 m14 m15").at("KHQY"), "m15");
}

TEST_F(ClientBillPremiumReader, TakesMarginOnlyFromRowsThatHaveIt) {
    EXPECT_EQ(ReadMoneyRow("m0 m1 0 0 m4 m5 m6 m7 m8"), (Fields{{"BILL_DATE", "20240105"},
                                                                {"QCQY", "m1"},
                                                                {"CRJ", "0.00"},
                                                                {"SXF", "m4"},
                                                                {"QMJC", "m6"},
                                                                {"KHQY", "m6"},
                                                                {"KYZJ", "m7"}}));
    EXPECT_EQ(ReadMoneyRow("m0 m1 0 0 m4 m5 m6 m7 m8 m9").at("BZJZY"), "m9");
}

TEST_F(ClientBillPremiumReader, MakesNoMoneyRecordOfARowOfEightColumns) {
    Read(
        {"客户帐单_资金清单", "客户号: 1", "---------", "序号 上日结存", "m0 m1 0 0 m4 m5 m6 m7", "1 1 1 1 1 1 1 1 1"});
    EXPECT_TRUE(NothingRead());
}

TEST_F(ClientBillPremiumReader, MakesNoMoneyRecordIfTheTextEndsAboveItsRow) {
    Read({"客户帐单_资金清单", "客户号: 1", "---------", "序号 上日结存"});
    EXPECT_TRUE(NothingRead());
}

TEST_F(ClientBillPremiumReader, NeedsNoDashedRowForMoney) {
    Read({"1 1 1 1 1 1 1 1 1", "** 客户帐单_资金清单 **", "2 2 2 2 2 2 2 2 2", "", "3 3 3 3 3 3 3 3 3",
          "4 4 4 4 4 4 4 4 4", "5 5 5 5 5 5 5 5 5", "6 6 6 6 6 6 6 6 6"});
    EXPECT_EQ(Money().at("QCQY"), "5");
}

TEST_F(ClientBillPremiumReader, TakesCashFlowAsDepositsLessWithdrawals) {
    const struct {
        std::string_view row;
        const char* cashFlow;
    } cases[] = {
        {"1 1 100 30.5 1 1 1 1 1", "69.50"},
        {"1 1 30.5 100 1 1 1 1 1", "-69.50"},
        {"1 1 none 5 1 1 1 1 1", "-5.00"},
        {"1 1 123456789012.25 0 1 1 1 1 1", "123456789012.25"},
        {"1 1 1234567890123.25 0 1 1 1 1 1", "1234567890123.2"},
    };
    for (const auto& row : cases) EXPECT_EQ(ReadMoneyRow(row.row).at("CRJ"), row.cashFlow) << row.row;
}

TEST_F(ClientBillPremiumReader, CopiesTheClosingBalanceWhole) {
    EXPECT_EQ(ReadMoneyRow("1 1 0 0 1 1 123456789012.34 1 1").at("KHQY"), "123456789012.34");
}

TEST_F(ClientBillPremiumReader, KeepsItsEquityForFormat201AndLosesItForFormat2) {
    constexpr std::string_view kRow = "1 1000 0 0 10 0 990 600 38% 380.5 0 0 0 0 0 1001";
    EXPECT_EQ(ReadMoneyRow(kRow, 201).at("KHQY"), "1001");
    EXPECT_EQ(report.MoneyStore.MaxEquity, 1001);
    EXPECT_EQ(ReadMoneyRow(kRow, 2).at("KHQY"), "980.50");
    EXPECT_EQ(report.MoneyStore.MaxEquity, 980.5);
}

TEST_F(ClientBillPremiumReader, FeedsTheDaysMoneyToTheStatistics) {
    ReadMoneyRow("1 1000 70 20 10 0 1040 600 38% 416");
    const DayFigure figure = FigureOf("20240105");
    EXPECT_EQ(figure.Opening, 1000);
    EXPECT_EQ(figure.CashFlow, 50);
    EXPECT_EQ(figure.Closing, 1040);
    ASSERT_EQ(report.TradeStatistics.DayUsages.Days.size(), 1U);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.front()->Margin, 416);
}

TEST_F(ClientBillPremiumReader, FillsATradeFromItsColumns) {
    Read({"客户帐单_成交记录单", "日  期:20240102", "---------", "成交日期 交易所",
          "t0 t1 t2 t3 买t4 t5 t6 t7 t8 t9 t10 t11 t12 t13 t14", "合计"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                         {"MATCH_DATE", "t0"},
                                                                         {"EXCH_NAME", "t1"},
                                                                         {"CONTRACT", "t2"},
                                                                         {"MATCHNO", "t3"},
                                                                         {"BID", "买"},
                                                                         {"MATCH_PRICE", "t5"},
                                                                         {"MATCH_VOL", "t6"},
                                                                         {"TURNOVER", "t7"},
                                                                         {"OFFSET", "t8"},
                                                                         {"POUNDAGE", "t9"},
                                                                         {"OFFSETPL", "t11"},
                                                                         {"ROYALTY", "t12"},
                                                                         {"HEDGE", "t13"}}}));
}

TEST_F(ClientBillPremiumReader, TakesTheHedgeMarkOnlyFromTradesThatHaveIt) {
    Read({"客户帐单_成交记录单", "h", "h", "h", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11 t12",
          "u0 u1 u2 u3 u4 u5 u6 u7 u8 u9 u10 u11 u12 u13", "合计"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "ROYALTY"), (Texts{"t12", "u12"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "HEDGE"), (Texts{"", "u13"}));
}

TEST_F(ClientBillPremiumReader, NormalisesSideAndOpeningMarkOfTrades) {
    Read({"客户帐单_成交记录单", "h", "h", "h",   //
          "1 1 1 1 买 1 1 1 开仓/Open 1 1 1 1",   //
          "1 1 1 1 卖出 1 1 1 平今 1 1 1 1",      //
          "1 1 1 1 买/Buy 1 1 1 (开仓) 1 1 1 1",  //
          "1 1 1 1 Sell 1 1 1 平仓/Of 1 1 1 1",   //
          "1 1 1 买 开仓 1 1 1 开 1 1 1 1", "合计"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BID"), (Texts{"买", "卖", "买", "卖", "卖"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "OFFSET"), (Texts{"开仓", "平今", "开仓", "平仓/Of", "开"}));
}

TEST_F(ClientBillPremiumReader, FillsAClosedPositionFromItsColumns) {
    Read({"客户帐单_平仓盈亏单", "客户号: 1", "---------", "平仓日期 交易所",
          "p0 p1 p2 买p3 卖p4 p5 p6 p7 p8 p9 p10 p11 p12 p13 p14", "合计"});
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                              {"MATCH_DATE", "p0"},
                                                                              {"EXCH_NAME", "p1"},
                                                                              {"CONTRACT", "p2"},
                                                                              {"BID", "买"},
                                                                              {"MATCH_PRICE", "p5"},
                                                                              {"OPEN_PRICE", "p6"},
                                                                              {"MATCH_VOL", "p7"},
                                                                              {"SETTLE_PRICE", "p8"},
                                                                              {"OFFSETPL", "p9"},
                                                                              {"OPEN_DATE", "p12"},
                                                                              {"HEDGE", "p13"}}}));
}

TEST_F(ClientBillPremiumReader, TakesOpenDateAndHedgeMarkOnlyFromClosedRowsThatHaveThem) {
    Read({"客户帐单_平仓盈亏单", "h", "h", "h",  //
          "1 1 1 1 1 1 1 1 1 1 1",               // 11 columns
          "1 1 1 1 1 1 1 1 1 1 1 p11",           //
          "1 1 1 1 1 1 1 1 1 1 1 p11 p12",       //
          "1 1 1 1 1 1 1 1 1 1 1 p11 p12 p13", "合计"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "OPEN_DATE"), (Texts{"", "", "p12", "p12"}));
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "HEDGE"), (Texts{"", "", "", "p13"}));
}

TEST_F(ClientBillPremiumReader, InvertsTheSideOfClosedPositionsAndFoldsThem) {
    Read({"客户帐单_平仓盈亏单", "h", "h", "h", "1 1 cu2405 1 卖 105 100 2 1 99 1",
          "1 1 cu2405 1 买入 103 100 1 1 99 1", "合计"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖"}));
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->LONG_WIN_PL, 10);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->SHORT_LOSE_PL, -3);
}

TEST_F(ClientBillPremiumReader, MakesTwoRecordsOfAnOpenRowBuyFirst) {
    EXPECT_EQ(ReadOpenRow("o0 o1 o2 o3 14 o5 16 o7 o8 o9 o10 o11 o12 o13"),
              (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                    {"CONTRACT", "o2"},
                                    {"BID", "买"},
                                    {"POSITION_VOL", "14"},
                                    {"POSITION_PRICE", "o5"},
                                    {"YSETTLE_PRICE", "o8"},
                                    {"SETTLE_PRICE", "o9"},
                                    {"DSYK", "o10"},
                                    {"DEPOSIT", "o11"},
                                    {"HEDGE", "o12"}},
                                   {{"BILL_DATE", "20240105"},
                                    {"CONTRACT", "o2"},
                                    {"BID", "卖"},
                                    {"POSITION_VOL", "16"},
                                    {"POSITION_PRICE", "o7"},
                                    {"YSETTLE_PRICE", "o8"},
                                    {"SETTLE_PRICE", "o9"},
                                    {"DSYK", "o10"},
                                    {"DEPOSIT", "o11"},
                                    {"HEDGE", "o12"}}}));
}

TEST_F(ClientBillPremiumReader, TakesMarginAndHedgeMarkOnlyFromOpenRowsThatHaveThem) {
    const struct {
        std::string_view row;
        Texts margins;
        Texts hedgeMarks;
    } cases[] = {
        {"1 1 x 1 1 1 1 1 1 1 1", {"", ""}, {"", ""}},
        {"1 1 x 1 1 1 1 1 1 1 1 o11", {"o11", "o11"}, {"", ""}},
        {"1 1 x 1 1 1 1 1 1 1 1 o11 o12", {"o11", "o11"}, {"o12", "o12"}},
    };
    for (const auto& row : cases) {
        ReadOpenRow(row.row);
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "DEPOSIT"), row.margins) << row.row;
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "HEDGE"), row.hedgeMarks) << row.row;
    }
}

TEST_F(ClientBillPremiumReader, TakesOnlySidesWithLots) {
    const struct {
        std::string_view row;
        Texts sides;
    } cases[] = {
        {"1 1 x 1 0 1 0 1 1 1 1", {}},       {"1 1 x 1 1 1 0 1 1 1 1", {"买"}},     {"1 1 x 1 0 1 1 1 1 1 1", {"卖"}},
        {"1 1 x 1 -1 1 -2 1 1 1 1", {}},     {"1 1 x 1 0.9 1 1.9 1 1 1 1", {"卖"}}, {"1 1 x 1 - 1 -- 1 1 1 1", {}},
        {"1 1 x 1 3手 1 0 1 1 1 1", {"买"}}, {"1 1 x 1 2 1 0 1 1 1", {}},
    };
    for (const auto& row : cases) {
        ReadOpenRow(row.row);
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), row.sides) << row.row;
    }
}

TEST_F(ClientBillPremiumReader, FeedsOpenRowsToTheStatistics) {
    Read({"客户帐单_持仓盈亏单", "h", "h", "h", "1 1 cu2405 1 3 1 1 1 1 1 1 300", "1 1 al2406 1 0 1 2 1 1 1 1 50",
          "1 1 ru2405 1 4 1 0 1 1 1 1", "合计"});
    // 3 bought for 300, then 1 sold for 300: 2 of 4 lots for 600 remain
    EXPECT_EQ(PositionsOf("20240105"), (Texts{"cu 买 2 300.000000", "al 卖 2 50.000000", "ru 买 4 0.000000"}));
    EXPECT_EQ(report.OpiDetailStore.Count(), 0);
}

TEST_F(ClientBillPremiumReader, KeepsBarsInEverySheet) {
    Read({"客户帐单_资金清单",
          "h",
          "h",
          "h",
          "| m0 0 0 1 1 m5 1 1 m8|",  //
          "客户帐单_成交记录单",
          "h",
          "h",
          "h",
          "|t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11 t12|",
          "合计",  //
          "客户帐单_平仓盈亏单",
          "h",
          "h",
          "h",
          "|p0 p1 p2 p3 p4 p5 p6 p7 p8 p9 p10|",
          "合计",  //
          "客户帐单_持仓盈亏单",
          "h",
          "h",
          "h",
          "| o0 x o2 3 o4 0 o6 o7 o8 o9 o10|",
          "合计"});
    EXPECT_EQ(Money().at("QCQY"), "m0");
    EXPECT_EQ(Money().at("BZJZY"), "m8|");
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"|t0"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "ROYALTY"), (Texts{"t12|"}));
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "MATCH_DATE"), (Texts{"|p0"}));
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "CONTRACT"), (Texts{"x"}));
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "DEPOSIT"), (Texts{"o10|"}));
}

TEST_F(ClientBillPremiumReader, IsChosenByTheWordForPremium) {
    const std::string text = Statement({"客户帐单_资金清单", "h", "---------", "h", "m0 m1 0 0 1 1 1 1 1"});
    for (const int format : {2, 201}) {
        MakeReport(format);
        ReadStatement(kBillDay, text);
        EXPECT_EQ(Money().at("QCQY"), "m0") << format;
        MakeReport(format);
        ReadStatement(kBillDay, text + Gbk("注：权利金另计\r\n"));
        EXPECT_EQ(Money().at("QCQY"), "m1") << format;
    }
}

}  // namespace
}  // namespace tradebill::client_bill_premium_reader_test
