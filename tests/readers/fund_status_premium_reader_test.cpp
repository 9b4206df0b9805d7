#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/reader_fixture.h"

namespace tradebill::fund_status_premium_reader_test {
namespace {

class FundStatusPremiumReader : public ReaderFixture {
protected:
    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) {
        Read(ReadFundStatusPremiumStatement, "20240105", Statement(lines));
    }

    /// The record of a money section of this row.
    Fields ReadMoneyRow(std::string_view row) {
        MakeReport();
        Read({"结算单", "资金状况", "----------", row, "风险度: 1%", "----------"});
        return Money();
    }
};

TEST_F(FundStatusPremiumReader, FillsMoneyFromItsLabels) {
    Read({"结算单", "日  期:20240102", "资金状况  币种：人民币", "------------", "上日结存: m1   当日结存: m2",
          "出入金: m3   客户权益: m4", "平仓盈亏: m5   期货保证金占用: m6", "持仓盯市盈亏: m7   总保证金占用: m8",
          "手续费: m9   可用资金: m10", "行权手续费: m11   风险度: m12", "权利金收支: m13   追加保证金: m14",
          "------------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"},
                               {"QCQY", "m1"},
                               {"QMJC", "m2"},
                               {"CRJ", "m3"},
                               {"KHQY", "m4"},
                               {"PCYK", "m5"},
                               {"CCDSYK", "m7"},
                               {"BZJZY", "m8"},
                               {"SXF", "m9"},
                               {"KYZJ", "m10"},
                               {"XQSXF", "m11"},
                               {"QLJSZ", "m13"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(FundStatusPremiumReader, ComparesLabelsExactly) {
    for (const char* const word : {"客户权益", "总保证金占用", "手续费", "可用资金", "出入金", "上日结存", "当日结存",
                                   "平仓盈亏", "持仓盯市盈亏", "行权手续费", "权利金收支"}) {
        const std::string label = word;
        EXPECT_EQ(ReadMoneyRow(label + ": 5").size(), 2U) << word;
        for (const std::string& other : {label + " 5", label + "： 5", label + ":: 5", "今" + label + ": 5",
                                         label + ":5 6", "总" + label + ": 5"}) {
            EXPECT_EQ(ReadMoneyRow(other), (Fields{{"BILL_DATE", "20240105"}})) << other;
        }
    }
}

TEST_F(FundStatusPremiumReader, TakesNothingFromTheLabelsOfOtherLayouts) {
    for (const std::string_view row : {"保证金占用: 5", "盯市平仓盈亏: 5", "期初结存: 5", "期末结存: 5",
                                       "权利金收入: 5", "权利金支出: 5", "出 入 金: 5", "手 续 费: 5"}) {
        EXPECT_EQ(ReadMoneyRow(row), (Fields{{"BILL_DATE", "20240105"}})) << row;
    }
}

TEST_F(FundStatusPremiumReader, FillsATradeFromItsColumns) {
    Read({"结算单", "成交记录", "----------", "成交日期 交易所", "t0 t1 t2 t3 买4 t5 t6 t7 t8 t9 t10 t11 t12", "共 1条",
          "----------"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                         {"MATCH_DATE", "t0"},
                                                                         {"EXCH_NAME", "t1"},
                                                                         {"CONTRACT", "t3"},
                                                                         {"BID", "买"},
                                                                         {"MATCH_PRICE", "t5"},
                                                                         {"MATCH_VOL", "t6"},
                                                                         {"OFFSET", "t7"},
                                                                         {"TURNOVER", "t8"},
                                                                         {"ROYALTY", "t9"},
                                                                         {"POUNDAGE", "t10"},
                                                                         {"HEDGE", "t11"}}}));
}

TEST_F(FundStatusPremiumReader, TakesATradeWithoutAHedgeMark) {
    Read({"结算单", "成交记录", "----------", "成交日期 交易所", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10",
          "u0 t1 t2 t3 t4 t5 t6 t7 t8 t9", "共 2条", "----------"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"t0"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "POUNDAGE"), (Texts{"t10"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "HEDGE"), (Texts{""}));
}

TEST_F(FundStatusPremiumReader, NormalisesTheSideOfATrade) {
    Read({"结算单", "成交记录", "----------", "成交日期 交易所", "t0 t1 t2 t3 买入 t5 t6 t7 t8 t9 t10",
          "t0 t1 买 t3 卖出 买 t6 t7 t8 t9 t10", "t0 t1 t2 t3 ? t5 t6 t7 t8 t9 t10", "共 3条", "----------"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BID"), (Texts{"买", "卖", "卖"}));
}

TEST_F(FundStatusPremiumReader, FillsAClosedPositionFromItsColumns) {
    Read({"结算单", "平仓明细", "----------", "平仓日期 交易所", "p0 p1 p2 p3 买4 p5 p6 p7 p8 p9 p10 p11", "共 1条",
          "----------"});
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                              {"MATCH_DATE", "p0"},
                                                                              {"EXCH_NAME", "p1"},
                                                                              {"CONTRACT", "p3"},
                                                                              {"BID", "卖"},
                                                                              {"MATCH_PRICE", "p5"},
                                                                              {"OPEN_DATE", "p6"},
                                                                              {"OPEN_PRICE", "p7"},
                                                                              {"MATCH_VOL", "p8"},
                                                                              {"SETTLE_PRICE", "p9"},
                                                                              {"OFFSETPL", "p10"}}}));
}

TEST_F(FundStatusPremiumReader, TakesTheSideOfAClosedPositionFromItsFifthColumn) {
    Read({"结算单", "平仓明细", "----------", "平仓日期 交易所", "p0 p1 p2 买 卖 买 p6 p7 p8 p9 p10",
          "p0 p1 p2 p3 买 卖 p6 p7 p8 p9 p10", "共 2条", "----------"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖"}));
}

TEST_F(FundStatusPremiumReader, FillsAnOpenPositionFromItsColumns) {
    Read({"结算单", "持仓明细", "----------", "交易所 品种", "o0 o1 o2 o3 买o4 o5 o6 o7 o8 o9 o10 o11 o12 o13",
          "共 1条", "----------"});
    EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                             {"EXCH_NAME", "o0"},
                                                                             {"CONTRACT", "o2"},
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

TEST_F(FundStatusPremiumReader, KeepsMarkToMarketAndMarginOfAnOpenPositionIfPresent) {
    Read({"结算单", "持仓明细", "----------", "交易所 品种", "a0 o1 o2 o3 o4 o5 o6 o7 o8 o9",
          "b0 o1 o2 o3 o4 o5 o6 o7 o8 o9 o10", "c0 o1 o2 o3 o4 o5 o6 o7 o8 o9 o10 o11",
          "d0 o1 o2 o3 o4 o5 o6 o7 o8 o9 o10 o11 o12", "共 4条", "----------"});
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "EXCH_NAME"), (Texts{"b0", "c0", "d0"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "FLOATPL"), (Texts{"o10", "o10", "o10"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "DSYK"), (Texts{"", "o11", "o11"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "DEPOSIT"), (Texts{"", "", "o12"}));
}

TEST_F(FundStatusPremiumReader, DoesNotReadTheRowAboveTheDashedLine) {
    Read({"结算单", "成交记录", "----------", "成交日期 交易所", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10",
          "u0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10", "----------"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"t0"}));
}

TEST_F(FundStatusPremiumReader, DoesNotEndASectionAtACount) {
    Read({"结算单", "成交记录", "----------", "成交日期 交易所", "t0 共 t2 t3 t4 t5 t6 t7 t8 t9 t10",
          "u0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10", "共 2条", "----------"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"t0", "u0"}));
}

TEST_F(FundStatusPremiumReader, EndsAtTenDashesNotAtNine) {
    Read({"结算单", "资金状况", "---------", "客户权益: 5", "---------", "---------", "客户权益: 6"});
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    Read({"结算单", "资金状况", "---------", "客户权益: 5", "---------", "---------", "客户权益: 6", "----------"});
    EXPECT_EQ(Money().at("KHQY"), "6");
}

TEST_F(FundStatusPremiumReader, LooksForTheEndOfTheMoneySectionFromItsFourthRowOn) {
    Read({"结算单", "资金状况", "----------", "客户权益: 5", "----------", "客户权益: 6", "----------"});
    EXPECT_EQ(Money().at("KHQY"), "6");
    MakeReport();
    Read({"结算单", "资金状况", "----------", "客户权益: 5", "出入金: 7", "----------", "客户权益: 6", "----------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"}, {"KHQY", "5"}, {"CRJ", "7"}}));
}

TEST_F(FundStatusPremiumReader, FindsSectionsInAnyOrder) {
    Read({"持仓明细",  "----------", "交易所",      "o0 o1 o2 o3 o4 o5 o6 o7 o8 o9 o10",
          "共 1条",    "----------",  //
          "平仓明细",  "----------", "平仓日期",    "p0 p1 p2 p3 p4 p5 p6 p7 p8 p9 p10",
          "共 1条",    "----------",  //
          "成交记录",  "----------", "成交日期",    "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10",
          "共 1条",    "----------",  //
          "资金状况",  "----------", "客户权益: 5", "出入金: 7",
          "----------"});
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"t0"}));
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "MATCH_DATE"), (Texts{"p0"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "EXCH_NAME"), (Texts{"o0"}));
}

TEST_F(FundStatusPremiumReader, HasNoSummarySection) {
    Read({"结算单", "持仓汇总", "----------", "交易所 品种", "s0 s1 s2 3 s4 5 s6 s7 s8 s9 s10 s11 s12", "共 1条",
          "----------"});
    EXPECT_TRUE(NothingRead());
}

// The twins on one statement: what the layout without options reads of it, the other reads in its own way.
TEST_F(FundStatusPremiumReader, ReadsTheStatementOfItsTwinDifferently) {
    const std::string text =
        Statement({"结算单",      "日  期:20240102", "资金状况",  "----------",
                   "客户权益: 1", "保证金占用: 2",   "手续费: 3", "----------",  //
                   "成交记录",    "----------",      "成交日期",  "t0 t1 t2 t3 买入 t5 t6 t7 t8 t9 t10 t11",
                   "共 1条",      "----------",  //
                   "持仓汇总",    "----------",      "交易所",    "s0 s1 s2 3 s4 5 s6 s7 s8 s9 s10 s11 s12",
                   "共 1条",      "----------"});
    Read(ReadFundStatusStatement, "20240105", text);
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"}, {"KHQY", "1"}, {"BZJZY", "2"}, {"SXF", "3"}}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CONTRACT"), (Texts{"t2"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "DELIVERY"), (Texts{"t3"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BID"), (Texts{"买入"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "OFFSETPL"), (Texts{"t10"}));
    EXPECT_EQ(report.OpiSumStore.Count(), 2);

    MakeReport();
    Read(ReadFundStatusPremiumStatement, "20240105", text);
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"}, {"KHQY", "1"}, {"SXF", "3"}}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CONTRACT"), (Texts{"t3"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "DELIVERY"), (Texts{""}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BID"), (Texts{"买"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "ROYALTY"), (Texts{"t9"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "OFFSETPL"), (Texts{""}));
    EXPECT_EQ(report.OpiSumStore.Count(), 0);
}

}  // namespace
}  // namespace tradebill::fund_status_premium_reader_test
