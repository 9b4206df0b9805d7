#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/near_words.h"
#include "readers/reader_fixture.h"

namespace tradebill::bilingual_tables_test {
namespace {

/// One of the tables, and the first row below its title in which the word of the count is seen.
struct Table {
    std::string_view title;
    int terminatorOffset;
};

constexpr Table kTables[] = {{"成交记录", 3}, {"平仓明细", 3}, {"持仓明细", 2}};

/// Both readers read their tables alike.
class BilingualTables : public ReaderFixture, public testing::WithParamInterface<Reader*> {
protected:
    using ReaderFixture::Read;
    void Read(std::initializer_list<std::string_view> lines) { ReadText(Statement(lines)); }

    void ReadText(const std::string& text) {
        MakeReport(3);
        Read(GetParam(), "20240105", text);
    }

    /// Reads a table of these rows alone.
    void ReadRows(std::string_view title, std::initializer_list<std::string_view> rows) {
        std::string text = Statement({title, "----------", "|head 2|", "|head 3|", "----------"});
        ReadText(text + Statement(rows) + Statement({"----------", "|共 1条|"}));
    }

    /// Reads a table of the rows "1" to "8", of 11 columns each, of which one holds the word of the count.
    void ReadNumberedRows(std::string_view title, int countRow) {
        std::string text = Statement({title});
        for (int row = 1; row <= 8; ++row) {
            const std::string last = row == countRow ? "共" : "x10";
            text += Statement({"|" + std::to_string(row) + "|x1|x2|x3|x4|x5|x6|x7|x8|x9|" + last + "|"});
        }
        ReadText(text + Statement({"|共 8条|"}));
    }

    /// The first columns of all rows that made records.
    Texts FirstColumns() {
        Texts texts = TextsOf(report.MatchStore.Rows, "MATCH_DATE");
        for (const std::string& text : TextsOf(report.PingDetailStore.Rows, "MATCH_DATE")) texts.push_back(text);
        for (const std::string& text : TextsOf(report.OpiDetailStore.Rows, "EXCH_NAME")) texts.push_back(text);
        return texts;
    }
};

INSTANTIATE_TEST_SUITE_P(Readers, BilingualTables, testing::Values(ReadBilingualStatement, ReadBilingualStatementNew),
                         [](const auto& reader) { return reader.index == 0 ? "Old" : "New"; });

TEST_P(BilingualTables, FillATradeFromItsColumns) {
    ReadRows("成交记录", {"|t0|t1|t2|t3 x|  买4 |t5|t6|t7|t8|t9|t10|t11|t12|123456789|t14|"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                         {"MATCH_DATE", "t0"},
                                                                         {"EXCH_NAME", "t1"},
                                                                         {"CONTRACT", "t3 x"},
                                                                         {"BID", "买"},
                                                                         {"HEDGE", "t5"},
                                                                         {"MATCH_PRICE", "t6"},
                                                                         {"MATCH_VOL", "t7"},
                                                                         {"TURNOVER", "t8"},
                                                                         {"OFFSET", "t9"},
                                                                         {"POUNDAGE", "t10"},
                                                                         {"OFFSETPL", "t11"},
                                                                         {"ROYALTY", "t12"},
                                                                         {"MATCHNO", "12345678"}}}));
    EXPECT_EQ(report.PingDetailStore.Count() + report.OpiDetailStore.Count(), 0);
}

TEST_P(BilingualTables, FillAClosedPositionFromItsColumns) {
    ReadRows("平仓明细", {"|p0|p1|p2|p3|p4|买5|p6|p7|p8|p9|p10|p11|p12|p13|"});
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                              {"MATCH_DATE", "p0"},
                                                                              {"EXCH_NAME", "p1"},
                                                                              {"CONTRACT", "p3"},
                                                                              {"OPEN_DATE", "p4"},
                                                                              {"BID", "卖"},
                                                                              {"MATCH_VOL", "p6"},
                                                                              {"OPEN_PRICE", "p7"},
                                                                              {"SETTLE_PRICE", "p8"},
                                                                              {"MATCH_PRICE", "p9"},
                                                                              {"OFFSETPL", "p10"}}}));
    EXPECT_EQ(report.MatchStore.Count() + report.OpiDetailStore.Count(), 0);
}

TEST_P(BilingualTables, FillAnOpenPositionFromItsColumns) {
    ReadRows("持仓明细", {"|o0|o1|o2|o3|o4|买o5|o6|o7|o8|o9|o10|o11|o12|o13|"});
    EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                             {"EXCH_NAME", "o0"},
                                                                             {"CONTRACT", "o2"},
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
    EXPECT_EQ(report.MatchStore.Count() + report.PingDetailStore.Count(), 0);
}

TEST_P(BilingualTables, LeaveFieldsOfMissingTradeColumnsEmpty) {
    ReadRows("成交记录",
             {"|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|", "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|",
              "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|t12|", "|t0|t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11|t12|t13|"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "POUNDAGE"), (Texts{"t10", "t10", "t10", "t10"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "OFFSETPL"), (Texts{"", "t11", "t11", "t11"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "ROYALTY"), (Texts{"", "", "t12", "t12"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCHNO"), (Texts{"", "", "", "t13"}));
}

TEST_P(BilingualTables, LeaveFieldsOfMissingPositionColumnsEmpty) {
    ReadRows("持仓明细", {"|o0|o1|o2|o3|o4|o5|o6|o7|o8|o9|o10|", "|o0|o1|o2|o3|o4|o5|o6|o7|o8|o9|o10|o11|",
                          "|o0|o1|o2|o3|o4|o5|o6|o7|o8|o9|o10|o11|o12|"});
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "FLOATPL"), (Texts{"o10", "o10", "o10"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "DSYK"), (Texts{"", "o11", "o11"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "DEPOSIT"), (Texts{"", "", "o12"}));
}

TEST_P(BilingualTables, SkipRowsOfFewerThanElevenColumns) {
    for (const Table& table : kTables) {
        ReadRows(table.title, {"|a|x1|x2|x3|x4|x5|x6|x7|x8|x9|", "|b|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|",
                               "|c|x1|x2|x3|  |x5|x6|x7|x8|x9|x10|", "----------"});
        EXPECT_EQ(FirstColumns(), (Texts{"b"})) << table.title;
    }
}

TEST_P(BilingualTables, TakeRowsWithOrWithoutBarsAtTheirEnds) {
    for (const Table& table : kTables) {
        ReadRows(table.title, {"a|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10", "|||b|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10||",
                               "| |c|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10"});
        EXPECT_EQ(FirstColumns(), (Texts{"a", "b", "c"})) << table.title;
    }
}

TEST_P(BilingualTables, BeginInTheFifthRowAndEndAboveTheRowOverTheCount) {
    for (const Table& table : kTables) {
        ReadNumberedRows(table.title, 0);
        EXPECT_EQ(FirstColumns(), (Texts{"5", "6", "7"})) << table.title;
    }
}

TEST_P(BilingualTables, LookForTheirCountSomeRowsBelowTheTitle) {
    for (const Table& table : kTables) {
        ReadNumberedRows(table.title, table.terminatorOffset - 1);
        EXPECT_EQ(FirstColumns(), (Texts{"5", "6", "7"})) << table.title;
        ReadNumberedRows(table.title, table.terminatorOffset);
        EXPECT_EQ(FirstColumns(), Texts{}) << table.title;
    }
}

TEST_P(BilingualTables, EndAtADataRowThatHoldsTheCountsWord) {
    for (const Table& table : kTables) {
        ReadNumberedRows(table.title, 7);
        EXPECT_EQ(FirstColumns(), (Texts{"5"})) << table.title;
    }
}

TEST_P(BilingualTables, CountNoBlankRows) {
    for (const Table& table : kTables) {
        Read({table.title, "", "----------", "|head 2|", "  ", "|head 3|", "----------", "\t",
              "|a|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|", "", "----------", "", "共 1条"});
        EXPECT_EQ(FirstColumns(), (Texts{"a"})) << table.title;
    }
}

TEST_P(BilingualTables, AreAbsentWithoutACount) {
    for (const Table& table : kTables) {
        Read({table.title, "----------", "|head 2|", "|head 3|", "----------", "|a|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|",
              "----------", "合计"});
        EXPECT_TRUE(NothingRead()) << table.title;
    }
}

TEST_P(BilingualTables, NeedTheirWholeTitles) {
    for (const Table& table : kTables) {
        for (const std::string& title : NearWords(table.title)) {
            ReadRows(title, {"|a|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|"});
            EXPECT_EQ(FirstColumns(), Texts{}) << title;
        }
        ReadRows("(" + std::string(table.title) + ")", {"|a|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|"});
        EXPECT_EQ(FirstColumns(), (Texts{"a"})) << table.title;
    }
}

TEST_P(BilingualTables, TellSidesOfTradesByTheWordOfABuy) {
    ReadRows("成交记录", {"|t0|t1|t2|t3|买|卖|t6|t7|t8|t9|t10|", "|t0|t1|t2|t3|卖|买|t6|t7|t8|t9|t10|",
                          "|t0|t1|t2|买|Buy|t5|t6|t7|t8|t9|t10|", "|t0|t1|t2|t3|B 买入|t5|t6|t7|t8|t9|t10|"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BID"), (Texts{"买", "卖", "卖", "买"}));
}

TEST_P(BilingualTables, InvertSidesOfClosedPositions) {
    ReadRows("平仓明细", {"|p0|p1|p2|p3|卖|买|卖|p7|p8|p9|p10|", "|p0|p1|p2|p3|买|卖|买|p7|p8|p9|p10|",
                          "|p0|p1|p2|p3|买|Buy|p6|p7|p8|p9|p10|", "|p0|p1|p2|p3|p4|B 买入|p6|p7|p8|p9|p10|"});
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"卖", "买", "买", "卖"}));
}

TEST_P(BilingualTables, CopySidesOfOpenPositions) {
    ReadRows("持仓明细", {"|o0|o1|o2|o3|o4|卖|o6|o7|o8|o9|o10|", "|o0|o1|o2|o3|o4|Sell|o6|o7|o8|o9|o10|",
                          "|o0|o1|o2|o3|o4|买 Buy long|o6|o7|o8|o9|o10|"});
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "BID"), (Texts{"卖", "Sell", "买 Buy l"}));
}

TEST_P(BilingualTables, FoldClosedPositionsIntoTheTally) {
    ReadRows("平仓明细", {"|20240105|SHFE|x|cu2402C|20240104|买|2|100|95|90|-999|"});
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_STREQ(report.ReportDocument.Offsets[0]->CONTRACT, "cu2402C");
    EXPECT_STREQ(report.ReportDocument.Offsets[0]->DELIVERY, "");
    EXPECT_EQ(report.ReportDocument.Offsets[0]->SHORT_WIN_VOL, 2);
    EXPECT_EQ(report.ReportDocument.Offsets[0]->SHORT_WIN_PL, 20);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 20);
}

TEST_P(BilingualTables, FeedOpenPositionsToTheStatistics) {
    ReadRows("持仓明细", {"|SHFE|x|cu2402C|20240104|投|买|3|100|95|90|5|6|700|"});
    const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find("20240105");
    ASSERT_NE(usage, nullptr);
    ASSERT_EQ(usage->Positions.size(), 1U);
    EXPECT_EQ(usage->Positions[0]->Product, "cu");
    EXPECT_EQ(usage->Positions[0]->Side, Gbk("买"));
    EXPECT_EQ(usage->Positions[0]->Lots, 3);
    EXPECT_EQ(usage->Positions[0]->Margin, 700);
}

TEST_P(BilingualTables, MayComeInAnyOrder) {
    Read({"持仓明细",   "--",     "head",
          "head",       "--",     "|o|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|",
          "--",         "共 1条",  //
          "平仓明细",   "--",     "head",
          "head",       "--",     "|p|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|",
          "--",         "共 1条",  //
          "资金状况",   "--",     "客户权益 Client Equity：：  5  客户权益 Client Equity:  5",
          "权利金支出",  //
          "成交记录",   "--",     "head",
          "head",       "--",     "|t|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|",
          "--",         "共 1条"});
    EXPECT_EQ(FirstColumns(), (Texts{"t", "p", "o"}));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"5"}));
}

TEST_P(BilingualTables, DoNotNeedOneAnotherNorMoney) {
    Read({"成交记录", "--", "head", "head", "--", "|t|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|", "--", "共 1条",  //
          "持仓明细", "--", "head", "head", "--", "|o|x1|x2|x3|x4|x5|x6|x7|x8|x9|x10|", "--", "共 1条"});
    EXPECT_EQ(FirstColumns(), (Texts{"t", "o"}));
    EXPECT_EQ(report.MoneyStore.Count(), 0);
}

TEST_P(BilingualTables, HaveNoSummary) {
    Read(
        {"持仓汇总", "--", "head", "head", "--", "|s0|s1|2|s3|4|s5|s6|s7|s8|s9|s10|s11|", "--", "共 1条", "---------"});
    EXPECT_TRUE(NothingRead());
}

}  // namespace
}  // namespace tradebill::bilingual_tables_test
