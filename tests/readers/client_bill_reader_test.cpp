#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "readers/bill_sheet_fixture.h"

namespace tradebill::client_bill_reader_test {
namespace {

class ClientBillReader : public BillSheetFixture {
protected:
    ClientBillReader() { MakeReport(201); }

    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) {
        Read(ReadClientBillStatement, kBillDay, Statement(lines));
    }

    /// The record of a money sheet of this row.
    Fields ReadMoneyRow(std::string_view row, int format = 201) {
        MakeReport(format);
        Read({"客户帐单_资金清单", "客户号: 1", "---------", "上日结存 入金", row});
        return Money();
    }

    /// What an open sheet of this row leaves in OpiSumStore.
    std::vector<Fields> ReadOpenRow(std::string_view row) {
        MakeReport(201);
        Read({"客户帐单_持仓盈亏单", "客户号: 1", "---------", "交易所 合约", row, "合计"});
        return FieldsOfAll(report.OpiSumStore.Rows);
    }
};

TEST_F(ClientBillReader, FillsMoneyFromOneRowOfColumns) {
    Read({"客户帐单_资金清单", "日  期:20240102", "---------", "上日结存 入金", "m0 7.5 2.25 m3 m4 m5 m6 m7 m8"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"},
                               {"QCQY", "m0"},
                               {"CRJ", "5.25"},
                               {"SXF", "m3"},
                               {"QMJC", "m5"},
                               {"KHQY", "m5"},
                               {"KYZJ", "m6"},
                               {"BZJZY", "m8"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(ClientBillReader, TakesMoneyFromTheFourthRowBelowTheTitleAlone) {
    Read({"1 1 1 1 1 1 1 1 1", "** 客户帐单_资金清单 **", "2 2 2 2 2 2 2 2 2", "", "3 3 3 3 3 3 3 3 3 ---------",
          "4 4 4 4 4 4 4 4 4", "5 5 5 5 5 5 5 5 5", "6 6 6 6 6 6 6 6 6"});
    EXPECT_EQ(Money().at("QCQY"), "5");
}

TEST_F(ClientBillReader, MakesNoMoneyRecordOfARowOfEightColumns) {
    Read({"客户帐单_资金清单", "客户号: 1", "---------", "上日结存 入金", "m0 7.5 2.25 m3 m4 m5 m6 m7",
          "1 1 1 1 1 1 1 1 1"});
    EXPECT_TRUE(NothingRead());
}

TEST_F(ClientBillReader, MakesNoMoneyRecordIfTheTextEndsAboveItsRow) {
    Read({"客户帐单_资金清单", "客户号: 1", "---------", "上日结存 入金"});
    EXPECT_TRUE(NothingRead());
}

TEST_F(ClientBillReader, NeedsADashedRowFromTheSecondRowBelowTheMoneyTitle) {
    const struct {
        BillLines rows;
        int records;
    } cases[] = {
        {{"客户帐单_资金清单 ---------", "---------", "h", "h", "1 1 1 1 1 1 1 1 1", "--------"}, 0},
        {{"客户帐单_资金清单", "h", "--------", "h", "1 1 1 1 1 1 1 1 1"}, 0},
        {{"客户帐单_资金清单", "h", "---------", "h", "1 1 1 1 1 1 1 1 1"}, 1},
        {{"客户帐单_资金清单", "h", "h", "h", "1 1 1 1 1 1 1 1 1", "h", "-----------"}, 1},
    };
    for (const auto& sheet : cases) {
        MakeReport(201);
        Read(ReadClientBillStatement, kBillDay, BillOf(sheet.rows));
        EXPECT_EQ(report.MoneyStore.Count(), sheet.records) << sheet.rows[2];
    }
}

TEST_F(ClientBillReader, TakesCashFlowAsDepositsLessWithdrawals) {
    const struct {
        std::string_view row;
        const char* cashFlow;
    } cases[] = {
        {"1 100 30.5 1 1 1 1 1 1", "69.50"},
        {"1 30.5 100 1 1 1 1 1 1", "-69.50"},
        {"1 0.00 0.00 1 1 1 1 1 1", "0.00"},
        {"1 none 5 1 1 1 1 1 1", "-5.00"},
        {"1 1,000 0 1 1 1 1 1 1", "1.00"},
        {"1 0.126 0 1 1 1 1 1 1", "0.13"},
        {"1 12345678901.25 0 1 1 1 1 1 1", "12345678901.25"},
        {"1 123456789012.25 0 1 1 1 1 1 1", "123456789012.2"},
        {"1 0 12345678901.25 1 1 1 1 1 1", "-12345678901.2"},
    };
    for (const auto& row : cases) EXPECT_EQ(ReadMoneyRow(row.row).at("CRJ"), row.cashFlow) << row.row;
}

TEST_F(ClientBillReader, CutsTheCopyOfTheClosingBalanceToFourteenCharacters) {
    const struct {
        std::string_view row;
        const char* closing;
        const char* equity;
    } cases[] = {
        {"1 0 0 1 1 12345678901.34 1 1 1", "12345678901.34", "12345678901.34"},
        {"1 0 0 1 1 123456789012.34 1 1 1", "123456789012.34", "123456789012.3"},
        {"1 0 0 1 1 1234567890123.45 1 1 1", "1234567890123.4", "1234567890123."},
    };
    for (const auto& row : cases) {
        const Fields money = ReadMoneyRow(row.row);
        EXPECT_EQ(money.at("QMJC"), row.closing);
        EXPECT_EQ(money.at("KHQY"), row.equity);
    }
}

TEST_F(ClientBillReader, KeepsItsEquityForFormat201AndLosesItForFormat2) {
    constexpr std::string_view kRow = "1000 0 0 10 0 990 600 38% 380.5";
    EXPECT_EQ(ReadMoneyRow(kRow, 201).at("KHQY"), "990");
    EXPECT_EQ(report.MoneyStore.MaxEquity, 990);
    EXPECT_EQ(ReadMoneyRow(kRow, 2).at("KHQY"), "980.50");
    EXPECT_EQ(report.MoneyStore.MaxEquity, 980.5);
}

TEST_F(ClientBillReader, KeepsBarsOfTheMoneyRow) {
    const Fields money = ReadMoneyRow("|m0 0 0 m3 m4 m5 m6 m7 m8|");
    EXPECT_EQ(money.at("QCQY"), "|m0");
    EXPECT_EQ(money.at("BZJZY"), "m8|");
}

TEST_F(ClientBillReader, FeedsTheDaysMoneyToTheStatistics) {
    ReadMoneyRow("1000 70 20 10 0 1040 600 38% 416");
    const DayFigure figure = FigureOf("20240105");
    EXPECT_EQ(figure.Opening, 1000);
    EXPECT_EQ(figure.CashFlow, 50);
    EXPECT_EQ(figure.Closing, 1040);
    EXPECT_EQ(figure.ClosedPL, 0);
    EXPECT_EQ(figure.PositionPL, 0);
    ASSERT_EQ(report.TradeStatistics.DayUsages.Days.size(), 1U);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.front()->Margin, 416);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.front()->Risk, 0.4);
}

TEST_F(ClientBillReader, FillsATradeFromItsColumns) {
    Read({"客户帐单_成交记录单", "日  期:20240102", "---------", "成交日期 交易所",
          "t0 t1 t2 t3 买t4 t5 t6 t7 开仓t8 t9 t10 t11 t12", "合计"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                         {"MATCH_DATE", "t0"},
                                                                         {"EXCH_NAME", "t1"},
                                                                         {"CONTRACT", "t2"},
                                                                         {"BID", "买t4"},
                                                                         {"MATCH_PRICE", "t5"},
                                                                         {"MATCH_VOL", "t6"},
                                                                         {"TURNOVER", "t7"},
                                                                         {"OFFSET", "开仓t8"},
                                                                         {"POUNDAGE", "t9"},
                                                                         {"OFFSETPL", "t10"},
                                                                         {"HEDGE", "t11"}}}));
}

TEST_F(ClientBillReader, FillsAClosedPositionFromItsColumns) {
    Read({"客户帐单_平仓盈亏单", "客户号: 1", "---------", "平仓日期 交易所",
          "p0 p1 p2 买p3 卖p4 p5 p6 p7 p8 p9 p10 p11 p12 p13", "合计"});
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
                                                                              {"OPEN_DATE", "p11"}}}));
}

TEST_F(ClientBillReader, InvertsTheSideOfClosedPositionsAndFoldsThem) {
    Read({"客户帐单_平仓盈亏单", "客户号: 1", "---------", "平仓日期 交易所",
          "1 1 cu2405 1 卖 105 100 2 1 99 1 1",    // a long position, closed 5 points higher
          "1 1 cu2405 1 买入 103 100 1 1 99 1 1",  // a short one, closed 3 points higher
          "1 1 cu2405 1 x 100 100 1 1 99 1 1", "合计"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖", "买"}));
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->LONG_WIN_PL, 10);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->LONG_COUNT, 2);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->SHORT_LOSE_PL, -3);
}

TEST_F(ClientBillReader, DropsBarsAroundRowsOfTradesAndClosedPositions) {
    Read({"客户帐单_成交记录单", "h", "h", "h", "|t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11|",
          "|| u0 u1 u2 u3 u4 u5 u6 u7 u8 u9 u10 u11 ||", "| v0 v1 v2 v3 v4 v5 v6 v7 v8 v9 v10 |", "合计",
          "客户帐单_平仓盈亏单", "h", "h", "h", "| p0 p1 p2 p3 p4 p5 p6 p7 p8 p9 p10 p11 |",
          "|q0 q1 q2 q3 q4 q5 q6 q7 q8 q9 q10 q11||", "|| r0 r1 r2 r3 r4 r5 r6 r7 r8 r9 r10 ||", "合计"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"t0", "u0"}));  // a bar makes no twelfth column
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "HEDGE"), (Texts{"t11", "u11"}));
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "MATCH_DATE"), (Texts{"p0", "q0"}));
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "OPEN_DATE"), (Texts{"p11", "q11"}));
}

TEST_F(ClientBillReader, KeepsBarsOfOpenRows) {
    EXPECT_EQ(ReadOpenRow("| x 5 7.5 0 o5 o6 o7 o8 o9 h|"), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                                  {"CONTRACT", "x"},
                                                                                  {"BID", "买"},
                                                                                  {"POSITION_VOL", "5"},
                                                                                  {"POSITION_PRICE", "7.5"},
                                                                                  {"YSETTLE_PRICE", "o6"},
                                                                                  {"SETTLE_PRICE", "o7"},
                                                                                  {"DSYK", "o8"},
                                                                                  {"DEPOSIT", "o9"},
                                                                                  {"HEDGE", "h|"}}}));
}

TEST_F(ClientBillReader, MakesTwoRecordsOfAnOpenRowBuyFirst) {
    EXPECT_EQ(ReadOpenRow("o0 o1 12 o3 14 o5 o6 o7 o8 o9 o10 o11"), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                                          {"CONTRACT", "o1"},
                                                                                          {"BID", "买"},
                                                                                          {"POSITION_VOL", "12"},
                                                                                          {"POSITION_PRICE", "o3"},
                                                                                          {"YSETTLE_PRICE", "o6"},
                                                                                          {"SETTLE_PRICE", "o7"},
                                                                                          {"DSYK", "o8"},
                                                                                          {"DEPOSIT", "o9"},
                                                                                          {"HEDGE", "o10"}},
                                                                                         {{"BILL_DATE", "20240105"},
                                                                                          {"CONTRACT", "o1"},
                                                                                          {"BID", "卖"},
                                                                                          {"POSITION_VOL", "14"},
                                                                                          {"POSITION_PRICE", "o5"},
                                                                                          {"YSETTLE_PRICE", "o6"},
                                                                                          {"SETTLE_PRICE", "o7"},
                                                                                          {"DSYK", "o8"},
                                                                                          {"DEPOSIT", "o9"},
                                                                                          {"HEDGE", "o10"}}}));
}

TEST_F(ClientBillReader, TakesOnlySidesWithLots) {
    const struct {
        std::string_view row;
        Texts sides;
    } cases[] = {
        {"1 x 0 1 0 1 1 1 1 1 1", {}},         {"1 x 1 1 0 1 1 1 1 1 1", {"买"}},     {"1 x 0 1 1 1 1 1 1 1 1", {"卖"}},
        {"1 x -1 1 -2 1 1 1 1 1 1", {}},       {"1 x 0.9 1 1.9 1 1 1 1 1 1", {"卖"}}, {"1 x - 1 -- 1 1 1 1 1 1", {}},
        {"1 x 3手 1 手3 1 1 1 1 1 1", {"买"}}, {"1 x 2 1 0 1 1 1 1 1", {}},
    };
    for (const auto& row : cases) {
        ReadOpenRow(row.row);
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), row.sides) << row.row;
    }
}

TEST_F(ClientBillReader, FeedsOpenRowsToTheStatistics) {
    Read({"客户帐单_持仓盈亏单", "h", "h", "h", "1 cu2405 3 1 1 1 1 1 1 300 1", "1 al2406 0 1 2 1 1 1 1 50 1", "合计"});
    // 3 bought for 300, then 1 sold for 300: 2 of 4 lots for 600 remain
    EXPECT_EQ(PositionsOf("20240105"), (Texts{"cu 买 2 300.000000", "al 卖 2 50.000000"}));
    EXPECT_EQ(report.OpiDetailStore.Count(), 0);
}

TEST_F(ClientBillReader, ReadsTheSameWithEitherLineEnd) {
    const std::string text =
        Statement({"客户帐单_资金清单", "h", "---------", "h", "1 2 0 4 5 6 7 8 9", "客户帐单_持仓盈亏单", "h", "h",
                   "h", "1 x 3 1 0 1 1 1 1 1 1", "合计 1 2 5.5", "客户帐单_平仓盈亏单", "h", "h", "h", "合计 1 7.5"});
    const auto read = [this](const std::string& statement) {
        MakeReport(201);
        Read(ReadClientBillStatement, kBillDay, statement);
        return std::pair(Money(), FieldsOfAll(report.OpiSumStore.Rows));
    };
    const auto withCarriageReturns = read(text);
    EXPECT_EQ(withCarriageReturns.first.at("PCYK"), "7.5");
    std::string unixText = text;
    std::erase(unixText, '\r');
    EXPECT_EQ(read(unixText), withCarriageReturns);
}

}  // namespace
}  // namespace tradebill::client_bill_reader_test
