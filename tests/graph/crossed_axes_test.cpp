// Axes of the quadrants and of lying charts. Upright the plot reaches from (54, 60) to (805, 220), lying from (53, 50)
// to (798, 224).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graph/crossed_axes.h"
#include "graph/graph_fixture.h"

namespace tradebill::crossed_axes_test {
namespace {

constexpr Pen kQuadrantGrid{.width = 1, .color = 0x808080};
constexpr Pen kBetween{.width = 1, .color = 0xE1E1E1};
const std::string kTenth = "-1717986918";  // of 0.1, and as well of 0.2 and 0.4
using Lines = std::vector<PaintedLine>;
using Points = std::vector<Point>;

class CrossedAxes : public GraphFixture {
protected:
    CrossedAxes() {
        graph_.graphHasGridLines = 1;
        graph_.tickSpace = 0.1;
        graph_.maxTick = 1.0;
        graph_.decimalDigits = 1;  // the longest number has three bytes
    }
};

TEST_F(CrossedAxes, HaveTheYAxisInTheMiddleOfTheSecondQuadrant) {
    graph_.graphQuadType = 2;
    AddPoints({0, 1});
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kAxis), (Lines{{{429, 220}, {429, 60}, kAxis}, {{54, 220}, {805, 220}, kAxis}}));
    const Lines thin = canvas_.LinesOf(kThin);
    ASSERT_GE(thin.size(), 11u);
    for (std::int32_t tick = 0; tick <= 10; ++tick) {
        const std::int32_t y = 220 - 16 * tick;
        EXPECT_EQ(thin[static_cast<std::size_t>(tick)], (PaintedLine{{426, y}, {432, y}, kThin}));
    }
    // At the plot's edge, away from the axis; 0.5 and 1 show as nothing too.
    EXPECT_EQ(canvas_.PlacesOf("0"), (Points{{54 - 6 - 10, 215}, {38, 135}, {38, 55}}));
}

TEST_F(CrossedAxes, HaveTheXAxisInTheMiddleOfTheThirdQuadrant) {
    graph_.graphQuadType = 3;
    AddPoints({0, 1});
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kAxis), (Lines{{{54, 220}, {54, 60}, kAxis}, {{54, 140}, {810, 140}, kAxis}}));
    const Lines thin = canvas_.LinesOf(kThin);
    ASSERT_GE(thin.size(), 11u);
    for (std::int32_t tick = -5; tick <= 5; ++tick) {
        const std::int32_t y = 140 - 16 * tick;
        EXPECT_EQ(thin[static_cast<std::size_t>(tick + 5)], (PaintedLine{{51, y}, {57, y}, kThin}));
    }
}

TEST_F(CrossedAxes, AreBothInTheMiddleOfTheFourthQuadrant) {
    graph_.graphQuadType = 4;
    AddPoints({0, 1});
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kAxis), (Lines{{{429, 220}, {429, 60}, kAxis}, {{54, 140}, {805, 140}, kAxis}}));
}

// Ticks of 0.1 to 0.5 either way; 0.3 as three times 0.1 is one bit above 0.3.
TEST_F(CrossedAxes, PrintTheBitsOfTheirNumbers) {
    graph_.graphQuadType = 3;
    Draw();
    const std::int32_t left = 54 - 66 - 10;
    EXPECT_EQ(canvas_.PlacesOf(kTenth), (Points{{left, 140 + 64 - 5},
                                                {left, 140 + 32 - 5},
                                                {left, 140 + 16 - 5},
                                                {left, 140 - 16 - 5},
                                                {left, 140 - 32 - 5},
                                                {left, 140 - 64 - 5}}));
    EXPECT_EQ(canvas_.PlacesOf("858993460"), (Points{{54 - 64, 140 + 48 - 5}, {54 - 64, 140 - 48 - 5}}));
    EXPECT_EQ(canvas_.PlacesOf("0"), (Points{{38, 140 + 80 - 5}, {38, 135}, {38, 55}}));  // 0.5 has none either
}

TEST_F(CrossedAxes, HaveADarkerGrid) {
    graph_.graphQuadType = 3;
    AddPoints({0, 1});
    Draw();
    Lines rows;
    for (std::int32_t tick = -5; tick <= 5; ++tick) {
        rows.push_back({{54, 140 - 16 * tick}, {810, 140 - 16 * tick}, kQuadrantGrid});
    }
    EXPECT_EQ(canvas_.LinesOf(kQuadrantGrid), rows);
    EXPECT_TRUE(canvas_.LinesOf(kGridPen).empty());
}

TEST_F(CrossedAxes, HaveNoGridUnlessTold) {
    graph_.graphHasGridLines = 0;
    for (const std::int32_t quadrant : {2, 3, 4}) {
        graph_.graphQuadType = quadrant;
        Draw();
    }
    EXPECT_TRUE(canvas_.LinesOf(kQuadrantGrid).empty());
}

TEST_F(CrossedAxes, LabelPositionsBelowThePlotWithTicksOnTheAxis) {
    graph_.graphQuadType = 4;
    AddPoints({0, 1});
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("01-02"), (Points{{54 - 15, 228}, {795 - 15, 228}}));
    const Lines thin = canvas_.LinesOf(kThin);
    ASSERT_GE(thin.size(), 13u);
    EXPECT_EQ(thin[11], (PaintedLine{{54, 137}, {54, 143}, kThin}));
    EXPECT_EQ(thin[12], (PaintedLine{{795, 137}, {795, 143}, kThin}));
}

// Five ticks each way, 72 and 15 apart from (377, 135), and a paler line between each two.
TEST_F(CrossedAxes, HalveTheTicksOfScatteredDots) {
    graph_.graphType = kScatterGraph;
    graph_.graphQuadType = 4;
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kQuadrantGrid).size(), 22u);
    EXPECT_EQ(canvas_.LinesOf(kBetween).size(), 20u);
    EXPECT_EQ(canvas_.PlacesOf("0").size(), 2u + 4u);  // the origin of both, and 5 times 0.2 to all sides
    EXPECT_EQ(graph_.numTicks, 10);
    const CrossedMarks marks = CrossedMarksOf(graph_, layout_);
    EXPECT_EQ(layout_.xApexPoint + marks.x.back().offset, 737);
    EXPECT_EQ(layout_.yApexPoint - marks.y.back().offset, 60);
}

TEST_F(CrossedAxes, HaveNumbersBothWaysForScatteredDots) {
    graph_.graphType = kScatterGraph;
    AddPoints({1});  // its label shows nowhere
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("01-02"), Points{});
    EXPECT_EQ(canvas_.LinesOf(kAxis), (Lines{{{5, 219}, {5, 50}, kAxis}, {{5, 219}, {750, 219}, kAxis}}));
    EXPECT_EQ(canvas_.LinesOf(kGridPen).size(), 22u);
    const Lines thin = canvas_.LinesOf(kThin);
    ASSERT_EQ(thin.size(), 22u);
    EXPECT_EQ(thin[10], (PaintedLine{{2, 69}, {8, 69}, kThin}));
    EXPECT_EQ(thin[21], (PaintedLine{{725, 216}, {725, 222}, kThin}));
    EXPECT_EQ(canvas_.PlacesOf("858993460"),
              (Points{{-59, 219 - 45 - 5}, {-59, 219 - 90 - 5}, {5 + 216 - 27, 227}, {5 + 432 - 27, 227}}));
}

class LyingAxes : public CrossedAxes {
protected:
    LyingAxes() {
        graph_.graphAlignment = 0;
        graph_.xAxisLabelLength = 8;
    }
};

TEST_F(LyingAxes, RunValuesAlongX) {
    AddPoints({0, 0, 0});
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kAxis), (Lines{{{53, 224}, {53, 50}, kAxis}, {{53, 224}, {798, 224}, kAxis}}));
    const std::int32_t kX[] = {53, 127, 202, 276, 351, 425, 500, 574, 649, 723, 798};  // 74.5 apart
    const Lines thin = canvas_.LinesOf(kThin);
    const Lines grid = canvas_.LinesOf(kGridPen);
    ASSERT_GE(thin.size(), 11u);
    ASSERT_EQ(grid.size(), 11u);
    for (std::size_t i = 0; i < 11; ++i) {
        EXPECT_EQ(thin[i], (PaintedLine{{kX[i], 221}, {kX[i], 227}, kThin}));
        EXPECT_EQ(grid[i], (PaintedLine{{kX[i], 50}, {kX[i], 224}, kGridPen}));
    }
    EXPECT_EQ(canvas_.PlacesOf("858993460"), (Points{{276 - 27, 232}, {500 - 27, 232}}));  // 0.3 and 0.6
}

// Rows of 174 / 3 = 58.
TEST_F(LyingAxes, LabelTheRows) {
    AddPoints({0, 0, 0});
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("01-02"), (Points{{18, 190}, {18, 132}, {18, 74}}));
    const Lines thin = canvas_.LinesOf(kThin);
    ASSERT_EQ(thin.size(), 14u);
    EXPECT_EQ(thin[11], (PaintedLine{{50, 195}, {56, 195}, kThin}));
    EXPECT_EQ(thin[13], (PaintedLine{{50, 79}, {56, 79}, kThin}));
}

TEST_F(LyingAxes, KeepRowLabelsApart) {
    AddPoints(std::vector<double>(100, 0.0));  // rows of one pixel
    Draw();
    const Points places = canvas_.PlacesOf("01-02");
    ASSERT_GE(places.size(), 8u);
    for (std::size_t i = 1; i < places.size(); ++i) EXPECT_GE(places[i - 1].y - places[i].y, 11);
}

TEST_F(LyingAxes, CanBeDrawnWithoutLabels) {
    AddPoints({0, 0, 0});
    Draw();
    EXPECT_FALSE(layout_.hideAxisLabels);  // a whole painting always has them
    EXPECT_EQ(canvas_.PlacesOf("01-02").size(), 3u);
    CRecordingCanvas axes;
    layout_.hideAxisLabels = true;
    DrawCrossedAxes(axes, graph_, layout_);
    EXPECT_TRUE(axes.PlacesOf("01-02").empty());
    EXPECT_EQ(axes.LinesOf(kThin).size(), 14u);
}

TEST_F(LyingAxes, ShowTheirTitles) {
    graph_.axisXLabel = "Day";
    graph_.axisYLabel = "Yuan";
    AddPoints({0});
    Draw();
    ASSERT_TRUE(canvas_.FindText("Day"));
    EXPECT_EQ(canvas_.FindText("Day")->font.escapement, 900);
    ASSERT_TRUE(canvas_.FindText("Yuan"));
    EXPECT_EQ(canvas_.FindText("Yuan")->font.escapement, 0);
}

TEST_F(CrossedAxes, HaveTitlesInEveryStyle) {
    graph_.axisXLabel = "Day";
    graph_.axisYLabel = "Yuan";
    for (const std::int32_t kind : {1, 3, 30}) {
        CRecordingCanvas canvas;
        graph_.graphType = kind;
        graph_.graphQuadType = 4;
        graph_.DrawGraph(canvas, {0, 0, 825, 250});
        EXPECT_TRUE(canvas.FindText("Day")) << kind;
        EXPECT_TRUE(canvas.FindText("Yuan")) << kind;
    }
}

}  // namespace
}  // namespace tradebill::crossed_axes_test
