#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/foreign_fixture.h"
#include "readers/near_words.h"

namespace tradebill::foreign_tables_test {
namespace {

/// A table of trades or open positions, the titles that end it and one that doesn't.
struct Table {
    std::string_view title;
    std::string_view terminators[2];
    std::string_view other;
};

constexpr Table kTables[] = {
    {"成交记录", {"平仓明细", "持仓明细"}, "资金汇总"},
    {"持仓明细", {"资金汇总", "平仓明细"}, "成交记录"},
};

class ForeignTables : public ForeignFixture {
protected:
    /// Reads a table of these rows alone.
    void ReadRows(std::string_view title, std::initializer_list<std::string_view> rows) {
        const std::string_view terminator = title == "成交记录" ? "持仓明细" : "平仓明细";
        ReadText(Statement({title, "--------", "Date Contract", "--------"}) + Statement(rows) +
                 Statement({"--------", terminator}));
    }
    void ReadTrades(std::initializer_list<std::string_view> rows) { ReadRows("成交记录", rows); }
    void ReadOpen(std::initializer_list<std::string_view> rows) { ReadRows("持仓明细", rows); }

    /// Reads a table of the rows "1" to "8", of 7 columns each, of which one holds a word, and of an ending row.
    void ReadNumberedRows(std::string_view title, int wordRow, std::string_view word, std::string_view end) {
        std::string text = Statement({title});
        for (int row = 1; row <= 8; ++row) {
            const std::string contract = row == wordRow ? std::string(word) : "c1";
            text += Statement({std::to_string(row) + " " + contract + " c2 c3 c4 c5 c6"});
        }
        ReadText(text + Statement({end}));
    }

    /// One field of all trades and open positions.
    Texts BothTextsOf(const std::string& field) {
        Texts texts = TextsOf(report.MatchStore.Rows, field);
        for (const std::string& text : TextsOf(report.OpiDetailStore.Rows, field)) texts.push_back(text);
        return texts;
    }

    /// The first columns of all trades and open positions.
    Texts FirstColumns() {
        Texts texts = TextsOf(report.MatchStore.Rows, "MATCH_DATE");
        for (const std::string& text : TextsOf(report.OpiDetailStore.Rows, "OPEN_DATE")) texts.push_back(text);
        return texts;
    }
};

TEST_F(ForeignTables, FillATradeFromItsColumns) {
    ReadTrades({"HKEX", "t0 t1 t2 t3 4t t5 t6 t7 t8"});
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                         {"MATCH_DATE", "t0"},
                                                                         {"EXCH_NAME", "HKEX"},
                                                                         {"CONTRACT", "t1"},
                                                                         {"BID", "买"},
                                                                         {"MATCH_VOL", "4t"},
                                                                         {"MATCH_PRICE", "t5"},
                                                                         {"POUNDAGE", "t6"},
                                                                         {"CURRENCY", "t7"}}}));
    EXPECT_EQ(report.OpiDetailStore.Count(), 0);
}

TEST_F(ForeignTables, FillAnOpenPositionFromItsColumns) {
    ReadOpen({"HKEX", "o0 o1 o2 o3 4o o5 o6 o7 o8 o9"});
    EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows), (std::vector<Fields>{{{"BILL_DATE", "20240105"},
                                                                             {"EXCH_NAME", "HKEX"},
                                                                             {"OPEN_DATE", "o0"},
                                                                             {"CONTRACT", "o1"},
                                                                             {"BID", "买"},
                                                                             {"POSITION_VOL", "4o"},
                                                                             {"OPEN_PRICE", "o5"},
                                                                             {"SETTLE_PRICE", "o6"},
                                                                             {"FLOATPL", "o7"},
                                                                             {"CURRENCY", "o8"}}}));
    EXPECT_EQ(report.MatchStore.Count(), 0);
}

TEST_F(ForeignTables, TellBuysFromSellsByTheGapBeforeTheLots) {
    for (const Table& table : kTables) {
        ReadRows(table.title,
                 {"20240102 HSI2401 open ref 9 3500 1", "20240102 HSI2401 open ref      9 3500 1",
                  "20240102 HSI2401 open ref       9 3500 1", "20240102 HSI2401 open ref                9 3500 1",
                  "20240102          HSI2401          open          ref 9          3500          1"});
        EXPECT_EQ(BothTextsOf("BID"), (Texts{"买", "买", "卖", "卖", "买"})) << table.title;
    }
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "POSITION_VOL"), (Texts{"9", "9", "9", "9", "9"}));
    ReadTrades({"20240102 HSI2401 open ref 8 3500 1", "20240102 HSI2401 open ref       9 3500 1"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_VOL"), (Texts{"8", "9"}));
}

// The fourth column's "0" stands in the date already, and the lots are looked for from there.
TEST_F(ForeignTables, MeasureTheGapFromTheFirstOccurrenceOfItsText) {
    for (const Table& table : kTables) {
        ReadRows(table.title, {"20240102 HSI2401 open 0            4 3500 1", "20240102 HSI2401 open 0 9 3500 1"});
        EXPECT_EQ(BothTextsOf("BID"), (Texts{"买", "卖"})) << table.title;
    }
}

TEST_F(ForeignTables, LeaveFieldsOfMissingColumnsEmpty) {
    ReadTrades({"t0 t1 t2 t3 t4 t5 t6", "t0 t1 t2 t3 t4 t5 t6 t7"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "POUNDAGE"), (Texts{"t6", "t6"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CURRENCY"), (Texts{"", "t7"}));
    ReadOpen({"o0 o1 o2 o3 o4 o5 o6", "o0 o1 o2 o3 o4 o5 o6 o7", "o0 o1 o2 o3 o4 o5 o6 o7 o8"});
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "SETTLE_PRICE"), (Texts{"o6", "o6", "o6"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "FLOATPL"), (Texts{"", "o7", "o7"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "CURRENCY"), (Texts{"", "", "o8"}));
}

TEST_F(ForeignTables, PassOverRowsOfTwoToSixColumns) {
    for (const Table& table : kTables) {
        ReadRows(table.title, {"HKEX", "a b", "a b c", "a b c d", "a b c d e", "a b c d e f", "r b c d e f g"});
        EXPECT_EQ(FirstColumns(), (Texts{"r"})) << table.title;
        EXPECT_EQ(BothTextsOf("EXCH_NAME"), (Texts{"HKEX"})) << table.title;
    }
}

TEST_F(ForeignTables, NameTheExchangeOfRowsBelowAHeading) {
    for (const Table& table : kTables) {
        ReadRows(table.title, {"r1 b c d e f g", "HKEX", "r2 b c d e f g", "r3 b c d e f g", "CME", "SGX",
                               "r4 b c d e f g", "香港交易所", "r5 b c d e f g"});
        EXPECT_EQ(FirstColumns(), (Texts{"r1", "r2", "r3", "r4", "r5"})) << table.title;
        EXPECT_EQ(BothTextsOf("EXCH_NAME"), (Texts{"", "HKEX", "HKEX", "SGX", "香港交易所"})) << table.title;
    }
}

TEST_F(ForeignTables, CutHeadingsToTheirField) {
    const std::string heading = std::string(79, 'x') + "yz";
    for (const Table& table : kTables) {
        ReadRows(table.title, {heading, "r1 b c d e f g"});
        EXPECT_EQ(BothTextsOf("EXCH_NAME"), (Texts{heading.substr(0, 80)})) << table.title;
    }
}

TEST_F(ForeignTables, BeginWithoutAHeading) {
    Read({"成交记录", "--", "--", "NOTREAD", "t1 b c d e f g", "HKEX", "t2 b c d e f g", "--",  //
          "持仓明细", "--", "--", "NOTREAD", "o1 b c d e f g", "CME", "o2 b c d e f g", "--", "资金汇总"});
    EXPECT_EQ(FirstColumns(), (Texts{"t1", "t2", "o1", "o2"}));
    EXPECT_EQ(BothTextsOf("EXCH_NAME"), (Texts{"", "HKEX", "", "CME"}));
    ReadNextDay({"成交记录", "--", "--", "--", "t3 b c d e f g", "--", "持仓明细"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "EXCH_NAME"), (Texts{"", "HKEX", ""}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{"20240105", "20240105", "20240108"}));
}

TEST_F(ForeignTables, PassOverSubtotalsAndCounts) {
    for (const Table& table : kTables) {
        ReadRows(table.title, {"HKEX", "小计 b c d e f g", "合计：", "共", "共 b c d e f g", "r1 b c d e f 设计",
                               "r2 公共 c d e f g", "统计局", "r3 b c d e f g"});
        EXPECT_EQ(FirstColumns(), (Texts{"r3"})) << table.title;
        EXPECT_EQ(BothTextsOf("EXCH_NAME"), (Texts{"HKEX"})) << table.title;
    }
}

TEST_F(ForeignTables, KeepThousandsMarks) {
    ReadTrades({"a b c d 1,000 3,500.00 1,234.50 U,SD"});
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_VOL"), (Texts{"1,000"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCH_PRICE"), (Texts{"3,500.00"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "POUNDAGE"), (Texts{"1,234.50"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CURRENCY"), (Texts{"U,SD"}));
    ReadOpen({"a b c d 1,000 3,500.00 3,501.00 -1,200.00 U,SD"});
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "POSITION_VOL"), (Texts{"1,000"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "FLOATPL"), (Texts{"-1,200.00"}));
}

TEST_F(ForeignTables, BeginInTheFourthRowAndEndAboveTheRowOverTheNextTitle) {
    for (const Table& table : kTables) {
        for (const std::string_view terminator : table.terminators) {
            ReadNumberedRows(table.title, 0, "", terminator);
            EXPECT_EQ(FirstColumns(), (Texts{"4", "5", "6", "7"})) << table.title << terminator;
        }
    }
}

TEST_F(ForeignTables, LookForTheirEndFromTheSecondRowBelowTheTitle) {
    for (const Table& table : kTables) {
        for (const std::string_view terminator : table.terminators) {
            ReadNumberedRows(table.title, 1, terminator, terminator);
            EXPECT_EQ(FirstColumns(), (Texts{"4", "5", "6", "7"})) << table.title << terminator;
            ReadNumberedRows(table.title, 2, terminator, terminator);
            EXPECT_EQ(FirstColumns(), Texts{}) << table.title << terminator;
        }
    }
}

TEST_F(ForeignTables, EndAtTheFirstOfTwoWords) {
    for (const Table& table : kTables) {
        const auto [word, otherWord] = table.terminators;
        ReadNumberedRows(table.title, 7, word, otherWord);
        EXPECT_EQ(FirstColumns(), (Texts{"4", "5"})) << table.title;
        ReadNumberedRows(table.title, 7, otherWord, word);
        EXPECT_EQ(FirstColumns(), (Texts{"4", "5"})) << table.title;
    }
}

TEST_F(ForeignTables, EndAtTheTitlesOfTheirNeighboursOnly) {
    for (const Table& table : kTables) {
        ReadNumberedRows(table.title, 6, table.other, table.terminators[0]);
        EXPECT_EQ(FirstColumns(), (Texts{"4", "5", "6", "7"})) << table.title;
        ReadNumberedRows(table.title, 0, "", table.other);
        EXPECT_EQ(FirstColumns(), Texts{}) << table.title;
    }
}

TEST_F(ForeignTables, NeedTheirWholeTitlesAndEnds) {
    for (const Table& table : kTables) {
        for (const std::string& title : NearWords(table.title)) {
            ReadNumberedRows(title, 0, "", table.terminators[0]);
            EXPECT_EQ(FirstColumns(), Texts{}) << title;
        }
        for (const std::string_view terminator : table.terminators) {
            for (const std::string& word : NearWords(terminator)) {
                ReadNumberedRows(table.title, 0, "", word);
                EXPECT_EQ(FirstColumns(), Texts{}) << table.title << word;
            }
        }
        ReadNumberedRows("(" + std::string(table.title) + ")", 0, "", "(" + std::string(table.terminators[1]) + ")");
        EXPECT_EQ(FirstColumns(), (Texts{"4", "5", "6", "7"})) << table.title;
    }
}

TEST_F(ForeignTables, CountNoBlankRows) {
    for (const Table& table : kTables) {
        Read({table.title, "", "--", "  ", "--", "--", "\t", "r1 b c d e f g", "", "--", "", table.terminators[0]});
        EXPECT_EQ(FirstColumns(), (Texts{"r1"})) << table.title;
    }
}

TEST_F(ForeignTables, AreLookedForFromTheTopEach) {
    Read({"持仓明细", "--",       "--",         "--",         "o0 b c d e f g", "--",  //
          "平仓明细", "--",       "--",         "--",         "a A c d 1 5 6",  "b B c d 1 5 6",
          "--",                                                //
          "资金汇总", "Base USD", "当前权益 1", "追加保证金",  //
          "成交记录", "--",       "--",         "--",         "t0 b c d e f g", "--",
          "持仓明细"});
    EXPECT_EQ(FirstColumns(), (Texts{"t0", "o0"}));
    EXPECT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(ForeignTables, AreReadWithoutMoney) {
    Read({"资金汇总",
          "no names here",
          "当前权益 1",
          "追加保证金",  //
          "成交记录",
          "--",
          "--",
          "--",
          "t0 b c d e f g",
          "--",  //
          "平仓明细",
          "--",
          "--",
          "--",
          "a A c d 1 5 6",
          "b B c d 1 5 6",
          "--",  //
          "持仓明细",
          "--",
          "--",
          "--",
          "o0 b c d e f g",
          "--",
          "资金汇总"});
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty());
    EXPECT_EQ(FirstColumns(), (Texts{"t0", "o0"}));
    EXPECT_EQ(report.ReportDocument.Offsets.size(), 1U);
}

TEST_F(ForeignTables, DoNotNeedOneAnother) {
    Read({"成交记录", "--", "--", "--", "t0 b c d e f g", "--",  //
          "持仓明细", "--", "--", "--", "o0 b c d e f g", "--", "资金汇总"});
    EXPECT_EQ(FirstColumns(), (Texts{"t0", "o0"}));
    Read({"持仓明细", "--", "--", "--", "o0 b c d e f g", "--", "资金汇总"});
    EXPECT_EQ(FirstColumns(), (Texts{"o0"}));
}

TEST_F(ForeignTables, FeedOpenPositionsToTheStatistics) {
    ReadOpen({"20240102 HSI2401 open ref        3 3500 3501 5 HKD"});
    const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find("20240105");
    ASSERT_NE(usage, nullptr);
    ASSERT_EQ(usage->Positions.size(), 1U);
    EXPECT_EQ(usage->Positions[0]->Product, "HSI");
    EXPECT_EQ(usage->Positions[0]->Side, Gbk("卖"));
    EXPECT_EQ(usage->Positions[0]->Lots, 3);
}

TEST_F(ForeignTables, HaveNoSummary) {
    Read({"持仓汇总", "--", "--", "--", "s0 s1 2 s3 4 s5 s6 s7 s8 s9 s10", "--", "---------", "共"});
    EXPECT_TRUE(NothingRead());
}

}  // namespace
}  // namespace tradebill::foreign_tables_test
