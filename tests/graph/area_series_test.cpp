// Bands: positions are whole steps of 751 / (N - 1), and 100 is 160 pixels high.
#include <gtest/gtest.h>

#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill::area_series_test {
namespace {

constexpr Pen kRed{.width = 1, .color = 0x0000C0};
constexpr Pen kBlue{.width = 1, .color = 0xC00000};
constexpr Color kBand = 0xBB937A;
constexpr Color kUnder = 0x62599C;
using Lines = std::vector<PaintedLine>;
using Points = std::vector<Point>;
using Polygons = std::vector<PaintedPolygon>;

class AreaSeries : public GraphFixture {
protected:
    AreaSeries() {
        graph_.fillArea = 1;
        AddColor(kRed.color);
        AddColor(kBlue.color);
    }
};

TEST_F(AreaSeries, FillsBetweenItsGroupsAndUnderTheFirst) {
    AddGroups({10, 40});
    AddGroups({20, 50});
    AddGroups({30, 60});
    Draw();
    EXPECT_EQ(canvas_.polygons, (Polygons{{{{54, 202}, {429, 186}, {429, 140}, {54, 156}}, std::nullopt, kBand},
                                          {{{429, 186}, {804, 170}, {804, 124}, {429, 140}}, std::nullopt, kBand},
                                          {{{54, 204}, {429, 188}, {429, 220}, {54, 220}}, std::nullopt, kUnder},
                                          {{{429, 188}, {804, 172}, {804, 220}, {429, 220}}, std::nullopt, kUnder}}));
    EXPECT_EQ(canvas_.LinesOf(kRed), (Lines{{{54, 204}, {429, 188}, kRed}, {{429, 188}, {804, 172}, kRed}}));
    EXPECT_EQ(canvas_.LinesOf(kBlue), (Lines{{{54, 156}, {429, 140}, kBlue}, {{429, 140}, {804, 124}, kBlue}}));
    EXPECT_TRUE(canvas_.ellipses.empty());
}

TEST_F(AreaSeries, HasABandForEachPairOfNeighbours) {
    graph_.lineWidth = 3;
    AddGroups({10, 20, 30});
    AddGroups({10, 20, 30});
    Draw();
    ASSERT_EQ(canvas_.polygons.size(), 3u);
    EXPECT_EQ(canvas_.polygons[0].corners, (Points{{54, 202}, {805, 202}, {805, 188}, {54, 188}}));
    EXPECT_EQ(canvas_.polygons[1].corners, (Points{{54, 186}, {805, 186}, {805, 172}, {54, 172}}));
    EXPECT_EQ(canvas_.polygons[2].corners, (Points{{54, 204}, {805, 204}, {805, 220}, {54, 220}}));
    const Pen third{.width = 3, .color = 0};
    EXPECT_EQ(canvas_.LinesOf(third), (Lines{{{54, 172}, {805, 172}, third}}));
}

TEST_F(AreaSeries, IsNothingForOnePosition) {
    AddGroups({10, 20});
    Draw();
    EXPECT_TRUE(canvas_.polygons.empty());
    EXPECT_TRUE(canvas_.LinesOf(kRed).empty());
    EXPECT_EQ(canvas_.PlacesOf("01-02"), (Points{{54 - 15, 228}}));
}

TEST_F(AreaSeries, HasNoBandForOneGroup) {
    AddGroups({10});
    AddGroups({20});
    Draw();
    EXPECT_EQ(canvas_.polygons, (Polygons{{{{54, 204}, {805, 188}, {805, 220}, {54, 220}}, std::nullopt, kUnder}}));
}

// The second position lacks the first group, the fourth the second one.
TEST_F(AreaSeries, LeavesAGapForAMissingValue) {
    AddGroups({10, 40});
    AddGroups({-1, 50});
    AddGroups({10, 40});
    AddGroups({10, -5});
    Draw();  // 54, 304, 554, 804
    EXPECT_EQ(canvas_.polygons, (Polygons{{{{554, 204}, {804, 204}, {804, 220}, {554, 220}}, std::nullopt, kUnder}}));
    EXPECT_EQ(canvas_.LinesOf(kRed), (Lines{{{554, 204}, {804, 204}, kRed}}));
    EXPECT_EQ(canvas_.LinesOf(kBlue), (Lines{{{54, 156}, {304, 140}, kBlue}, {{304, 140}, {554, 156}, kBlue}}));
}

TEST_F(AreaSeries, HasNoBandWhereTheUpperGroupHasAGap) {
    AddGroups({10, 40});
    AddGroups({20, -1});
    AddGroups({30, 60});
    Draw();
    EXPECT_EQ(canvas_.polygons, (Polygons{{{{54, 204}, {429, 188}, {429, 220}, {54, 220}}, std::nullopt, kUnder},
                                          {{{429, 188}, {804, 172}, {804, 220}, {429, 220}}, std::nullopt, kUnder}}));
}

TEST_F(AreaSeries, HasItsTicksAndLabelsOverTheSpareRow) {
    graph_.baseRow = 1;  // 12 rows of 15
    AddGroups({10});
    AddGroups({10});
    Draw();
    EXPECT_EQ(layout_.yApexPoint, 205);
    EXPECT_EQ(canvas_.PlacesOf("01-02"), (Points{{54 - 15, 213}, {805 - 15, 213}}));
    const Lines thin = canvas_.LinesOf(kThin);
    ASSERT_EQ(thin.size(), 11u + 2u);
    EXPECT_EQ(thin[11], (PaintedLine{{54, 202}, {54, 208}, kThin}));
    EXPECT_EQ(thin[12], (PaintedLine{{805, 202}, {805, 208}, kThin}));
}

TEST_F(AreaSeries, ThinsOutItsLabelsAsTheLineDoes) {
    for (int i = 0; i < 11; ++i) AddGroups({10});
    Draw();  // steps of 75; the eleventh falls on the interval of two
    Points places;
    for (std::int32_t i = 0; i <= 10; i += 2) places.push_back({54 + 75 * i - 15, 228});
    EXPECT_EQ(canvas_.PlacesOf("01-02"), places);
}

TEST_F(AreaSeries, TakesAnyNumberOfPoints) {
    for (int i = 0; i < 1'500; ++i) AddGroups({10, 20});
    Draw();  // steps of no pixel
    EXPECT_EQ(canvas_.polygons.size(), 2u * 1'499u);
}

TEST_F(AreaSeries, IsNothingWithoutGroups) {
    AddGroups({10});
    AddGroups({10});
    graph_.seriesSize = 0;
    Draw();
    EXPECT_TRUE(canvas_.polygons.empty());
}

}  // namespace
}  // namespace tradebill::area_series_test
