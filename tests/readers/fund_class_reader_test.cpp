#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/reader_fixture.h"

namespace tradebill::fund_class_reader_test {
namespace {

class FundClassReader : public ReaderFixture {
protected:
    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) {
        Read(ReadFundClassStatement, "20240105", Statement(lines));
    }

    /// The record of a money section of this row.
    Fields ReadMoneyRow(std::string_view row) {
        MakeReport();
        Read({"结算单", "日  期:20240102", "资金类别", "---------", row, "---------"});
        return Money();
    }
};

TEST_F(FundClassReader, FillsMoneyFromItsLabels) {
    Read({"结算单", "日  期:20240102", "资金类别 金额 资金类别 金额", "------------", "上日结存: m1   当日结存: m2",
          "出入金: m3   客户权益: m4", "盯市平仓盈亏: m5   保证金占用: m6", "持仓盯市盈亏: m7   可用资金: m8",
          "权利金收入: 9.5   权利金支出: 2.25", "手续费: m9   风险度: m10", "------------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"},
                               {"QCQY", "m1"},
                               {"QMJC", "m2"},
                               {"CRJ", "m3"},
                               {"KHQY", "m4"},
                               {"PCYK", "m5"},
                               {"BZJZY", "m6"},
                               {"CCDSYK", "m7"},
                               {"KYZJ", "m8"},
                               {"QLJSZ", "7.25"},
                               {"SXF", "m9"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(FundClassReader, FindsLabelsInsideLongerColumns) {
    const struct {
        std::string_view row;
        const char* field;
    } cases[] = {
        {"(客户权益) 5", "KHQY"}, {"总保证金占用： 5", "BZJZY"}, {"交易手续费合计 5", "SXF"},
        {"今可用资金 5", "KYZJ"}, {"净出入金: 5", "CRJ"},        {"(上日结存) 5", "QCQY"},
        {"(当日结存) 5", "QMJC"}, {"总盯市平仓盈亏: 5", "PCYK"}, {"总持仓盯市盈亏: 5", "CCDSYK"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ReadMoneyRow(row.row), (Fields{{"BILL_DATE", "20240102"}, {row.field, "5"}, {"QLJSZ", "0.00"}}))
            << row.row;
    }
}

TEST_F(FundClassReader, TakesNothingFromOtherLabels) {
    const Fields nothing{{"BILL_DATE", "20240102"}, {"QLJSZ", "0.00"}};
    for (const std::string_view row : {"平仓盈亏: 5", "持仓盈亏: 5", "期初结存: 5", "期末结存: 5", "出 入 金: 5",
                                       "权利金收支: 5", "客户权益", "行权费用: 5", "风险度: 5", "权益 5"}) {
        EXPECT_EQ(ReadMoneyRow(row), nothing) << row;
    }
}

TEST_F(FundClassReader, CountsExerciseFeesAsFeesAndKeepsTheLaterOne) {
    EXPECT_EQ(ReadMoneyRow("手续费: 1.00 行权手续费: 2.00").at("SXF"), "2.00");
    EXPECT_EQ(ReadMoneyRow("行权手续费: 2.00 手续费: 1.00").at("SXF"), "1.00");
    EXPECT_FALSE(ReadMoneyRow("行权手续费: 2.00").contains("XQSXF"));
}

TEST_F(FundClassReader, TakesPremiumAsIncomeLessPayment) {
    const struct {
        std::string_view row;
        const char* premium;
    } cases[] = {
        {"权利金收入: 100 权利金支出: 30.5", "69.50"},
        {"权利金支出: 30.5 权利金收入: 100", "69.50"},
        {"权利金收入: 100", "100.00"},
        {"权利金支出: 30.5", "-30.50"},
        {"(权利金收入) 100 [权利金支出] 30.5", "69.50"},
        {"权利金收入: none 权利金支出: 1,000", "-1.00"},
        {"权利金收入: 1 权利金收入: 2", "2.00"},
        {"权利金支出: 30.5 权利金收入:", "-30.50"},
        {"权利金收入: 0.126 权利金支出: 0", "0.13"},
        {"客户权益: 5", "0.00"},
    };
    for (const auto& row : cases) EXPECT_EQ(ReadMoneyRow(row.row).at("QLJSZ"), row.premium) << row.row;
}

TEST_F(FundClassReader, AddsUpPremiumOverTheRowsOfTheSection) {
    Read({"结算单", "资金类别", "---------", "权利金收入: 100", "其他: 1", "权利金支出: 40", "---------"});
    EXPECT_EQ(Money().at("QLJSZ"), "60.00");
}

TEST_F(FundClassReader, TakesNoPremiumFromTheRowBefore) {
    Read({"结算单", "资金类别", "---------", "其他: 1 2 3", "权利金支出: 30.5 权利金收入:", "---------"});
    EXPECT_EQ(Money().at("QLJSZ"), "-30.50");
}

TEST_F(FundClassReader, GivesZeroPremiumToABlockWithoutRows) {
    Read({"结算单", "日  期:20240102", "资金类别", "---------", "---------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"}, {"QLJSZ", "0.00"}}));
}

TEST_F(FundClassReader, FillsATradeFromItsColumns) {
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

TEST_F(FundClassReader, FillsAClosedPositionFromItsColumns) {
    Read({"结算单", "日  期:20240102", "平仓明细", "---------", "平仓日期 交易所",
          "p0 p1 p2 p3 买4 p5 p6 p7 p8 p9 p10 p11 p12 p13", "共 1条"});
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240102"},
                                                                              {"MATCH_DATE", "p0"},
                                                                              {"EXCH_NAME", "p1"},
                                                                              {"CONTRACT", "p2"},
                                                                              {"DELIVERY", "p3"},
                                                                              {"BID", "卖"},
                                                                              {"MATCH_PRICE", "p5"},
                                                                              {"MATCH_VOL", "p6"},
                                                                              {"OPEN_DATE", "p7"},
                                                                              {"OPEN_PRICE", "p8"},
                                                                              {"SETTLE_PRICE", "p9"},
                                                                              {"POUNDAGE", "p10"},
                                                                              {"HEDGE", "p11"},
                                                                              {"OFFSETPL", "p12"}}}));
}

TEST_F(FundClassReader, TakesTheSideOfAClosedPositionFromItsFifthColumn) {
    Read({"结算单", "日  期:20240102", "平仓明细", "---------", "平仓日期 交易所",
          "p0 p1 p2 p3 p4 买5 买6 p7 p8 p9 p10 p11 p12", "p0 p1 p2 p3 买 p5 p6 p7 p8 p9 p10 p11 p12", "共 2条"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖"}));
}

TEST_F(FundClassReader, FillsAnOpenPositionFromItsColumns) {
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

TEST_F(FundClassReader, HasNoSummarySection) {
    Read({"结算单", "日  期:20240102", "持仓汇总", "---------", "交易所 品种",
          "s0 s1 s2 3 s4 5 s6 s7 s8 s9 s10 s11 s12", "共 1条", "---------"});
    EXPECT_EQ(report.OpiSumStore.Count(), 0);
    EXPECT_TRUE(NothingRead());
}

TEST_F(FundClassReader, TakesBillDatesFromTheStatementAloneEvenIfItHasNone) {
    Read({"结算单", "日  期：20240102", "资金类别", "---------", "---------", "成交记录", "---------", "成交日期",
          "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条"});
    EXPECT_EQ(Money(), (Fields{{"QLJSZ", "0.00"}}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{""}));
}

TEST_F(FundClassReader, ReadsSectionsBehindEachOtherOnly) {
    Read({"结算单", "日  期:20240102",                                                             //
          "成交记录", "---------", "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条",  //
          "资金类别", "---------", "客户权益: 5", "---------",                                     //
          "持仓明细", "---------", "交易所", "o0 o1 o2 o3 o4 o5 o6 o7 o8 o9 o10 o11 o12", "共 1条"});
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MatchStore.Count(), 0);
    EXPECT_EQ(report.OpiDetailStore.Count(), 1);
}

TEST_F(FundClassReader, ReadsTheOtherSectionsWithoutAMoneySection) {
    Read({"结算单", "日  期:20240102",                                                             //
          "成交记录", "---------", "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条",  //
          "持仓明细", "---------", "交易所", "o0 o1 o2 o3 o4 o5 o6 o7 o8 o9 o10 o11 o12", "共 1条"});
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MatchStore.Count(), 1);
    EXPECT_EQ(report.OpiDetailStore.Count(), 1);
}

TEST_F(FundClassReader, MakesNoMoneyRecordWithoutATerminatingRow) {
    Read({"结算单", "日  期:20240102", "资金类别", "---------", "客户权益: 5",  //
          "成交记录", "--------", "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条"});
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MatchStore.Count(), 1);
}

TEST_F(FundClassReader, ReadsTheSameWithEitherLineEnd) {
    const std::string text =
        Statement({"结算单", "日  期:20240102", "资金类别", "---------", "客户权益: 5", "---------", "成交记录",
                   "---------", "成交日期", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1条"});
    Read(ReadFundClassStatement, "20240105", text);
    const Fields money = Money();
    const std::vector<Fields> trades = FieldsOfAll(report.MatchStore.Rows);
    ASSERT_EQ(trades.size(), 1U);
    MakeReport();
    std::string unixText = text;
    std::erase(unixText, '\r');
    Read(ReadFundClassStatement, "20240105", unixText);
    EXPECT_EQ(Money(), money);
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), trades);
}

}  // namespace
}  // namespace tradebill::fund_class_reader_test
