#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>
#include <vector>

#include "readers/reader_fixture.h"

namespace tradebill::fund_status_reader_test {
namespace {

class FundStatusReader : public ReaderFixture {
protected:
    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) {
        Read(ReadFundStatusStatement, "20240105", Statement(lines));
    }

    /// The record of a money section of this row.
    Fields ReadMoneyRow(std::string_view row) {
        MakeReport();
        Read({"结算单", "日  期:20240102", "资金状况", "---------", row, "---------"});
        return Money();
    }

    /// What a summary of this row leaves in OpiSumStore.
    std::vector<Fields> ReadSummaryRow(std::string_view row) {
        MakeReport();
        Read({"结算单", "日  期:20240102", "持仓汇总", "---------", "交易所 品种", row, "共 1条"});
        return FieldsOfAll(report.OpiSumStore.Rows);
    }
};

TEST_F(FundStatusReader, FillsMoneyFromItsLabels) {
    Read({"结算单", "日  期:20240102", "资金状况", "------------", "上日结存: m1   当日结存: m2",
          "出入金: m3   客户权益: m4", "平仓盈亏: m5   保证金占用: m6", "持仓盯市盈亏: m7   可用资金: m8",
          "手续费: m9   风险度: m10", "交割手续费: m11   追加保证金: m12", "------------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"},
                               {"QCQY", "m1"},
                               {"QMJC", "m2"},
                               {"CRJ", "m3"},
                               {"KHQY", "m4"},
                               {"PCYK", "m5"},
                               {"BZJZY", "m6"},
                               {"CCDSYK", "m7"},
                               {"KYZJ", "m8"},
                               {"SXF", "m9"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(FundStatusReader, FindsLabelsInsideLongerColumns) {
    const struct {
        std::string_view row;
        const char* field;
    } cases[] = {
        {"(客户权益) 5", "KHQY"}, {"总保证金占用： 5", "BZJZY"}, {"今可用资金 5", "KYZJ"},
        {"净出入金: 5", "CRJ"},   {"(上日结存) 5", "QCQY"},      {"(当日结存) 5", "QMJC"},
        {"平仓盈亏 5", "PCYK"},   {"盯市平仓盈亏: 5", "PCYK"},   {"总持仓盯市盈亏: 5", "CCDSYK"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ReadMoneyRow(row.row), (Fields{{"BILL_DATE", "20240102"}, {row.field, "5"}})) << row.row;
    }
}

TEST_F(FundStatusReader, TakesNothingFromOtherLabels) {
    const Fields nothing{{"BILL_DATE", "20240102"}};
    for (const std::string_view row :
         {"持仓盈亏: 5", "期初结存: 5", "期末结存: 5", "出 入 金: 5", "权利金收入: 5", "客户权益", "风险度: 5"}) {
        EXPECT_EQ(ReadMoneyRow(row), nothing) << row;
    }
}

TEST_F(FundStatusReader, TakesFeesFromTheExactLabelOnly) {
    EXPECT_EQ(ReadMoneyRow("手续费: 1.00 行权手续费: 2.00").at("SXF"), "1.00");
    for (const std::string_view row :
         {"行权手续费: 2.00", "手续费 2.00", "手续费： 2.00", "手续费:: 2.00", "手续费:2.00 3"}) {
        EXPECT_FALSE(ReadMoneyRow(row).contains("SXF")) << row;
    }
}

TEST_F(FundStatusReader, LetsALaterRowOverwriteAnEarlierOne) {
    Read(
        {"结算单", "日  期:20240102", "资金状况", "---------", "客户权益: 1", "客户权益: 2", "客户权益:", "---------"});
    EXPECT_EQ(Money().at("KHQY"), "2");
}

TEST_F(FundStatusReader, HandsOverAMoneyRecordWithoutAnyLabel) {
    Read({"结算单", "日  期:20240102", "资金状况", "---------", "---------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"}}));
    EXPECT_TRUE(report.MoneyStore.HasDay("20240102"));
    EXPECT_NE(report.TradeStatistics.DayFigures.Find("20240102"), nullptr);
}

TEST_F(FundStatusReader, FillsATradeFromItsColumns) {
    Read({"结算单", "日  期:20240102", "成交记录", "---------", "成交日期 交易所",
          "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11 t12", "共 1条"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240102"},
                                                                         {"MATCH_DATE", "t0"},
                                                                         {"EXCH_NAME", "t1"},
                                                                         {"CONTRACT", "t2"},
                                                                         {"DELIVERY", "t3"},
                                                                         {"BID", "t4"},
                                                                         {"OFFSET", "t5"},
                                                                         {"MATCH_PRICE", "t6"},
                                                                         {"MATCH_VOL", "t7"},
                                                                         {"TURNOVER", "t8"},
                                                                         {"POUNDAGE", "t9"},
                                                                         {"OFFSETPL", "t10"},
                                                                         {"HEDGE", "t11"}}}));
}

TEST_F(FundStatusReader, PassesOverATradeWithABlankCell) {
    Read({"结算单", "日  期:20240102", "成交记录", "---------", "成交日期 交易所",
          "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9      t11", "u0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 2条"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"u0"}));
}

TEST_F(FundStatusReader, DoesNotReadTheRowOfTheCountEvenIfItIsWide) {
    Read({"结算单", "日  期:20240102", "成交记录", "---------", "成交日期 交易所",
          "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共1条 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"t0"}));
}

TEST_F(FundStatusReader, FillsAClosedPositionFromItsColumns) {
    Read({"结算单", "日  期:20240102", "平仓明细", "---------", "平仓日期 交易所",
          "p0 p1 p2 p3 卖4 买5 p6 p7 p8 p9 p10 p11 p12", "共 1条"});
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240102"},
                                                                              {"MATCH_DATE", "p0"},
                                                                              {"EXCH_NAME", "p1"},
                                                                              {"CONTRACT", "p2"},
                                                                              {"DELIVERY", "p3"},
                                                                              {"BID", "卖"},
                                                                              {"MATCH_PRICE", "p6"},
                                                                              {"OPEN_DATE", "p7"},
                                                                              {"OPEN_PRICE", "p8"},
                                                                              {"MATCH_VOL", "p9"},
                                                                              {"SETTLE_PRICE", "p10"},
                                                                              {"OFFSETPL", "p11"}}}));
}

TEST_F(FundStatusReader, TakesTheSideOfAClosedPositionFromItsSixthColumn) {
    Read({"结算单", "日  期:20240102", "平仓明细", "---------", "平仓日期 交易所",
          "p0 p1 p2 p3 买 卖 买 p7 p8 p9 p10 p11", "p0 p1 p2 p3 卖 买 卖 p7 p8 p9 p10 p11", "共 2条"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖"}));
}

TEST_F(FundStatusReader, FillsAnOpenPositionFromItsColumns) {
    Read({"结算单", "日  期:20240102", "持仓明细", "---------", "交易所 品种",
          "o0 o1 o2 o3 买o4 o5 o6 o7 o8 o9 o10 o11 o12 o13", "共 1条"});
    EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240102"},
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

TEST_F(FundStatusReader, FillsBothSidesOfASummaryRowBuyFirst) {
    EXPECT_EQ(ReadSummaryRow("s0 s1 s2 3s s4 5s s6 s7 s8 s9 s10 s11 s12 s13"),
              (std::vector<Fields>{{{"BILL_DATE", "20240102"},
                                    {"EXCH_NAME", "s0"},
                                    {"CONTRACT", "s1"},
                                    {"DELIVERY", "s2"},
                                    {"BID", "买"},
                                    {"BID_POSITION_VOL", "3s"},
                                    {"POSITION_PRICE", "s4"},
                                    {"YSETTLE_PRICE", "s7"},
                                    {"SETTLE_PRICE", "s8"},
                                    {"DSYK", "s10"},
                                    {"DEPOSIT", "s11"},
                                    {"HEDGE", "s12"}},
                                   {{"BILL_DATE", "20240102"},
                                    {"EXCH_NAME", "s0"},
                                    {"CONTRACT", "s1"},
                                    {"DELIVERY", "s2"},
                                    {"BID", "卖"},
                                    {"ASK_POSITION_VOL", "5s"},
                                    {"POSITION_PRICE", "s6"},
                                    {"YSETTLE_PRICE", "s7"},
                                    {"SETTLE_PRICE", "s8"},
                                    {"DSYK", "s10"},
                                    {"DEPOSIT", "s11"},
                                    {"HEDGE", "s12"}}}));
}

TEST_F(FundStatusReader, MakesASummaryRecordOfASideWithLotsOnly) {
    const struct {
        std::string_view row;
        Texts sides;
    } cases[] = {
        {"s0 s1 s2 0 s4 0 s6 s7 s8 s9 s10 s11 s12", {}},
        {"s0 s1 s2 1 s4 0 s6 s7 s8 s9 s10 s11 s12", {"买"}},
        {"s0 s1 s2 0 s4 1 s6 s7 s8 s9 s10 s11 s12", {"卖"}},
        {"s0 s1 s2 -1 s4 -1 s6 s7 s8 s9 s10 s11 s12", {}},
        {"s0 s1 s2 0.9 s4 1.9 s6 s7 s8 s9 s10 s11 s12", {"卖"}},
        {"s0 s1 s2 lots s4 - s6 s7 s8 s9 s10 s11 s12", {}},
        {"s0 s1 s2 +2 s4 99999999999 s6 s7 s8 s9 s10 s11 s12", {"买", "卖"}},
    };
    for (const auto& row : cases) {
        ReadSummaryRow(row.row);
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), row.sides) << row.row;
    }
}

TEST_F(FundStatusReader, FeedsOpenPositionsButNoSummaryToTheStatistics) {
    ReadSummaryRow("s0 cu s2 3 s4 5 s6 s7 s8 s9 s10 s11 s12");
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
    EXPECT_TRUE(report.TradeStatistics.DayUsages.Days.empty());
    Read({"结算单", "日  期:20240102", "持仓明细", "---------", "交易所 品种",
          "o0 cu o2 o3 买 o5 6 o7 o8 o9 o10 o11 12", "共 1条"});
    ASSERT_NE(report.TradeStatistics.DayUsages.Find("20240102"), nullptr);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240102")->Positions.front()->Lots, 6);
}

TEST_F(FundStatusReader, MakesRecordsWithoutABillDateIfTheStatementHasNone) {
    Read({"结算单", "日 期:20240102", "资金状况", "---------", "客户权益: 5", "---------", "成交记录", "---------",
          "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条"});
    EXPECT_EQ(Money(), (Fields{{"KHQY", "5"}}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{""}));
}

TEST_F(FundStatusReader, CutsADateBehindABlankByItsLastDigit) {
    Read({"结算单", "日  期: 20240102", "资金状况", "---------", "---------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", " 2024010"}}));
}

TEST_F(FundStatusReader, KeepsTheDotsOfADate) {
    Read({"结算单", "日  期:2024.1.2", "资金状况", "---------", "---------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "2024.1.2"}}));
}

TEST_F(FundStatusReader, DoesNotFindTradesAboveTheMoneySection) {
    Read({"结算单", "日  期:20240102",                                                             //
          "成交记录", "---------", "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条",  //
          "资金状况", "---------", "客户权益: 5", "---------"});
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MatchStore.Count(), 0);
}

TEST_F(FundStatusReader, ReadsTheOtherSectionsWithoutAMoneySection) {
    Read({"结算单", "日  期:20240102",                                                             //
          "成交记录", "---------", "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条",  //
          "持仓汇总", "---------", "交易所", "s0 s1 s2 3 s4 5 s6 s7 s8 s9 s10 s11 s12", "共 1条"});
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MatchStore.Count(), 1);
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
}

TEST_F(FundStatusReader, MakesNoMoneyRecordWithoutATerminatingRow) {
    Read({"结算单", "日  期:20240102", "资金状况", "---------", "客户权益: 5",  //
          "成交记录", "--------", "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条"});
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_TRUE(report.TradeStatistics.DayFigures.Days.empty());
    EXPECT_EQ(report.MatchStore.Count(), 1);
}

TEST_F(FundStatusReader, DoesNotCountBlankLines) {
    Read({"结算单",
          "",
          "日  期:20240102",
          "",
          "资金状况",
          "",
          "---------",
          "",
          "客户权益: 5",
          "",
          "---------",
          "",
          "成交记录",
          "",
          "---------",
          " ",
          "成交日期 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11",
          "\t",
          "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11",
          "",
          "共 1条"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"}, {"KHQY", "5"}}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"t0"}));
}

TEST_F(FundStatusReader, EndsASectionAtADataRowThatHoldsTheTerminatingWord) {
    Read({"结算单", "日  期:20240102", "成交记录", "---------", "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11",
          "u0 公共 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "v0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 3条"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"t0"}));
}

}  // namespace
}  // namespace tradebill::fund_status_reader_test
