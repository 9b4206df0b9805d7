// The pie as a disc: radius 56 around (412, 130), as the flat one; a quarter as thick as its radius.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "graph/graph_fixture.h"
#include "graph/pie_slices.h"

namespace tradebill::pie_series_3d_test {
namespace {

constexpr Color kRed = 0x1020F0;
constexpr Color kRedShade = 0x0000CD;  // 35 less of each channel
using Points = std::vector<Point>;

class Pie3dSeries : public GraphFixture {
protected:
    Pie3dSeries() {
        graph_.graphType = kPie3dGraph;
        graph_.depthRatio = 0.25;
        AddColor(kRed);
        AddColor(0x00FF00);
    }
};

/// Rounding in either direction is all that may lie between.
void ExpectNear(Point point, double x, double y) {
    EXPECT_LE(std::abs(point.x - x), 1.0) << point.x << " instead of " << x;
    EXPECT_LE(std::abs(point.y - y), 1.0) << point.y << " instead of " << y;
}

TEST_F(Pie3dSeries, LowersEachSliceByTheThickness) {
    AddGroups({25, 75});
    Draw();
    ASSERT_EQ(canvas_.pies.size(), 4u);
    EXPECT_EQ(canvas_.pies[0].box, (Box{356, 88, 468, 200}));
    EXPECT_EQ(canvas_.pies[0].brush, Brush(kRedShade));
    EXPECT_EQ(canvas_.pies[1].box, (Box{356, 88, 468, 200}));
    EXPECT_EQ(canvas_.pies[1].brush, Brush(0x00DC00));
    EXPECT_EQ(canvas_.pies[2].box, (Box{356, 74, 468, 186}));
    EXPECT_EQ(canvas_.pies[2].brush, Brush(kRed));
    EXPECT_EQ(canvas_.pies[3].box, (Box{356, 74, 468, 186}));
    EXPECT_EQ(canvas_.pies[3].brush, Brush(0x00FF00));
    for (const PaintedPie& pie : canvas_.pies) EXPECT_EQ(pie.pen, kThin);
}

TEST_F(Pie3dSeries, HasARimOfFourCornersInFrontAndThreeBehind) {
    AddGroups({25, 25, 25, 25});
    Draw();
    ASSERT_EQ(canvas_.polygons.size(), 4u);
    for (const std::size_t inFront : {0u, 1u}) EXPECT_EQ(canvas_.polygons[inFront].corners.size(), 4u);
    for (const std::size_t behind : {2u, 3u}) EXPECT_EQ(canvas_.polygons[behind].corners.size(), 3u);
    EXPECT_EQ(canvas_.polygons[0].brush, Brush(kRedShade));
}

TEST_F(Pie3dSeries, HasItsEdgesOnTheCircle) {
    AddGroups({10, 20, 30, 30, 10});
    Draw();
    ASSERT_EQ(canvas_.pies.size(), 10u);
    const double kDegrees[] = {36, 108, 216, 324, 360};
    for (std::size_t i = 0; i < 5; ++i) {
        const double angle = kDegrees[i] * 3.14159265358979 / 180;
        ExpectNear(canvas_.pies[5 + i].end, 412 - 56 * std::cos(angle), 130 + 56 * std::sin(angle));
        ExpectNear(canvas_.pies[i].end, 412 - 56 * std::cos(angle), 144 + 56 * std::sin(angle));
    }
    EXPECT_EQ(canvas_.pies[5].start, (Point{356, 129}));
}

// The factor is a little less than pi / 180, so a right angle falls just short of the radius.
TEST(PieCircle, CutsItsSines) {
    const PieCircle circle{.left = 356, .middleY = 130, .radius = 56};
    EXPECT_EQ(circle.RimPoint(0), (Point{412 - 55, 130}));
    EXPECT_EQ(circle.RimPoint(30), (Point{412 - 48, 130 + 27}));  // 48.497 and 27.99997
    EXPECT_EQ(circle.RimPoint(90), (Point{412, 130 + 55}));
    EXPECT_EQ(circle.RimPoint(180), (Point{412 + 55, 130}));
    EXPECT_EQ(circle.RimPoint(270), (Point{412, 130 - 55}));
    EXPECT_EQ(circle.RimPoint(360), (Point{356, 129}));
    EXPECT_EQ(circle.DiamondPoint(0), (Point{356, 130}));
    EXPECT_EQ(circle.DiamondPoint(360), (Point{356, 129}));
}

TEST_F(Pie3dSeries, WritesPercentagesAsTheFlatOneDoes) {
    AddGroups({50, 50});
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("50%").size(), 2u);
    EXPECT_EQ(canvas_.PlacesOf("01-02"), (Points{{392, 235}}));
    ASSERT_EQ(canvas_.lines.size(), 2u);
    ExpectNear(canvas_.lines[0].from, 412, 158);
    EXPECT_EQ(canvas_.lines[0].to.y - canvas_.lines[0].from.y, 28);
}

TEST_F(Pie3dSeries, IsNothingOfNothing) {
    AddGroups({0, -3});
    Draw();
    EXPECT_TRUE(canvas_.pies.empty());
    EXPECT_TRUE(canvas_.polygons.empty());
}

TEST_F(Pie3dSeries, PaintsTheWholeDisc) {
    AddGroups({9});
    Draw();
    ASSERT_EQ(canvas_.pies.size(), 2u);
    EXPECT_EQ(canvas_.pies[1].start, canvas_.pies[1].end);
}

TEST_F(Pie3dSeries, LeavesOutASliceTooThinToSee) {
    AddGroups({50'000, 1, 49'999});
    Draw();
    EXPECT_EQ(canvas_.pies.size(), 6u - 2u);
}

}  // namespace
}  // namespace tradebill::pie_series_3d_test
