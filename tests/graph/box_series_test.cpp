// Box plots: (160 - 10) / 10 = 15 pixels a tick of 10. One slot of 751 has a box of 600 from 54 - 375 + 751 - 300 on.
#include <gtest/gtest.h>

#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill::box_series_test {
namespace {

constexpr Pen kMedian{.width = 1, .color = 0x0000FF};
using Boxes = std::vector<Box>;
using Lines = std::vector<PaintedLine>;

class BoxSeries : public GraphFixture {
protected:
    BoxSeries() {
        graph_.graphType = kBoxGraph;
        AddColor(0x00FF00);  // takes no part
    }
    /// Heights over the axis of lower quartile, median and upper quartile.
    [[nodiscard]] std::vector<std::int32_t> Quartiles() const {
        const Box box = Bars()[3].box;
        return {220 - box.bottom, 220 - canvas_.LinesOf(kMedian)[0].from.y, 220 - box.top};
    }
};

// Least 15 and greatest 75 pixels, quartiles 15 and 45, median 30.
TEST_F(BoxSeries, HasCapsAStemABoxAndAMedian) {
    AddGroups({30, 10, 50, 40, 20});
    Draw();
    EXPECT_EQ(Bars(), (std::vector<PaintedShape>{{{130, 145, 730, 148}, kThin, Brush(0)},
                                                 {{130, 202, 730, 205}, kThin, Brush(0)},
                                                 {{428, 145, 432, 205}, kThin, Brush(0)},
                                                 {{130, 153, 730, 198}, kThin, Brush(0)}}));
    EXPECT_EQ(canvas_.LinesOf(kMedian), (Lines{{{130, 175}, {730, 175}, kMedian}}));
}

TEST_F(BoxSeries, TakesTheMiddleInWholeNumbers) {
    graph_.tickSpace = 1.0;  // 15 pixels for 1
    AddGroups({10, 1, 3, 2});
    Draw();
    EXPECT_EQ(Quartiles(), (std::vector<std::int32_t>{1 * 15, 2 * 15, 6 * 15}));
}

TEST_F(BoxSeries, LeavesTheMedianOutOfTheHalvesOfAnOddCount) {
    graph_.tickSpace = 1.0;
    AddGroups({1, 2, 3, 9, 9, 9, 9});
    Draw();
    EXPECT_EQ(Quartiles(), (std::vector<std::int32_t>{2 * 15, 9 * 15, 9 * 15}));
}

TEST_F(BoxSeries, CutsItsValues) {
    AddGroups({20.9, 20.1});
    Draw();
    EXPECT_EQ(Quartiles(), (std::vector<std::int32_t>{30, 30, 30}));
}

TEST_F(BoxSeries, IsFlatForOneValue) {
    AddGroups({20});
    Draw();
    EXPECT_EQ(BarBoxes(),
              (Boxes{{130, 190, 730, 193}, {130, 187, 730, 190}, {428, 190, 432, 190}, {130, 190, 730, 190}}));
    EXPECT_EQ(canvas_.LinesOf(kMedian), (Lines{{{130, 190}, {730, 190}, kMedian}}));
}

TEST_F(BoxSeries, IsTheSameForTwoValuesAsForTheirEnds) {
    AddGroups({20, 40});
    Draw();
    EXPECT_EQ(Quartiles(), (std::vector<std::int32_t>{30, 45, 60}));
}

// Slots of 375, boxes of 300.
TEST_F(BoxSeries, StandsInTheMiddleOfItsSlot) {
    AddGroups({1, 2, 3});
    AddGroups({10, 20});
    Draw();
    EXPECT_EQ(graph_.seriesSize, 3);  // the most of all positions, whatever the last one has
    ASSERT_EQ(Bars().size(), 8u);
    EXPECT_EQ(Bars()[0].box.left, 92);
    EXPECT_EQ(Bars()[0].box.right, 392);
    EXPECT_EQ(Bars()[4].box.left, 467);
    EXPECT_EQ(Bars()[4].box.right, 767);
}

TEST_F(BoxSeries, LacksMissingValues) {
    AddGroups({-1, 20, -5});
    AddGroups({-1});
    AddGroups({});
    Draw();
    ASSERT_EQ(Bars().size(), 4u);
    EXPECT_EQ(Bars()[3].box.top, 190);
}

TEST_F(BoxSeries, CountsFromTheLowestTick) {
    graph_.minTick = 5;
    graph_.tickSpace = 5;
    AddGroups({10, 20});
    Draw();  // a tick over the axis, and three
    EXPECT_EQ(Bars()[2].box, (Box{428, 220 - 45, 432, 220 - 15}));
}

// A row of 169 with a box of 135 from 219 - (169 - 84 - 67) upwards; 73 pixels a tick from x 53 on.
TEST_F(BoxSeries, LiesInRows) {
    graph_.graphAlignment = 0;
    graph_.xAxisLabelLength = 8;
    AddGroups({20});
    Draw();
    EXPECT_EQ(Bars()[0].box, (Box{196, 66, 199, 201}));
    EXPECT_EQ(Bars()[1].box, (Box{199, 66, 202, 201}));
    EXPECT_EQ(Bars()[3].box, (Box{199, 66, 199, 201}));
    ASSERT_EQ(canvas_.LinesOf(kMedian).size(), 1u);
    EXPECT_EQ(canvas_.LinesOf(kMedian)[0].from.x, 199);
    EXPECT_EQ(canvas_.LinesOf(kMedian)[0].to.x, 199);
}

TEST_F(BoxSeries, HoldsValuesOutsideOfWholeNumbers) {
    AddGroups({1e300, 20, 3e9});
    Draw();
    ASSERT_EQ(Bars().size(), 4u);
    EXPECT_EQ(Bars()[1].box.bottom, 190);
}

}  // namespace
}  // namespace tradebill::box_series_test
