// Grouped bars. Upright the slots of three positions are 751 / 3 = 250 pixels wide, and 100 is 150 pixels high.
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill::bar_series_test {
namespace {

constexpr Color kRed = 0x0000C0;
constexpr Color kBlue = 0xC00000;
using Boxes = std::vector<Box>;

class BarSeries : public GraphFixture {
protected:
    BarSeries() {
        graph_.graphType = kBarGraph;
        AddColor(kRed);
        AddColor(kBlue);
    }
    /// 150 pixels, or 75 to either side, for 1.
    void ScaleToOne() {
        graph_.maxTick = 1.0;
        graph_.tickSpace = 0.1;
    }
};

// Two bars of 250 * 0.6 / 2 = 75, the first 54 - 125 + 250 - 75 from the left.
TEST_F(BarSeries, FillSixtyPercentOfTheirSlot) {
    AddGroups({40, 100});
    AddGroups({20, -1});
    AddGroups({0, 60});
    Draw();
    EXPECT_EQ(Bars(), (std::vector<PaintedShape>{{{104, 160, 179, 220}, kThin, kRed},
                                                 {{179, 70, 254, 220}, kThin, kBlue},
                                                 {{354, 190, 429, 220}, kThin, kRed},
                                                 {{604, 220, 679, 220}, kThin, kRed},
                                                 {{679, 130, 754, 220}, kThin, kBlue}}));
}

// 751 / 7 = 107, half of it 53; three bars of 21, half of them 31.
TEST_F(BarSeries, HalveOddSlotsDownwards) {
    for (int i = 0; i < 7; ++i) AddGroups({10, 10, 10});
    Draw();
    ASSERT_EQ(Bars().size(), 21u);
    EXPECT_EQ(Bars()[0].box, (Box{77, 205, 98, 220}));
    EXPECT_EQ(Bars()[1].box, (Box{98, 205, 119, 220}));
    EXPECT_EQ(Bars()[2], (PaintedShape{{119, 205, 140, 220}, kThin, Brush(0)}));  // beyond the list of colours
    EXPECT_EQ(Bars()[3].box, (Box{184, 205, 205, 220}));
    EXPECT_EQ(Bars()[20].box.left, 119 + 6 * 107);
}

TEST_F(BarSeries, EndAtTheHighestTick) {
    for (const double value : {106.0, 107.0, 108.0, 1e300}) AddGroups({value});  // 159, 160 and 162 pixels of 160
    Draw();
    const std::int32_t kTops[] = {61, 60, 60, 60};
    ASSERT_EQ(Bars().size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(Bars()[i].box.top, kTops[i]);
}

TEST_F(BarSeries, LiftOffTheAxisByTheUnit) {
    for (const double value : {0.0, 0.3, 0.7, 1.4}) AddGroups({value});
    Draw();
    const std::int32_t kTops[] = {220, 219, 219, 218};
    ASSERT_EQ(Bars().size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(Bars()[i].box.top, kTops[i]);
}

TEST_F(BarSeries, DontLiftByAUnitOfLessThanAPixel) {
    graph_.maxTick = 1000;
    AddGroups({5});
    Draw();
    EXPECT_EQ(Bars()[0].box.top, 220);
}

TEST_F(BarSeries, GoDownFromTheAxisUnderTheLowestTick) {
    graph_.minTick = 50;
    graph_.maxTick = 150;
    AddGroups({20});
    Draw();
    EXPECT_EQ(Bars()[0].box.top, 220 + 45);
    EXPECT_EQ(Bars()[0].box.bottom, 220);
}

TEST_F(BarSeries, LackMissingValues) {
    const double kNothing = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {-0.99, -1.0, -1.01, -1e300, kNothing}) AddGroups({value});
    Draw();
    ASSERT_EQ(Bars().size(), 1u);
    EXPECT_EQ(Bars()[0].box.top, 221);  // -1.485 pixels
}

TEST_F(BarSeries, AreFlatWhereAGroupHasNoData) {
    AddGroups({10});
    graph_.seriesSize = 2;
    Draw();
    ASSERT_EQ(Bars().size(), 2u);
    EXPECT_EQ(Bars()[1].box.top, Bars()[1].box.bottom);
}

TEST_F(BarSeries, AreNoneWithoutGroups) {
    AddGroups({10});
    graph_.seriesSize = 0;
    Draw();
    EXPECT_TRUE(Bars().empty());
    EXPECT_EQ(canvas_.PlacesOf("01-02").size(), 1u);
}

// Slots of 751 / 4 = 187, bars of 112, the first at 54 - 93 + 187 - 56. The X axis stands at y 220 - 80.
TEST_F(BarSeries, GoEitherWayInTheThirdQuadrant) {
    ScaleToOne();
    graph_.graphQuadType = 3;
    for (const double value : {0.5, 0.9, -0.5, -0.9}) AddGroups({value});
    Draw();
    EXPECT_EQ(layout_.yApexPoint, 140);
    EXPECT_EQ(layout_.xApexPoint, 54);
    EXPECT_EQ(BarBoxes(), (Boxes{{92, 65, 204, 140}, {279, 60, 391, 140}, {466, 215, 578, 140}, {653, 220, 765, 140}}));
}

TEST_F(BarSeries, ReachHalfTheAxisInTheSecondQuadrantToo) {
    ScaleToOne();
    graph_.graphQuadType = 2;
    for (const double value : {0.5, 0.9, -0.5, -0.9}) AddGroups({value});
    Draw();
    EXPECT_EQ(layout_.yApexPoint, 220);
    EXPECT_EQ(layout_.xApexPoint, 54 + 375);
    EXPECT_EQ(BarBoxes(),
              (Boxes{{92, 145, 204, 220}, {279, 140, 391, 220}, {466, 295, 578, 220}, {653, 300, 765, 220}}));
}

TEST_F(BarSeries, BeginAtTheLeftInTheFourthQuadrant) {
    ScaleToOne();
    graph_.graphQuadType = 4;
    for (const double value : {0.5, 0.9, -0.5, -0.9}) AddGroups({value});
    Draw();
    EXPECT_EQ(layout_.yApexPoint, 140);
    EXPECT_EQ(layout_.xApexPoint, 429);
    EXPECT_EQ(BarBoxes(), (Boxes{{92, 65, 204, 140}, {279, 60, 391, 140}, {466, 215, 578, 140}, {653, 220, 765, 140}}));
}

// 169 pixels in three rows of 56, bars of 33; 100 is 735 pixels long, the axis 745.
TEST_F(BarSeries, LieInRows) {
    graph_.graphAlignment = 0;
    graph_.xAxisLabelLength = 8;
    for (const double value : {40.0, 110.0, 0.1}) AddGroups({value});
    Draw();
    EXPECT_EQ(BarBoxes(), (Boxes{{53, 174, 347, 207}, {53, 118, 798, 151}, {53, 62, 60, 95}}));
}

}  // namespace
}  // namespace tradebill::bar_series_test
