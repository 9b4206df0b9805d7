#include "graph/value_marks.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace tradebill::value_marks_test {
namespace {

TEST(PatternText, IsTheLowerHalfOfTheNumber) {
    EXPECT_EQ(PatternText(0.0), "0");
    EXPECT_EQ(PatternText(-0.0), "0");
    EXPECT_EQ(PatternText(10.0), "0");
    EXPECT_EQ(PatternText(20.0), "0");
    EXPECT_EQ(PatternText(0.1), "-1717986918");   // 3FB99999 9999999A
    EXPECT_EQ(PatternText(-0.1), "-1717986918");  // the sign is in the upper half
    EXPECT_EQ(PatternText(0.3), "858993459");     // 3FD33333 33333333
    EXPECT_EQ(PatternText(0.7), "1717986918");    // 3FE66666 66666666
    EXPECT_EQ(PatternText(1.0 / 3), "1431655765");
    EXPECT_EQ(PatternText(std::numeric_limits<double>::denorm_min()), "1");
    EXPECT_EQ(PatternText(std::numeric_limits<double>::infinity()), "0");
    EXPECT_EQ(PatternText(std::numeric_limits<double>::max()), "-1");
}

using Offsets = std::vector<std::int32_t>;
using Texts = std::vector<std::string>;

class ValueMarks : public testing::Test {
protected:
    ValueMarks() : graph_(1) {
        graph_.graphAlignment = 0;
        graph_.tickSpace = 0.1;
    }
    [[nodiscard]] Offsets OffsetsOn(const ValueAxis& axis) const {
        Offsets offsets;
        for (const ValueMark& mark : MarksOf(graph_, ArrangementOf(graph_), axis)) offsets.push_back(mark.offset);
        return offsets;
    }
    [[nodiscard]] Texts TextsOn(const ValueAxis& axis) const {
        Texts texts;
        for (const ValueMark& mark : MarksOf(graph_, ArrangementOf(graph_), axis)) texts.push_back(mark.text);
        return texts;
    }

    CGraph graph_;
};

TEST_F(ValueMarks, ShareOutTheAxisInFractions) {
    graph_.numTicks = 4;
    EXPECT_EQ(OffsetsOn({745, 0, false}), (Offsets{0, 186, 372, 558, 745}));
}

TEST_F(ValueMarks, StandForLowestTickAndMultiples) {
    graph_.numTicks = 3;
    EXPECT_EQ(TextsOn({100, 0, false}), (Texts{"0", "-1717986918", "-1717986918", "858993460"}));
    graph_.minTick = 0.1;  // also at the axis
    EXPECT_EQ(TextsOn({100, 0, false}).front(), "-1717986918");
}

TEST_F(ValueMarks, RunBothWaysFromACentre) {
    graph_.graphQuadType = 2;
    graph_.numTicks = 4;
    EXPECT_EQ(OffsetsOn({745, 0, true}), (Offsets{-372, -186, 0, 186, 372}));
    graph_.numTicks = 5;  // of an odd count one is left over
    EXPECT_EQ(OffsetsOn({745, 0, true}), (Offsets{-298, -149, 0, 149, 298}));
}

TEST_F(ValueMarks, CallTheOriginNothingInTheOtherQuadrants) {
    graph_.numTicks = 2;
    graph_.minTick = 0.1;
    for (const std::int32_t quadrant : {2, 3, 4}) {
        graph_.graphQuadType = quadrant;
        EXPECT_EQ(TextsOn({100, 0, true})[1], "0");
        EXPECT_EQ(TextsOn({100, 0, false})[0], "0");
    }
}

TEST_F(ValueMarks, AreWholePixelsApartForScatteredDots) {
    graph_.graphType = kScatterGraph;
    graph_.numTicks = 4;
    EXPECT_EQ(OffsetsOn({745, 20, false}), (Offsets{0, 181, 362, 543, 724}));
}

// Two ticks each way, of twice the value: (725 / 2) / 2 = 181 apart.
TEST_F(ValueMarks, AreHalfAsManyForScatteredDotsInTheOtherQuadrants) {
    graph_.graphType = kScatterGraph;
    graph_.graphQuadType = 4;
    graph_.numTicks = 4;
    graph_.tickSpace = 0.05;
    const auto marks = MarksOf(graph_, ArrangementOf(graph_), {745, 20, true});
    ASSERT_EQ(marks.size(), 5u + 4u);
    for (std::size_t i = 0; i < marks.size(); ++i) {
        EXPECT_EQ(marks[i].isBetween, i % 2 == 1);
        if (marks[i].isBetween) {
            EXPECT_GT(marks[i].offset, marks[i - 1].offset);
            EXPECT_LT(marks[i].offset, marks[i + 1].offset);
        } else {
            EXPECT_EQ(marks[i].offset, (static_cast<std::int32_t>(i) - 4) / 2 * 181);
        }
    }
    EXPECT_EQ(marks[4].text, "0");
    EXPECT_EQ(marks[6].text, "-1717986918");  // 0.1
    EXPECT_EQ(graph_.numTicks, 4);
}

TEST_F(ValueMarks, AreNoneWithoutTicks) {
    for (const std::int32_t kind : {1, 3}) {
        graph_.graphType = kind;
        for (const std::int32_t ticks : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
            graph_.numTicks = ticks;
            EXPECT_TRUE(MarksOf(graph_, ArrangementOf(graph_), {100, 0, false}).empty());
            EXPECT_TRUE(MarksOf(graph_, ArrangementOf(graph_), {100, 0, true}).empty());
        }
    }
}

TEST_F(ValueMarks, AreNoMoreThanCanBeTold) {
    graph_.numTicks = 1'001;
    EXPECT_EQ(MarksOf(graph_, ArrangementOf(graph_), {100, 0, false}).size(), 1'001u);
    graph_.numTicks = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(MarksOf(graph_, ArrangementOf(graph_), {100, 0, false}).size(), 1'001u);
}

}  // namespace
}  // namespace tradebill::value_marks_test
