// The box of the three-dimensional kinds: a quarter of 160 deep, 711 by 120 pixels wide, its back at (94, 180).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill::box_axes_test {
namespace {

constexpr Pen kWallGrid{.width = 1, .color = 0x808080};
using Lines = std::vector<PaintedLine>;
using Points = std::vector<Point>;

class BoxAxes : public GraphFixture {
protected:
    BoxAxes() {
        graph_.graphType = kBar3dGraph;
        graph_.depthRatio = 0.25;
        graph_.tickSpace = 0.1;
        graph_.maxTick = 1.0;
        graph_.decimalDigits = 1;  // the longest number has three bytes
    }
};

TEST_F(BoxAxes, TakeTheirDepthOffTheAxes) {
    for (const std::int32_t kind : {30, 31, 320}) {
        graph_.graphType = kind;
        Draw();
        EXPECT_EQ(layout_.depth, 40);
        EXPECT_EQ(layout_.xAxisWidth, 711);
        EXPECT_EQ(layout_.yAxisHeight, 120);
        EXPECT_EQ(layout_.xApexPoint, 54);
        EXPECT_EQ(layout_.yApexPoint, 220);
    }
}

TEST_F(BoxAxes, AreABackWallAndAFloor) {
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kAxis), (Lines{{{94, 180}, {805, 180}, kAxis},
                                             {{805, 180}, {805, 60}, kAxis},
                                             {{805, 60}, {94, 60}, kAxis},
                                             {{94, 60}, {94, 180}, kAxis},
                                             {{94, 180}, {54, 220}, kAxis},
                                             {{54, 220}, {765, 220}, kAxis},
                                             {{765, 220}, {805, 180}, kAxis}}));
}

// Ticks 12 pixels apart on the wall reach 8 outwards.
TEST_F(BoxAxes, HaveTicksOfAFifthOfTheDepth) {
    Draw();
    const Lines thin = canvas_.LinesOf(kThin);
    ASSERT_EQ(thin.size(), 11u);
    for (std::int32_t tick = 0; tick <= 10; ++tick) {
        const std::int32_t y = 180 - 12 * tick;
        EXPECT_EQ(thin[static_cast<std::size_t>(tick)], (PaintedLine{{94, y}, {86, y + 8}, kThin}));
    }
    EXPECT_EQ(canvas_.PlacesOf("858993460"), (Points{{-10, 180 - 36 - 5}, {-10, 180 - 72 - 5}}));  // 0.3 and 0.6
    EXPECT_EQ(canvas_.PlacesOf("-1717986918").size(), 4u);  // 0.1, 0.2, 0.4 and 0.8
}

TEST_F(BoxAxes, HaveTheDarkerGridOnTheWall) {
    Draw();
    EXPECT_TRUE(canvas_.LinesOf(kWallGrid).empty());
    graph_.graphHasGridLines = 1;
    Draw();
    const Lines grid = canvas_.LinesOf(kWallGrid);
    ASSERT_EQ(grid.size(), 11u);
    EXPECT_EQ(grid[0], (PaintedLine{{94, 180}, {805, 180}, kWallGrid}));
    EXPECT_EQ(grid[10], (PaintedLine{{94, 60}, {805, 60}, kWallGrid}));
    EXPECT_TRUE(canvas_.LinesOf(kGridPen).empty());
}

TEST_F(BoxAxes, TurnTheYTitleUpwards) {
    graph_.axisYLabel = "Yuan";
    Draw();
    ASSERT_TRUE(canvas_.FindText("Yuan"));
    EXPECT_EQ(canvas_.FindText("Yuan")->font.escapement, 900);
}

TEST_F(BoxAxes, LabelEachPosition) {
    for (int i = 0; i < 2; ++i) AddGroups({0});
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("01-02").size(), 2u);
}

TEST_F(BoxAxes, LieWithValuesOnTheFloor) {
    graph_.graphAlignment = 0;
    graph_.xAxisLabelLength = 8;
    AddGroups({0.5});
    Draw();
    EXPECT_EQ(layout_.depth, 42);  // of 169
    EXPECT_EQ(layout_.xAxisWidth, 745 - 42);
    EXPECT_EQ(canvas_.LinesOf(kThin)[10].from.x, 53 + 703);
    EXPECT_EQ(canvas_.PlacesOf("01-02").size(), 1u);
}

TEST_F(BoxAxes, AreFlatWithoutDepth) {
    graph_.depthRatio = 0;
    Draw();
    EXPECT_EQ(layout_.depth, 0);
    EXPECT_EQ(layout_.xAxisWidth, 751);
}

}  // namespace
}  // namespace tradebill::box_axes_test
