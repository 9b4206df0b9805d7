#include "readers/gap_side.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "support/gbk_text.h"

namespace tradebill::gap_side_test {
namespace {

/// A row whose fifth column stands `gap` bytes behind the fourth.
std::string RowWithGap(std::size_t gap) {
    return "20240102 IF2401 CFFEX open" + std::string(gap, ' ') + "9 3500.00 1.50";
}

TEST(GapSide, IsABuyUpToSixBytesAndASellFromSeven) {
    const struct {
        std::size_t gap;
        GapSide side;
    } cases[] = {
        {1, GapSide::Buy},  {5, GapSide::Buy},  {6, GapSide::Buy},
        {7, GapSide::Sell}, {8, GapSide::Sell}, {80, GapSide::Sell},
    };
    for (const auto& row : cases) EXPECT_EQ(ClassifySideByGap(RowWithGap(row.gap), " "), row.side) << row.gap;
}

TEST(GapSide, HasFixedNumbers) {
    EXPECT_EQ(static_cast<int>(GapSide::Undecided), 0);
    EXPECT_EQ(static_cast<int>(GapSide::Buy), 1);
    EXPECT_EQ(static_cast<int>(GapSide::Sell), 2);
}

TEST(GapSide, IsUndecidedBelowSixColumns) {
    for (const std::string_view row : {"", "   ", "c0", "c0 c1 c2 c3", "c0 c1 c2 c3 c4", "c0 c1 c2 c3          c4"}) {
        EXPECT_EQ(ClassifySideByGap(row, " "), GapSide::Undecided) << row;
    }
    EXPECT_EQ(ClassifySideByGap("c0 c1 c2 c3 c4 c5", " "), GapSide::Buy);
    EXPECT_EQ(ClassifySideByGap("c0 c1 c2 c3        c4 c5", " "), GapSide::Sell);
}

TEST(GapSide, IsUndecidedForSubtotalsAndCounts) {
    for (const std::string_view row : {"小计 c1 c2 c3 c4 c5 c6", "合计： c1 c2 c3 c4 c5 c6", "共 c1 c2 c3 c4 c5 c6",
                                       "c0 c1 c2 c3 c4 c5 设计院", "c0 公共 c2 c3          c4 c5 c6"}) {
        EXPECT_EQ(ClassifySideByGap(Gbk(row), " "), GapSide::Undecided) << row;
    }
    EXPECT_EQ(ClassifySideByGap(Gbk("总数 c1 c2 c3 c4 c5 c6"), " "), GapSide::Buy);
}

TEST(GapSide, OnlyLooksAtTheGapBeforeTheFifthColumn) {
    EXPECT_EQ(ClassifySideByGap("c0          c1          c2          c3 c4          c5          c6", " "),
              GapSide::Buy);
    EXPECT_EQ(ClassifySideByGap("c0 c1 c2 c3          c4 c5 c6", " "), GapSide::Sell);
}

// The column before begins as the fourth does and breaks off: the search goes on from there without losing a byte.
TEST(GapSide, MeasuresBehindALongColumnThatNearlyStandsBeforeIt) {
    const std::string tail(64, 'c');
    const std::string fourth = "aab" + tail;
    const std::string before = "aabab" + tail;
    EXPECT_EQ(ClassifySideByGap("c0 c1 " + before + " " + fourth + " 9 5 6", " "), GapSide::Buy);
    EXPECT_EQ(ClassifySideByGap("c0 c1 " + before + " " + fourth + std::string(7, ' ') + "9 5 6", " "), GapSide::Sell);
}

// What the fourth column says may stand in an earlier column already, and the gap is measured from there.
TEST(GapSide, MeasuresFromTheFirstOccurrenceOfTheFourthColumn) {
    EXPECT_EQ(ClassifySideByGap("20240102 IF2401 CFFEX 0            4 3500.00 1.50", " "), GapSide::Buy);
    EXPECT_EQ(ClassifySideByGap("20240102 IF2401 CFFEX 0            9 3500.00 1.50", " "), GapSide::Sell);
    EXPECT_EQ(ClassifySideByGap("20240102 IF2401 speculation IF 9 3500.00 1.50", " "), GapSide::Sell);
    EXPECT_EQ(ClassifySideByGap("a IF123456 c IF 6 f", " "), GapSide::Buy);
    EXPECT_EQ(ClassifySideByGap("a IF1234567 c IF 7 f", " "), GapSide::Buy);
    EXPECT_EQ(ClassifySideByGap("a IF12345678 c IF 8 f", " "), GapSide::Sell);
}

TEST(GapSide, MeasuresToTheFirstOccurrenceOfTheFifthColumnBehindIt) {
    EXPECT_EQ(ClassifySideByGap("20240102 IF2401 CFFEX IF            2 3500.00 1.50", " "), GapSide::Buy);
    EXPECT_EQ(ClassifySideByGap("2 IF9401 CFFEX IF            2 3500.00 1.50", " "), GapSide::Sell);
}

TEST(GapSide, CountsBytes) {
    EXPECT_EQ(ClassifySideByGap(Gbk("a IF沪深铜8 c IF 8 f"), " "), GapSide::Buy);
    EXPECT_EQ(ClassifySideByGap(Gbk("a IF沪深铜铝8 c IF 8 f"), " "), GapSide::Sell);
}

TEST(GapSide, SplitsAtTheDelimiterGiven) {
    const struct {
        std::string_view row;
        std::string_view delimiter;
        GapSide side;
    } cases[] = {
        {"a|b|c|d|9|f", "|", GapSide::Buy},         {"|a|b|c|d|9|f|", "|", GapSide::Buy},
        {"a|b|c|d     |9|f", "|", GapSide::Buy},    {"a|b|c|d      |9|f", "|", GapSide::Sell},
        {"a|b|c|d|9", "|", GapSide::Undecided},     {"a b c d 9 f", "|", GapSide::Undecided},
        {"a x  b  c  d  9  f", "  ", GapSide::Buy}, {"a b c d 9 f", "  ", GapSide::Undecided},
        {"a b c d 9 f", "", GapSide::Undecided},
    };
    for (const auto& row : cases) EXPECT_EQ(ClassifySideByGap(row.row, row.delimiter), row.side) << row.row;
}

TEST(GapSide, FindsALongColumnBehindItsOwnBeginning) {
    const std::string beginning(100, 'a');
    for (const std::size_t gap : {std::size_t{1}, std::size_t{6}, std::size_t{7}}) {
        const std::string row = beginning + " x y " + beginning + "b" + std::string(gap, ' ') + "4 5 6";
        EXPECT_EQ(ClassifySideByGap(row, " "), gap < 7 ? GapSide::Buy : GapSide::Sell) << gap;
    }
    const std::string twice = beginning + "b z y " + beginning + "b      3 5 6";  // the first one counts
    EXPECT_EQ(ClassifySideByGap(twice, " "), GapSide::Sell);
}

}  // namespace
}  // namespace tradebill::gap_side_test
