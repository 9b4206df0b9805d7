// Bars one on another: 100 is 150 pixels high, the axis 160. Three slots of 250 hold bars of 150.
#include <gtest/gtest.h>

#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill::stacked_bar_series_test {
namespace {

constexpr Color kRed = 0x0000C0;
constexpr Color kBlue = 0xC00000;
using Boxes = std::vector<Box>;

class StackedBars : public GraphFixture {
protected:
    StackedBars() {
        graph_.graphType = kStackedBarGraph;
        AddColor(kRed);
        AddColor(kBlue);
    }
    void ScaleToOne() {
        graph_.maxTick = 1.0;
        graph_.tickSpace = 0.1;
    }
};

TEST_F(StackedBars, BeginWhereTheLastOneEnded) {
    AddGroups({40, 30});
    AddGroups({0, 10});
    AddGroups({20, 0});
    Draw();
    EXPECT_EQ(Bars(), (std::vector<PaintedShape>{{{104, 160, 254, 220}, kThin, kRed},
                                                 {{104, 115, 254, 160}, kThin, kBlue},
                                                 {{354, 220, 504, 220}, kThin, kRed},
                                                 {{354, 205, 504, 220}, kThin, kBlue},
                                                 {{604, 190, 754, 220}, kThin, kRed},
                                                 {{604, 190, 754, 190}, kThin, kBlue}}));
}

TEST_F(StackedBars, EndWithTheAxis) {
    AddGroups({40, 30, 50, 10});  // 60, 105, 180, 195
    AddGroups({200, 1, 1, 1});
    AddGroups({106, 0.7, 0, 0});  // 159 and one more
    Draw();
    EXPECT_EQ(BarBoxes(), (Boxes{{104, 160, 254, 220},
                                 {104, 115, 254, 160},
                                 {104, 60, 254, 115},
                                 {104, 60, 254, 60},
                                 {354, 60, 504, 220},
                                 {354, 60, 504, 60},
                                 {354, 60, 504, 60},
                                 {354, 60, 504, 60},
                                 {604, 61, 754, 220},
                                 {604, 60, 754, 61},
                                 {604, 60, 754, 60},
                                 {604, 60, 754, 60}}));
}

TEST_F(StackedBars, CloseUpOverAMissingValue) {
    AddGroups({40, -1, 20});
    AddGroups({});  // no data at all is as good as zeros
    AddGroups({-1, -1, -1});
    Draw();
    EXPECT_EQ(BarBoxes(), (Boxes{{104, 160, 254, 220},
                                 {104, 130, 254, 160},
                                 {354, 220, 504, 220},
                                 {354, 220, 504, 220},
                                 {354, 220, 504, 220}}));
}

TEST_F(StackedBars, LiftEachPartOverTheBottom) {
    AddGroups({0.1, 0.1, 0.1});
    Draw();
    const std::int32_t kTops[] = {219, 218, 217};
    ASSERT_EQ(Bars().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(Bars()[i].box.top, kTops[i]);
}

// One slot of 751, bars of 450 from 54 - 375 + 751 - 225 on.
TEST_F(StackedBars, ReachHalfTheAxisEitherWayInTheOtherQuadrants) {
    ScaleToOne();
    graph_.graphQuadType = 3;
    AddGroups({0.3, 0.4});
    Draw();
    EXPECT_EQ(BarBoxes(), (Boxes{{205, 95, 655, 140}, {205, 60, 655, 95}}));
}

TEST_F(StackedBars, GrowDownwardsInTheOtherQuadrants) {
    ScaleToOne();
    graph_.graphQuadType = 4;
    AddGroups({-0.3, -0.4});
    Draw();
    EXPECT_EQ(BarBoxes(), (Boxes{{205, 185, 655, 140}, {205, 220, 655, 185}}));
}

// One row of 169 with a bar of 101, from 219 - (169 - 84 - 50) upwards; 7.35 pixels for 1.
TEST_F(StackedBars, LieInRows) {
    graph_.graphAlignment = 0;
    graph_.xAxisLabelLength = 8;
    AddGroups({40, 30, 50});
    Draw();
    EXPECT_EQ(BarBoxes(), (Boxes{{53, 83, 347, 184}, {347, 83, 567, 184}, {567, 83, 798, 184}}));
}

TEST_F(StackedBars, StandFarUnderTheLowestTick) {
    graph_.graphType = kStackedBarGraph;
    graph_.minTick = 1e10;
    graph_.maxTick = 1e10 + 1;
    AddGroups({0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    Draw();
    EXPECT_EQ(canvas_.rectangles.size(), 11U);  // the frame, and all of them
}

}  // namespace
}  // namespace tradebill::stacked_bar_series_test
