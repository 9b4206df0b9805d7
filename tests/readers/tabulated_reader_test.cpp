#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "readers/reader_fixture.h"
#include "readers/record_sink.h"
#include "report/records.h"

namespace tradebill::tabulated_reader_test {
namespace {

class TabulatedReader : public ReaderFixture {
protected:
    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) {
        Read(ReadTabulatedStatement, "20240105", Statement(lines));
    }

    /// The record of a money section of this row.
    Fields ReadMoneyRow(std::string_view row) {
        MakeReport();
        Read({"制表", "制表时间：20240102", "资金状况", "=========", row, "成交记录", "---------"});
        return Money();
    }

    /// What a summary of this row leaves in OpiSumStore.
    std::vector<Fields> ReadSummaryRow(std::string_view row) {
        MakeReport();
        Read({"制表", "制表时间：20240102", "持仓汇总", "---------", "|品种|", "|(手)|", row, "---------"});
        return FieldsOfAll(report.OpiSumStore.Rows);
    }

    void StoreDay(std::string_view day) {
        auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
        CopyField(record->BILL_DATE, day);
        CopyField(record->KHQY, "1");
        CRecordSink(report, nullptr).Add(std::move(record));
    }
};

TEST_F(TabulatedReader, FillsMoneyFromItsLabels) {
    Read({"制表", "制表时间：20240102", "资金状况", "=========", "期初结存： m1  期末结存： m2",
          "出 入 金： m3  客户权益： m4", "平仓盈亏： m5  保证金占用： m6", "持仓盯市盈亏： m7  可用资金： m8",
          "手 续 费： m9  风 险 度： m10", "成交记录", "---------"});
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

TEST_F(TabulatedReader, FindsLabelsInsideLongerColumns) {
    const struct {
        std::string_view row;
        const char* field;
    } cases[] = {
        {"(客户权益) 5", "KHQY"},        {"总保证金占用： 5", "BZJZY"}, {"今可用资金 5", "KYZJ"},
        {"(期初结存) 5", "QCQY"},        {"(期末结存) 5", "QMJC"},      {"盯市平仓盈亏: 5", "PCYK"},
        {"总持仓盯市盈亏: 5", "CCDSYK"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ReadMoneyRow(row.row), (Fields{{"BILL_DATE", "20240102"}, {row.field, "5"}})) << row.row;
    }
}

TEST_F(TabulatedReader, TakesFeesAndCashFlowFromSpacedLabelsOnly) {
    const struct {
        std::string_view row;
        Fields read;
    } cases[] = {
        {"手 续 费: 12.50", {{"SXF", "12.50"}}},
        {"手续费: 12.50", {}},
        {"手 续费: 12.50", {}},
        {"手续 费: 12.50 13", {}},
        {"手 续 费:", {}},
        {"(手 续 费: 12.50", {{"SXF", "12.50"}}},
        {"手 续- 费: 12.50", {}},
        {"手 费 续: 12.50", {}},
        {"手 续 : 12.50", {{"SXF", "12.50"}}},
        {"出 入 金: -100", {{"CRJ", "-100"}}},
        {"出入金: -100", {}},
        {"出 入金: -100", {}},
        {"出 入 金:", {}},
        {"(支出 入 金: -100", {{"CRJ", "-100"}}},
        {"出 入) 金: -100", {}},
        {"出 入 金: -100 手 续 费: 12.50", {{"CRJ", "-100"}, {"SXF", "12.50"}}},
        {"手 续 费: 1 手 续 费: 2", {{"SXF", "2"}}},
    };
    for (const auto& row : cases) {
        Fields expected = row.read;
        expected["BILL_DATE"] = "20240102";
        EXPECT_EQ(ReadMoneyRow(row.row), expected) << row.row;
    }
}

TEST_F(TabulatedReader, TakesNothingFromTheLabelsOfOtherLayouts) {
    for (const std::string_view row :
         {"上日结存: 5", "当日结存: 5", "权利金收支: 5", "行权手续费: 5", "客户权益", "持仓盈亏: 5"}) {
        EXPECT_EQ(ReadMoneyRow(row), (Fields{{"BILL_DATE", "20240102"}})) << row;
    }
}

TEST_F(TabulatedReader, DoesNotReadMoneyInTheRowAboveTheDashedLine) {
    Read({"制表", "制表时间：20240102", "资金状况", "=========", "客户权益： 5", "期初结存： 6", "---------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"}, {"KHQY", "5"}}));
}

TEST_F(TabulatedReader, FindsATitleInTheRowAboveTheDashedLine) {
    Read({"制表", "制表时间：20240102", "资金状况", "=========", "客户权益： 5",  //
          "平仓明细", "---------", "|平仓日期|", "---------",                     //
          "|p0|p1|p2|p3|p4|p5|p6|p7|p8|p9|p10|", "---------", "|共1条|"});
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.PingDetailStore.Count(), 1);  // although the trades above it are missing
}

TEST_F(TabulatedReader, DoesNotFindATitleFurtherUp) {
    Read({"制表", "制表时间：20240102", "资金状况", "=========", "成交记录", "客户权益： 5", "---------", "|成交日期|",
          "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|", "---------", "|共1条|"});
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MatchStore.Count(), 0);
}

TEST_F(TabulatedReader, FillsATradeFromItsColumns) {
    Read({"制表", "制表时间：20240102", "成交记录", "---------", "|成交日期|", "---------",
          "|t0|t1|t2 x|t3| 买4 | t5 |   t6|t7|t8|t9|t10|t11|t12|", "---------", "|共1条|"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240102"},
                                                                         {"MATCH_DATE", "t0"},
                                                                         {"EXCH_NAME", "t1"},
                                                                         {"CONTRACT", "t2 x"},
                                                                         {"DELIVERY", "t3"},
                                                                         {"BID", "买4"},
                                                                         {"HEDGE", "t5"},
                                                                         {"MATCH_PRICE", "t6"},
                                                                         {"MATCH_VOL", "t7"},
                                                                         {"TURNOVER", "t8"},
                                                                         {"OFFSET", "t9"},
                                                                         {"POUNDAGE", "t10"},
                                                                         {"OFFSETPL", "t11"}}}));
}

TEST_F(TabulatedReader, FillsAClosedPositionFromItsColumns) {
    Read({"制表", "制表时间：20240102", "平仓明细", "---------", "|平仓日期|", "---------",
          "|p0|p1|p2|p3|p4|买5|p6|p7|p8|p9|p10|p11|", "---------", "|共1条|"});
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240102"},
                                                                              {"MATCH_DATE", "p0"},
                                                                              {"EXCH_NAME", "p1"},
                                                                              {"CONTRACT", "p2"},
                                                                              {"DELIVERY", "p3"},
                                                                              {"OPEN_DATE", "p4"},
                                                                              {"BID", "卖"},
                                                                              {"MATCH_VOL", "p6"},
                                                                              {"OPEN_PRICE", "p7"},
                                                                              {"SETTLE_PRICE", "p8"},
                                                                              {"MATCH_PRICE", "p9"},
                                                                              {"OFFSETPL", "p10"}}}));
}

TEST_F(TabulatedReader, TakesTheSideOfAClosedPositionFromItsSixthColumn) {
    Read({"制表", "制表时间：20240102", "平仓明细", "---------", "|平仓日期|", "---------",
          "|p0|p1|p2|p3|买|卖|买|p7|p8|p9|p10|", "|p0|p1|p2|p3|卖|买|卖|p7|p8|p9|p10|", "---------", "|共2条|"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖"}));
}

TEST_F(TabulatedReader, FillsAnOpenPositionFromItsColumns) {
    Read({"制表", "制表时间：20240102", "持仓明细", "---------", "|交易所|", "---------",
          "|o0|o1|o2|o3|o4|买o5|o6|o7|o8|o9|o10|o11|o12|o13|", "---------", "|共1条|"});
    EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240102"},
                                                                             {"EXCH_NAME", "o0"},
                                                                             {"CONTRACT", "o1"},
                                                                             {"DELIVERY", "o2"},
                                                                             {"OPEN_DATE", "o3"},
                                                                             {"HEDGE", "o4"},
                                                                             {"BID", "买o5"},
                                                                             {"POSITION_VOL", "o6"},
                                                                             {"OPEN_PRICE", "o7"},
                                                                             {"YSETTLE_PRICE", "o8"},
                                                                             {"SETTLE_PRICE", "o9"},
                                                                             {"FLOATPL", "o10"},
                                                                             {"DSYK", "o11"},
                                                                             {"DEPOSIT", "o12"}}}));
}

TEST_F(TabulatedReader, FillsBothSidesOfASummaryRowBuyFirst) {
    EXPECT_EQ(ReadSummaryRow("|s0|s1|2s|s3|4s|s5|s6|s7|s8|s9|s10|s11|"),
              (std::vector<Fields>{{{"BILL_DATE", "20240102"},
                                    {"CONTRACT", "s0"},
                                    {"DELIVERY", "s1"},
                                    {"BID", "买"},
                                    {"POSITION_VOL", "2s"},
                                    {"POSITION_PRICE", "s3"},
                                    {"YSETTLE_PRICE", "s6"},
                                    {"SETTLE_PRICE", "s7"},
                                    {"DSYK", "s8"},
                                    {"DEPOSIT", "s9"},
                                    {"HEDGE", "s10"}},
                                   {{"BILL_DATE", "20240102"},
                                    {"CONTRACT", "s0"},
                                    {"DELIVERY", "s1"},
                                    {"BID", "卖"},
                                    {"POSITION_VOL", "4s"},
                                    {"POSITION_PRICE", "s5"},
                                    {"YSETTLE_PRICE", "s6"},
                                    {"SETTLE_PRICE", "s7"},
                                    {"DSYK", "s8"},
                                    {"DEPOSIT", "s9"},
                                    {"HEDGE", "s10"}}}));
}

TEST_F(TabulatedReader, MakesASummaryRecordOfASideWithLotsOnly) {
    const struct {
        std::string_view row;
        Texts sides;
    } cases[] = {
        {"|s0|s1|0|s3|0|s5|s6|s7|s8|s9|s10|", {}},       {"|s0|s1|1|s3|0|s5|s6|s7|s8|s9|s10|", {"买"}},
        {"|s0|s1|0|s3|1|s5|s6|s7|s8|s9|s10|", {"卖"}},   {"|s0|s1|-1|s3|-1|s5|s6|s7|s8|s9|s10|", {}},
        {"|s0|s1|(手)|s3|(手)|s5|s6|s7|s8|s9|s10|", {}},
    };
    for (const auto& row : cases) {
        ReadSummaryRow(row.row);
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), row.sides) << row.row;
        EXPECT_TRUE(report.TradeStatistics.DayUsages.Days.empty());
    }
}

TEST_F(TabulatedReader, TakesRowsWithOrWithoutBarsAtTheirEnds) {
    Read({"制表", "制表时间：20240102", "成交记录", "---------", "|成交日期|", "---------",
          "a0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11", "|||b0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11||",
          "| |c0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11", "---------", "|共3条|"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"a0", "b0", "c0"}));
}

TEST_F(TabulatedReader, ReadsNeitherTheRowOfTheCountNorTheRowAboveIt) {
    Read({"制表", "制表时间：20240102", "成交记录", "---------", "|成交日期|", "---------",
          "|a0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|", "|b0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|",
          "|共2条|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_DATE"), (Texts{"a0"}));
}

TEST_F(TabulatedReader, TakesBillDatesFromTheStatementNotFromTheDay) {
    Read({"制表", "日  期:20240103 制表时间：20240102", "资金状况", "=========", "成交记录", "---------"});
    EXPECT_TRUE(report.MoneyStore.HasDay("20240102"));
    EXPECT_FALSE(report.MoneyStore.HasDay("20240105"));
    MakeReport();
    Read({"制表", "日  期:20240103", "资金状况", "=========", "成交记录", "---------"});
    EXPECT_EQ(Money(), Fields{});
}

TEST_F(TabulatedReader, ChangesNothingForADateThatIsAlreadyStored) {
    StoreDay("20240102");
    Read({"制表", "制表时间：20240102", "资金状况", "=========", "客户权益： 5",  //
          "成交记录", "---------", "|成交日期|", "---------", "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|", "---------",
          "|共1条|"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"}, {"KHQY", "1"}}));
    EXPECT_EQ(report.MatchStore.Count(), 0);
    EXPECT_EQ(report.MoneyStore.MaxEquity, 1);
}

TEST_F(TabulatedReader, ReadsADateThatIsNotStoredWhateverTheDay) {
    StoreDay("20240105");
    Read({"制表", "制表时间：20240102", "资金状况", "=========", "客户权益： 5", "成交记录", "---------"});
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240105", "20240102"}));
}

// The date is compared as it stands, blank included, while the stored key is cut to its field.
TEST_F(TabulatedReader, DoesNotKnowAStoredDateThatABlankFollows) {
    StoreDay("20240102");
    Read({"制表", "制表时间：20240102 单位：元", "资金状况", "=========", "客户权益： 5", "成交记录", "---------"});
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"}, {"KHQY", "5"}}));
}

TEST_F(TabulatedReader, SkipsASecondStatementWithoutADate) {
    for (int i = 0; i < 2; ++i) {
        Read({"制表", "资金状况", "=========", "客户权益： 5", "成交记录", "---------", "|成交日期|", "---------",
              "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|", "---------", "|共1条|"});
    }
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MatchStore.Count(), 1);
}

TEST_F(TabulatedReader, DoesNotFindTradesAboveTheMoneySection) {
    Read({"制表", "制表时间：20240102",  //
          "成交记录", "---------", "|成交日期|", "---------", "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|", "---------",
          "|共1条|",  //
          "资金状况", "=========", "客户权益： 5", "期末", "---------"});
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MatchStore.Count(), 0);
}

TEST_F(TabulatedReader, ReadsTheOtherSectionsWithoutAMoneySection) {
    Read({"制表", "制表时间：20240102",  //
          "成交记录", "---------", "|成交日期|", "---------", "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|", "---------",
          "|共1条|",  //
          "持仓汇总", "---------", "|品种|", "|(手)|", "|s0|s1|2|s3|4|s5|s6|s7|s8|s9|s10|", "---------"});
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MatchStore.Count(), 1);
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
}

TEST_F(TabulatedReader, MakesNoMoneyRecordWithoutATerminatingRow) {
    Read({"制表", "制表时间：20240102", "资金状况", "=========", "客户权益： 5",  //
          "成交记录", "--------", "|成交日期|", "--------", "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|", "--------",
          "|共1条|"});
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MatchStore.Count(), 1);
}

}  // namespace
}  // namespace tradebill::tabulated_reader_test
