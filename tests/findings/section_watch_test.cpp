// Rows of one section: those that are lost, those that stand where the layout has heading and totals, and strange
// amounts.
#include "findings/section_watch.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "findings/section_facts.h"
#include "readers/scan_listener.h"
#include "report/records.h"
#include "support/gbk_text.h"

namespace tradebill::section_watch_test {
namespace {

class SectionWatch : public testing::Test {
protected:
    /// Begins with the section whose title and end stand in these lines, from 1; 0 for one that has none.
    void Begin(std::initializer_list<std::string_view> lines, std::size_t title, std::size_t end,
               SectionKind kind = SectionKind::Trades, RecordLife life = RecordLife::Stays) {
        text_ = Statement(lines);
        rows_.clear();
        SplitText(text_, "\r\n", rows_);
        seen_ = {.kind = kind,
                 .titleWord = "title",
                 .terminatorWord = "end",
                 .otherTerminatorWord = {},
                 .needsTerminator = end != 0,
                 .delimiter = " ",
                 .minColumns = 4,
                 .titleRow = Line(title),
                 .terminatorRow = Line(end)};
        lines_.Begin(text_);
        watch_.Begin(seen_, text_, life);
    }
    void Row(std::size_t line, RowFate fate = RowFate::Read) {
        std::vector<std::string_view> columns;
        SplitText(Line(line), " ", columns);
        watch_.OnRow(Line(line), columns, {fate}, lines_);
    }
    /// The lines of the rows that are wrong.
    std::vector<int> Faults() {
        facts_ = watch_.End(lines_);
        std::vector<int> lines;
        for (const RowFault& fault : facts_.faults) lines.push_back(fault.row);
        return lines;
    }
    /// The lines of the totals that are.
    std::vector<int> TotalFaults() {
        static_cast<void>(Faults());
        std::vector<int> lines;
        for (const TotalFault& fault : facts_.totals) lines.push_back(fault.row);
        return lines;
    }
    [[nodiscard]] std::string_view Line(std::size_t line) const {
        return line == 0 ? std::string_view() : Trim(rows_.at(line - 1));
    }

    std::string text_;
    std::vector<std::string_view> rows_;
    SectionSeen seen_{};
    CLineCounter lines_;
    CSectionWatch watch_;
    SectionFacts facts_;
};

using Lines = std::vector<int>;

TEST_F(SectionWatch, ARowWithoutLotsIsLostIfItStatesAmountsAtItsEnd) {
    Begin({"title", "a b c d e f", "rb 0 0 0.00 0.00 T", "m 0 0 5.00 0.00 T", "c 9 0 0.00 0.00 T", "y 0 0 0.00 7 T",
           "end"},
          1, 7);
    for (const std::size_t line : {3U, 4U, 5U, 6U}) Row(line, RowFate::NoLots);
    EXPECT_EQ(Faults(), (Lines{4, 6}));
    EXPECT_EQ(facts_.faults[0].kind, RowFault::Kind::NoRecord);
    EXPECT_EQ(facts_.faults[0].columns, 6);
    EXPECT_EQ(facts_.faults[0].columnsBeyond, 0);
    EXPECT_EQ(facts_.rowsRead, 0);
}

TEST_F(SectionWatch, AShortRowIsLostUnlessItIsAHeadingOrATotal) {
    Begin({"title", "a b c d", "rb 1 2 3", "SHFE x", "小计 1", "rb2405 1", "end"}, 1, 7);
    Row(3);
    for (const std::size_t line : {4U, 5U, 6U}) Row(line, RowFate::TooShort);
    EXPECT_EQ(Faults(), Lines{6});
    EXPECT_EQ(facts_.faults[0].expected, "4 columns");
    EXPECT_EQ(facts_.faults[0].found, "2 columns");
    EXPECT_EQ(facts_.rowsRead, 1);
}

TEST_F(SectionWatch, ARowOfDataThatStandsForTheHeadingIsLost) {
    Begin({"title", "-----", "rb 1 2 3", "m 4 5 6", "end"}, 1, 5);
    Row(4);
    EXPECT_EQ(Faults(), Lines{3});
}

TEST_F(SectionWatch, ARowOfDataThatStandsForTheTotalsIsLost) {
    Begin({"title", "a b c d", "rb 1 2 3", "m 4 5 6", "end"}, 1, 5);
    Row(3);
    EXPECT_EQ(Faults(), Lines{4});
}

TEST_F(SectionWatch, AllRowsOfDataAreLostWhereNoneIsLookedAt) {
    Begin({"title", "a b c d", "rb 1 2 3", "m 4 5 6", "合计 5 7 9", "end"}, 1, 6);
    EXPECT_EQ(Faults(), (Lines{3, 4}));
}

TEST_F(SectionWatch, DataHasThreeNumbersAndTheColumnsThatTheLayoutNeeds) {
    Begin({"title", "90010002 of 20240102 x", "rb 1 2 x", "1 2 3", "rb 1 2 3", "end"}, 1, 6);
    EXPECT_EQ(Faults(), Lines{5});
}

TEST_F(SectionWatch, BarsAtTheEndsOfARowBelongToNoColumnWhereTheLayoutStripsThem) {
    for (const bool strips : {true, false}) {
        Begin({"title", "a b c d", "|rb 1 2 3|", "end"}, 1, 4);
        seen_.stripsBars = strips;
        watch_.Begin(seen_, text_, RecordLife::Stays);
        EXPECT_EQ(Faults(), strips ? Lines{3} : Lines{}) << strips;  // "3|" is no number
    }
}

TEST_F(SectionWatch, NothingIsLostOfMoneyAndOfSectionsThatArentFound) {
    Begin({"title", "rb 1 2 3", "end"}, 1, 3, SectionKind::Money);
    EXPECT_EQ(Faults(), Lines{});
    Begin({"title", "rb 1 2 3", "end"}, 0, 3);
    EXPECT_EQ(Faults(), Lines{});
    EXPECT_FALSE(facts_.IsFound());
    EXPECT_EQ(facts_.titleRow, 0);
}

TEST_F(SectionWatch, ASectionWithoutAnEndGoesToTheEndOfTheText) {
    Begin({"head", "title", "a b c d", "rb 1 2 3", "m 4 5 6", "合计 9 9 9"}, 2, 0);
    Row(4);
    EXPECT_EQ(Faults(), Lines{5});
    EXPECT_TRUE(facts_.IsFound());
    EXPECT_EQ(facts_.titleRow, 2);
    EXPECT_EQ(facts_.totalRow, 0);  // no end to look for totals at
}

TEST_F(SectionWatch, AHeadingThatWasSoundIsntLookedAtAgainUntilAnotherLayoutComes) {
    const auto look = [this] {
        Begin({"title", "a b c d", "rb 1 2 3", "end"}, 1, 4);
        Row(3);
        return Faults();
    };
    EXPECT_EQ(look(), Lines{});
    EXPECT_EQ(look(), Lines{});
    Begin({"title", "rb 4 5 6", "rb 1 2 3", "end"}, 1, 4);
    Row(3);
    EXPECT_EQ(Faults(), Lines{2});
    Begin({"title", "rb 4 5 6", "rb 1 2 3", "end"}, 1, 4);
    Row(3);
    EXPECT_EQ(Faults(), Lines{2}) << "what was wrong once is wrong again";
    watch_.Forget();
    EXPECT_EQ(look(), Lines{});
}

TEST_F(SectionWatch, TotalsStandInTheRowThatEndsTheSectionOrAboveIt) {
    Begin({"title", "a b c d", "rbrb 1 2 3", "mmmm 4 5 6", "合计 5 7 9"}, 1, 5);
    Row(3);
    Row(4);
    EXPECT_EQ(TotalFaults(), Lines{});
    EXPECT_EQ(facts_.totalRow, 5);
    EXPECT_EQ(facts_.rowsRead, 2);
    for (const char* const words : {"共 3条", "合计 5 8 9"}) {
        Begin({"title", "a b c d", "rbrb 1 2 3", "mmmm 4 5 6", "-----", words, "-----", "end"}, 1, 8);
        Row(3);
        Row(4);
        EXPECT_EQ(TotalFaults(), Lines{6}) << words;
        EXPECT_EQ(facts_.totalRow, 6);
    }
    Begin({"title", "a b c d", "rbrb 1 2 3", "mmmm 4 5 6", "-----", "end"}, 1, 6);
    Row(3);
    Row(4);
    EXPECT_EQ(TotalFaults(), Lines{});
    EXPECT_EQ(facts_.totalRow, 0);
}

TEST_F(SectionWatch, SubtotalsCountTheLotsSinceTheLastOne) {
    Begin({"title", "a b c d", "rb 1 2 3", "小计: 2", "rb 1 2 3", "小计: 2", "end"}, 1, 7);
    Row(3);
    watch_.OnLots(2);
    Row(4, RowFate::Subtotal);
    Row(5);
    watch_.OnLots(3);
    Row(6, RowFate::Subtotal);
    EXPECT_EQ(TotalFaults(), Lines{6});
}

TEST_F(SectionWatch, ShapesAreToldByRunsOfRows) {
    Begin({"title", "a b c d", "rb 1 2 3", "rb 1 2", "rb 2 3", "rb 1 2 3 4", "end"}, 1, 7);
    Row(3);
    Row(4);
    Row(5, RowFate::FirstOfPair);
    Row(6);
    static_cast<void>(Faults());
    ASSERT_EQ(facts_.runs.size(), 3U);
    EXPECT_EQ(facts_.runs[0].columnsBeyond, 0);
    EXPECT_EQ(facts_.runs[1].columnsBeyond, -1);
    EXPECT_EQ(facts_.runs[1].rows, (Lines{4, 5}));
    EXPECT_EQ(facts_.runs[1].columns, 3);
    EXPECT_EQ(facts_.runs[2].columnsBeyond, 1);
}

TEST_F(SectionWatch, EachRowOfMoneyHasAHeadingOfItsOwn) {
    Begin({"title", "a b c", "1 2 3", "-----", "d e", "4 5", "end"}, 1, 7, SectionKind::Money);
    Row(3);
    Row(6);
    static_cast<void>(Faults());
    ASSERT_EQ(facts_.runs.size(), 1U);
    EXPECT_EQ(facts_.runs[0].columnsBeyond, 0);
    EXPECT_EQ(facts_.runs[0].rows, (Lines{3, 6}));
}

TEST_F(SectionWatch, ARowAboveTheTitleHasNoHeading) {
    Begin({"1 2 3 4", "title", "end"}, 2, 3);
    Row(1);
    EXPECT_EQ(Faults(), Lines{});
    ASSERT_EQ(facts_.runs.size(), 1U);
    EXPECT_EQ(facts_.runs[0].columnsBeyond, 4);
}

TEST_F(SectionWatch, RowsOfLabelsAreCountedAlone) {
    Begin({"title", "x", "a: 1", "b: 2", "end"}, 1, 5, SectionKind::Money);
    watch_.OnLabelWanted();
    Row(3);
    Row(4);
    static_cast<void>(Faults());
    EXPECT_EQ(facts_.rowsRead, 2);
    EXPECT_TRUE(facts_.isLabelled);
    EXPECT_TRUE(facts_.runs.empty());
}

TEST_F(SectionWatch, ATextInTheRecordOfARowIsTold) {
    MatchRecord sound{};
    CopyField(sound.MATCH_VOL, "1");
    MatchRecord strange{};
    CopyField(strange.MATCH_VOL, "x");
    Begin({"title", "a b c d", "rb 1 2 3", "rb x 2 3", "rb 1 2 3", "end"}, 1, 6);
    const ColumnSeen columns[] = {{.column = 0, .field = "CONTRACT", .isAmount = false},
                                  {.column = 1, .field = "MATCH_VOL", .isAmount = true}};
    watch_.OnColumns(columns);
    watch_.OnRecord(&sound);
    Row(3);
    watch_.OnRecord(&strange);
    Row(4);
    watch_.OnRecord(&sound);
    Row(5);
    EXPECT_EQ(Faults(), Lines{4});
    EXPECT_EQ(facts_.faults[0].kind, RowFault::Kind::NoAmount);
    EXPECT_EQ(facts_.faults[0].expected, "an amount for MATCH_VOL");
    EXPECT_EQ(facts_.faults[0].found, "x");
}

TEST_F(SectionWatch, ATextInTheFirstRowIsToldToo) {
    MatchRecord strange{};
    CopyField(strange.MATCH_VOL, "x");
    for (const bool knowsColumns : {false, true}) {
        Begin({"title", "a b c d", "rb x 2 3", "end"}, 1, 4);
        const ColumnSeen columns[] = {{.column = 1, .field = "MATCH_VOL", .isAmount = true}};
        if (knowsColumns) watch_.OnColumns(columns);
        watch_.OnRecord(&strange);
        Row(3);
        EXPECT_EQ(Faults(), Lines{3}) << knowsColumns;
    }
}

TEST_F(SectionWatch, OfSeveralRecordsOfARowTheFirstStrangeOneIsTold) {
    OpiDetail first{};
    CopyField(first.POSITION_VOL, "x");
    OpiDetail second{};
    CopyField(second.POSITION_VOL, "y");
    Begin({"title", "a b c d", "rb x y 3", "end"}, 1, 4, SectionKind::Open, RecordLife::EndsWithRow);
    watch_.OnRecord(&first);
    watch_.OnRecord(&second);
    first = second = {};  // they end with the row
    Row(3);
    ASSERT_EQ(Faults(), Lines{3});
    EXPECT_EQ(facts_.faults[0].found, "x");
}

TEST_F(SectionWatch, ColumnsFromTheThirtyThirdOnAreLookedAtInTheRecord) {
    std::string row = "rb";
    for (int i = 1; i < 34; ++i) row += " 1";
    MatchRecord strange{};
    CopyField(strange.MATCH_VOL, "x");
    Begin({"title", "a b c d", row, "end"}, 1, 4);
    const ColumnSeen columns[] = {{.column = 31, .field = "TURNOVER", .isAmount = true},
                                  {.column = 32, .field = "MATCH_VOL", .isAmount = true}};
    watch_.OnColumns(columns);
    watch_.OnRecord(&strange);
    Row(3);
    EXPECT_EQ(Faults(), Lines{});  // the row's amounts are numbers as far as they are looked at
    Begin({"title", "a b c d", row, "end"}, 1, 4);
    watch_.OnColumns(std::span(columns).last(1));
    watch_.OnRecord(&strange);
    Row(3);
    EXPECT_EQ(Faults(), Lines{3});
}

TEST_F(SectionWatch, ARecordWithoutARowIsForgottenWithItsSection) {
    MatchRecord strange{};
    CopyField(strange.MATCH_VOL, "x");
    for (const RecordLife life : {RecordLife::Stays, RecordLife::EndsWithRow}) {
        const auto begin = [&] { Begin({"title", "a b c d", "rb 1 2 3", "end"}, 1, 4, SectionKind::Trades, life); };
        begin();
        watch_.OnRecord(&strange);
        begin();
        Row(3);
        EXPECT_EQ(Faults(), Lines{});
    }
}

}  // namespace
}  // namespace tradebill::section_watch_test
