// Ribbons in a box of 743 by 152 pixels, 8 deep. Three positions stand 743 / 3 + 1 = 248 apart, the first at 54 + 248.
#include <gtest/gtest.h>

#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill::line_series_3d_test {
namespace {

constexpr Color kRed = 0x1020F0;
constexpr Color kLight = 0x3343FF;  // 35 more of each channel, up to 255
constexpr Color kDark = 0x0000B9;   // 55 less, down to 0
constexpr Pen kOutline{.width = 2, .color = 0};
using Points = std::vector<Point>;

class Line3d : public GraphFixture {
protected:
    Line3d() {
        graph_.graphType = kLine3dGraph;
        AddColor(kRed);
    }
};

TEST_F(Line3d, IsARibbonAsDeepAsTheBox) {
    for (const double value : {50.0, 100.0, 25.0}) AddGroups({value});
    Draw();
    EXPECT_EQ(canvas_.polygons,
              (std::vector<PaintedPolygon>{{{{302, 144}, {550, 68}, {558, 60}, {310, 136}}, kThin, kLight},
                                           {{{550, 68}, {798, 182}, {806, 174}, {558, 60}}, kThin, kLight}}));
}

TEST_F(Line3d, IsOutlinedAllRoundFirst) {
    for (const double value : {50.0, 100.0}) AddGroups({value});
    Draw();  // 743 / 2 + 1 = 372 apart
    const auto lines = canvas_.LinesOf(kOutline);
    EXPECT_EQ(lines, (std::vector<PaintedLine>{{{434, 136}, {426, 144}, kOutline},
                                               {{426, 144}, {798, 68}, kOutline},
                                               {{798, 68}, {806, 60}, kOutline},
                                               {{806, 60}, {434, 136}, kOutline}}));
}

// Fifteen positions stand 50 apart. 33 is 50 pixels high, 34 is 51 and 32 is 48.
TEST_F(Line3d, IsShadedByItsSlope) {
    for (const double value : {0.0, 33.0, 0.0, 34.0, 0.0, 32.0, 32.0, 0.0}) AddGroups({value});
    for (int i = 0; i < 7; ++i) AddGroups({0});
    Draw();
    const Brush kBrushes[] = {std::nullopt, kLight, kDark, kLight, kLight, kLight, kLight};
    ASSERT_EQ(canvas_.polygons.size(), 14u);
    for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(canvas_.polygons[i].brush, kBrushes[i]) << i;
}

// Layers of 8 / 2 = 4: the first group lies behind.
TEST_F(Line3d, HasALayerForEachGroup) {
    AddGroups({0, 0});
    AddGroups({0, 0});
    Draw();
    ASSERT_EQ(canvas_.polygons.size(), 2u);
    EXPECT_EQ(canvas_.polygons[0].corners, (Points{{430, 216}, {802, 216}, {806, 212}, {434, 212}}));
    EXPECT_EQ(canvas_.polygons[1].corners, (Points{{426, 220}, {798, 220}, {802, 216}, {430, 216}}));
    EXPECT_EQ(canvas_.polygons[1].brush, Brush(0x232323));
}

TEST_F(Line3d, BeginsEachGroupWithAShift) {
    graph_.depthShiftX = 5;
    graph_.depthShiftY = -3;
    AddGroups({-1, 0});
    AddGroups({0, 0});
    AddGroups({0, 0});
    Draw();
    ASSERT_EQ(canvas_.polygons.size(), 3u);
    EXPECT_EQ(canvas_.polygons[0].corners, (Points{{559, 213}, {802, 216}, {806, 212}, {563, 209}}));
    EXPECT_EQ(canvas_.polygons[1].corners, (Points{{307, 217}, {550, 220}, {554, 216}, {311, 213}}));
    EXPECT_EQ(canvas_.polygons[2].corners, (Points{{550, 220}, {798, 220}, {802, 216}, {554, 216}}));
}

TEST_F(Line3d, BridgesAMissingValue) {
    for (const double value : {0.0, -1.0, 0.0}) AddGroups({value});
    Draw();
    ASSERT_EQ(canvas_.polygons.size(), 1u);
    EXPECT_EQ(canvas_.polygons[0].corners, (Points{{302, 220}, {798, 220}, {806, 212}, {310, 212}}));
}

TEST_F(Line3d, IsNoneForOnePosition) {
    AddGroups({50});
    Draw();
    EXPECT_TRUE(canvas_.polygons.empty());
}

}  // namespace
}  // namespace tradebill::line_series_3d_test
