// Solid bars. A depth of 8 is taken off 751 by 160 pixels; two slots of 371 hold bars of 296 from 54 - 185 + 371 - 148
// on. 100 is 142 pixels high as a bar and 152 in a stack.
#include <gtest/gtest.h>

#include <vector>

#include "graph/graph_fixture.h"
#include "graph/shades.h"

namespace tradebill::bar_series_3d_test {
namespace {

constexpr Color kRed = 0x1020F0;
constexpr Color kDark = 0x0000CD;   // 35 less of each channel, down to 0
constexpr Color kLight = 0x3343FF;  // 35 more, up to 255
using Points = std::vector<Point>;

class Bars3d : public GraphFixture {
protected:
    explicit Bars3d(std::int32_t kind = kBar3dGraph) {
        graph_.graphType = kind;
        AddColor(kRed);
        AddColor(0xC00000);
    }
};

class StackedBars3d : public Bars3d {
protected:
    StackedBars3d() : Bars3d(kStackedBar3dGraph) {}
};

TEST_F(Bars3d, HaveAFaceASideAndATop) {
    AddGroups({50});
    AddGroups({-1});
    Draw();
    EXPECT_EQ(layout_.depth, 8);
    EXPECT_EQ(layout_.xAxisWidth, 743);
    EXPECT_EQ(layout_.yAxisHeight, 152);
    EXPECT_EQ(Bars(), (std::vector<PaintedShape>{{{92, 149, 388, 220}, {.width = 1, .color = kRed}, kRed}}));
    ASSERT_EQ(canvas_.polygons.size(), 2u);
    EXPECT_EQ(
        canvas_.polygons[0],
        (PaintedPolygon{{{387, 149}, {395, 141}, {395, 211}, {387, 219}}, Pen{.width = 1, .color = kDark}, kDark}));
    EXPECT_EQ(
        canvas_.polygons[1],
        (PaintedPolygon{{{92, 149}, {100, 141}, {395, 141}, {387, 149}}, Pen{.width = 1, .color = kLight}, kLight}));
}

// Bars of 371 * 0.8 / 2 = 148.
TEST_F(Bars3d, StandSideBySide) {
    AddGroups({50, 20});
    AddGroups({0, 100});
    Draw();
    EXPECT_EQ(BarBoxes(),
              (std::vector<Box>{{92, 149, 240, 220}, {240, 192, 388, 220}, {463, 220, 611, 220}, {611, 78, 759, 220}}));
}

TEST_F(Bars3d, EndWithTheAxis) {
    AddGroups({120});  // 170 of 152
    AddGroups({0.1});
    Draw();
    EXPECT_EQ(Bars()[0].box.top, 220 - 152);
    EXPECT_EQ(Bars()[1].box.top, 220 - 1);
}

TEST_F(StackedBars3d, FollowEachOtherByTheScaleOfLines) {
    AddGroups({30, 50, 50});  // 45 and 76 pixels, and as many again
    AddGroups({0.1, 100});
    Draw();
    EXPECT_EQ(BarBoxes(), (std::vector<Box>{{92, 175, 388, 220},
                                            {92, 99, 388, 175},
                                            {92, 68, 388, 99},
                                            {463, 219, 759, 220},
                                            {463, 68, 759, 219},
                                            {463, 68, 759, 68}}));
    EXPECT_EQ(canvas_.polygons.size(), 12u);
}

TEST_F(StackedBars3d, CloseUpOverAMissingValue) {
    AddGroups({30, -1, 50});
    AddGroups({-1, -1, -1});
    Draw();
    EXPECT_EQ(BarBoxes(), (std::vector<Box>{{92, 175, 388, 220}, {92, 99, 388, 175}}));
}

TEST(Shades, ChangeEachChannelAsFarAsItGoes) {
    EXPECT_EQ(Lighter(0x000000, 35), 0x232323u);
    EXPECT_EQ(Lighter(0xDCDDFF, 35), 0xFFFFFFu);
    EXPECT_EQ(Lighter(0xDBDCDD, 35), 0xFEFFFFu);
    EXPECT_EQ(Darker(0xFFFFFF, 55), 0xC8C8C8u);
    EXPECT_EQ(Darker(0x383736, 55), 0x010000u);
    EXPECT_EQ(Darker(0x242322, 35), 0x010000u);
}

}  // namespace
}  // namespace tradebill::bar_series_3d_test
