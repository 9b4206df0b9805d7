// The flat pie. Of 825 by 250 pixels it has 815 by 200; texts are 10 pixels a label wide and 6 a line high, so one pie
// has the radius (200 - 30) / 3 = 56 around (412, 130).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graph/graph_fixture.h"
#include "graph/pie_slices.h"

namespace tradebill::pie_series_test {
namespace {

constexpr Color kRed = 0x0000C0;
constexpr Color kBlue = 0xC00000;
constexpr Box kCircle{356, 74, 468, 186};
using Lines = std::vector<PaintedLine>;
using Pies = std::vector<PaintedPie>;
using Points = std::vector<Point>;

class PieSeries : public GraphFixture {
protected:
    PieSeries() {
        graph_.graphType = kPieGraph;
        AddColor(kRed);
        AddColor(kBlue);
    }
    /// What is written besides title and captions.
    [[nodiscard]] std::vector<std::string> Percentages() const {
        std::vector<std::string> texts;
        for (const PaintedText& text : canvas_.texts) {
            if (text.text.ends_with('%')) texts.push_back(text.text);
        }
        return texts;
    }
};

// Ends at 90, 180 and 360 degrees: 56 and 112 along the diamond, then the left again.
TEST_F(PieSeries, RunsCounterClockwiseFromTheLeft) {
    AddGroups({25, 25, 50});
    Draw();
    EXPECT_EQ(layout_.xAxisWidth, 815);
    EXPECT_EQ(layout_.yAxisHeight, 200);
    EXPECT_EQ(layout_.xApexPoint, 5);
    EXPECT_EQ(layout_.yApexPoint, 245);
    EXPECT_EQ(canvas_.pies, (Pies{{kCircle, {356, 129}, {412, 186}, kThin, kRed},
                                  {kCircle, {412, 186}, {468, 130}, kThin, kBlue},
                                  {kCircle, {468, 130}, {356, 129}, kThin, Brush(0)}}));
}

// 36, 108, 216 and 324 degrees: 22, 67, 134 and 201 along the diamond.
TEST_F(PieSeries, HasItsEdgesOnADiamond) {
    AddGroups({10, 20, 30, 30, 10});
    Draw();
    Points ends;
    for (const PaintedPie& pie : canvas_.pies) ends.push_back(pie.end);
    EXPECT_EQ(ends, (Points{{378, 152}, {423, 175}, {446, 108}, {379, 107}, {356, 129}}));
}

TEST_F(PieSeries, StandsWithoutAxes) {
    AddGroups({1});
    Draw();
    EXPECT_TRUE(canvas_.LinesOf(kAxis).empty());
    EXPECT_EQ(canvas_.PlacesOf("100"), Points{});
}

// 1.5 * 56 = 84 under the middle, a line and 15 more; the text is taken for 5 * 8 wide.
TEST_F(PieSeries, IsCaptionedBelow) {
    AddGroups({1});
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("01-02"), (Points{{392, 235}}));
}

// (815 / 2 = 100 pixels less 30) / 3 = 23; the middles stand at 203 and 609 from 5 + 15 on.
TEST_F(PieSeries, HasOnePieForEachPosition) {
    AddGroups({1});
    AddGroups({2});
    Draw();
    EXPECT_EQ(canvas_.pies, (Pies{{{200, 107, 246, 153}, {200, 129}, {200, 129}, kThin, kRed},
                                  {{606, 107, 652, 153}, {606, 129}, {606, 129}, kThin, kRed}}));
    EXPECT_EQ(canvas_.PlacesOf("01-02"), (Points{{203, 130 + 34 + 6 + 15}, {609, 185}}));
}

// Middles at 45, 135 and 270 degrees; leaders begin half way to them and go 28 outwards.
TEST_F(PieSeries, WritesPercentagesAtTheEndOfLeaders) {
    AddGroups({25, 25, 50});
    Draw();
    EXPECT_EQ(
        canvas_.lines,
        (Lines{{{398, 144}, {370, 172}, kThin}, {{426, 144}, {454, 172}, kThin}, {{412, 102}, {384, 74}, kThin}}));
    EXPECT_EQ(canvas_.PlacesOf("25%"), (Points{{360, 172}, {459, 172}}));
    EXPECT_EQ(canvas_.PlacesOf("50%"), (Points{{374, 68}}));
}

// Middle at 225 degrees: 140 along the diamond, (440, 102); half way (426, 116).
TEST_F(PieSeries, WritesToTheRightAndALineHigherInTheUpperRight) {
    AddGroups({50, 25, 25});
    Draw();
    EXPECT_EQ(canvas_.lines[1], (PaintedLine{{426, 116}, {454, 88}, kThin}));
    EXPECT_EQ(canvas_.PlacesOf("25%").front(), (Point{459, 82}));
}

TEST_F(PieSeries, CutsValuesButNotTheirSum) {
    AddGroups({1.9, 2.1});  // 1 and 2 of 4: a quarter is left open
    Draw();
    ASSERT_EQ(canvas_.pies.size(), 2u);
    EXPECT_EQ(canvas_.pies[0].end, (Point{412, 186}));  // 90 degrees
    EXPECT_EQ(canvas_.pies[1].end, (Point{412, 74}));   // 270: 168 along the diamond
    EXPECT_EQ(Percentages(), (std::vector<std::string>{"25%", "50%"}));
}

TEST_F(PieSeries, CutsPercentages) {
    AddGroups({2, 1});
    Draw();
    EXPECT_EQ(Percentages(), (std::vector<std::string>{"66%", "33%"}));
}

TEST_F(PieSeries, HasNoSlicesOfNothing) {
    AddGroups({0, -0.5, -1, -7});
    Draw();
    EXPECT_TRUE(canvas_.pies.empty());
    EXPECT_TRUE(canvas_.lines.empty());
    EXPECT_TRUE(Percentages().empty());
    EXPECT_EQ(canvas_.PlacesOf("01-02").size(), 1u);
}

TEST_F(PieSeries, DoesNotCountAMissingValue) {
    AddGroups({5, -1000, 5});
    Draw();
    EXPECT_EQ(Percentages(), (std::vector<std::string>{"50%", "50%"}));
    ASSERT_EQ(canvas_.pies.size(), 2u);
    EXPECT_EQ(canvas_.pies[0].end, (Point{468, 130}));
    EXPECT_EQ(canvas_.pies[1].brush, Brush(0));  // of the third group
}

// The second one would begin and end at 180 degrees, and be the whole circle.
TEST_F(PieSeries, LeavesOutASliceTooThinToSee) {
    AddGroups({500'000, 1, 499'999});
    Draw();
    EXPECT_EQ(canvas_.pies, (Pies{{kCircle, {356, 129}, {468, 130}, kThin, kRed},
                                  {kCircle, {468, 130}, {356, 129}, kThin, Brush(0)}}));
    EXPECT_EQ(Percentages(), (std::vector<std::string>{"50%", "0%", "49%"}));
}

// The first pixel of the circle is that over its left, so this one is a hair.
TEST_F(PieSeries, BeginsAPixelHigherThanItsLeft) {
    AddGroups({1, 999'999});
    Draw();
    EXPECT_EQ(canvas_.pies,
              (Pies{{kCircle, {356, 129}, {356, 130}, kThin, kRed}, {kCircle, {356, 130}, {356, 129}, kThin, kBlue}}));
}

TEST_F(PieSeries, PaintsTheWholeCircle) {
    AddGroups({7});
    Draw();
    EXPECT_EQ(canvas_.pies, (Pies{{kCircle, {356, 129}, {356, 129}, kThin, kRed}}));
    EXPECT_EQ(Percentages(), (std::vector<std::string>{"100%"}));
}

TEST_F(PieSeries, HasNoSlicesWithoutRoom) {
    for (int i = 0; i < 7; ++i) AddGroups({1});  // 200 / 7 = 28 is less than three labels
    Draw();
    EXPECT_TRUE(canvas_.pies.empty());
    EXPECT_EQ(canvas_.PlacesOf("01-02").size(), 7u);
}

// Texts at (346, 158) and (349, 161): the second begins inside the first and moves a line below it.
TEST_F(PieSeries, MovesAPercentageOutOfAnEarlierOne) {
    AddGroups({2, 2, 96});
    Draw();
    EXPECT_EQ(
        canvas_.lines,
        (Lines{{{384, 130}, {356, 158}, kThin}, {{387, 133}, {359, 164}, kThin}, {{438, 128}, {466, 100}, kThin}}));
    EXPECT_EQ(canvas_.PlacesOf("2%"), (Points{{346, 158}, {349, 164}}));
    EXPECT_EQ(canvas_.PlacesOf("96%"), (Points{{471, 94}}));
}

CGraphPieLabel LabelAt(std::int32_t x, std::int32_t y, std::int32_t quadrant) {
    CGraphPieLabel label;
    label.topLeftX = x;
    label.topLeftY = y;
    label.lineYEnd = y + 1;
    label.quadrant = quadrant;
    return label;
}

/// Where a second label comes to stand; the first lies at (100, 100), each 10 by 6.
Point Moved(std::int32_t x, std::int32_t y, std::int32_t quadrant) {
    std::vector<CGraphPieLabel> labels{LabelAt(100, 100, 0), LabelAt(x, y, quadrant)};
    SpreadLabels(labels, {.labelWidth = 10, .lineHeight = 6});
    EXPECT_EQ(labels[0].topLeftY, 100);
    EXPECT_EQ(labels[1].topLeftX, x);
    return {labels[1].topLeftY, labels[1].lineYEnd};
}

TEST(PieLabels, MoveOnlyFromStrictlyInside) {
    EXPECT_EQ(Moved(100, 103, 0), (Point{103, 104}));
    EXPECT_EQ(Moved(110, 103, 0), (Point{103, 104}));
    EXPECT_EQ(Moved(105, 100, 0), (Point{100, 101}));
    EXPECT_EQ(Moved(105, 106, 0), (Point{106, 107}));
    EXPECT_EQ(Moved(101, 101, 0), (Point{106, 107}));
    EXPECT_EQ(Moved(109, 105, 1), (Point{106, 107}));
}

TEST(PieLabels, MoveUpInTheUpperHalf) {
    EXPECT_EQ(Moved(101, 101, 2), (Point{94, 95}));
    EXPECT_EQ(Moved(109, 105, 3), (Point{94, 95}));
}

// The third leaves the second only to meet the first, and is tested from the first on again.
TEST(PieLabels, BeginAgainAfterAMove) {
    std::vector<CGraphPieLabel> labels{LabelAt(100, 105, 0), LabelAt(100, 100, 0), LabelAt(105, 103, 0)};
    SpreadLabels(labels, {.labelWidth = 10, .lineHeight = 6});
    EXPECT_EQ(labels[1].topLeftY, 100);
    EXPECT_EQ(labels[2].topLeftY, 111);
}

TEST_F(PieSeries, LabelsASliceOfLessThanOne) {
    graph_.graphType = kPieGraph;
    AddGroups({0.5, 1});
    Draw();
    EXPECT_TRUE(canvas_.FindText("0%"));
}

}  // namespace
}  // namespace tradebill::pie_series_test
