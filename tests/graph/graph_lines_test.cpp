// The line with its dots and value labels, and the secondary series, at places worked out by hand.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graph/graph_fixture.h"
#include "graph/second_bars.h"
#include "graph/value_labels.h"

namespace tradebill::graph_lines_test {
namespace {

using Points = std::vector<Point>;

constexpr Color kBlue = 0xC08000;

class GraphLines : public GraphFixture {};

// The scale is 160 pixels for 100.
TEST_F(GraphLines, PutAPointAtItsValue) {
    AddColor(kBlue);
    AddPoints({0, 50, 100, 120, -10});
    Draw();
    EXPECT_EQ(Dots(), (Points{{54, 220}, {239, 140}, {424, 60}, {609, 28}, {795, 236}}));
    EXPECT_EQ(canvas_.ellipses[1], (PaintedShape{{236, 137, 242, 143}, kThin, Brush(kBlue)}));
    const Pen pen{.width = 1, .color = kBlue};
    const auto segments = canvas_.LinesOf(pen);
    ASSERT_EQ(segments.size(), 4u);
    EXPECT_EQ(segments[0], (PaintedLine{{54, 220}, {239, 140}, pen}));
    EXPECT_EQ(segments[3], (PaintedLine{{609, 28}, {795, 236}, pen}));
}

TEST_F(GraphLines, LiftAValueJustOverTheBottom) {
    AddPoints({0.0, 0.3, 0.7});
    Draw();
    EXPECT_EQ(Dots(), (Points{{54, 220}, {424, 219}, {795, 219}}));
}

TEST_F(GraphLines, CutAPointThatWouldLeaveTheImage) {
    AddPoints({137, 138, 1e300});  // 219 and 220 pixels; then far away
    Draw();
    EXPECT_EQ(Dots(), (Points{{54, 1}, {424, 0}, {795, 220 - 165}}));
}

TEST_F(GraphLines, AreADotAloneForOnePoint) {
    graph_.showValues = 1;
    AddColor(kBlue);
    AddPoints({50});
    Draw();
    EXPECT_EQ(Dots(), (Points{{54, 140}}));
    EXPECT_TRUE(canvas_.LinesOf({.width = 1, .color = kBlue}).empty());
    EXPECT_EQ(canvas_.PlacesOf("50").size(), 1u);  // the tick's
}

TEST_F(GraphLines, PaintNothingWithoutGroups) {
    AddPoints({1, 2});
    graph_.seriesSize = 0;
    Draw();
    EXPECT_TRUE(canvas_.ellipses.empty());
    EXPECT_EQ(canvas_.PlacesOf("01-02").size(), 2u);
}

TEST_F(GraphLines, AreBlackBeyondTheListOfColors) {
    AddPoints({1, 2});
    Draw();
    EXPECT_EQ(canvas_.ellipses[0].brush, Brush(0));
}

TEST_F(GraphLines, LabelValuesAboveTheirPoints) {
    graph_.showValues = 1;
    AddPoints({51, 52, 53, 54, 55});
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("51"), Points{});  // never the first
    // 52 stands at y 220 - 83; radius 3, text 11 high, 5 apart.
    EXPECT_EQ(canvas_.PlacesOf("52"), (Points{{233, 137 - 19}}));
    EXPECT_EQ(canvas_.PlacesOf("53"), (Points{{418, 136 - 19}}));
    EXPECT_EQ(canvas_.PlacesOf("55"), (Points{{789, 132 - 19}}));
}

TEST_F(GraphLines, KeepTheirLabelsApartByTheScreen) {
    graph_.showValues = 1;
    graph_.valueDivisor = 1;
    AddPoints(std::vector<double>(31, 77.0));  // 24.7 pixels apart, 1920 / 15 = 128 at least
    Draw();
    const Points wide = canvas_.PlacesOf("77");
    ASSERT_GT(wide.size(), 3u);
    for (std::size_t i = 1; i + 1 < wide.size(); ++i) EXPECT_GT(wide[i].x - wide[i - 1].x, 128);
    EXPECT_EQ(wide.back().x, 795 - 6);  // the last one always has its chance
    CRecordingCanvas narrow;
    graph_.screenWidth = 960;
    graph_.DrawGraph(narrow, {0, 0, 825, 250});
    EXPECT_GT(narrow.PlacesOf("77").size(), wide.size());
}

TEST_F(GraphLines, OverlapOnlyWhereTheyShareAPixel) {
    EXPECT_TRUE(Overlap({0, 0, 10, 10}, {9, 9, 20, 20}));
    EXPECT_FALSE(Overlap({0, 0, 10, 10}, {10, 0, 20, 10}));
    EXPECT_FALSE(Overlap({0, 0, 10, 10}, {5, 5, 5, 8}));
    EXPECT_FALSE(Overlap({}, {0, 0, 10, 10}));
}

TEST_F(GraphLines, ShowNothingForZero) {
    EXPECT_EQ(ShownValue(0.0, 1, 2), "");
    EXPECT_EQ(ShownValue(1.1920928955078125e-07, 1, 2), "0.00");
    EXPECT_EQ(ShownValue(-1.1e-07, 1, 2), "");
    EXPECT_EQ(ShownValue(12345678, 10000, 3), "1234.568");
}

class SecondSeries : public GraphFixture {
protected:
    SecondSeries() {
        graph_.dualAxis = 1;
        graph_.graphType2 = 0;
        graph_.maxTick2 = 1.0;
        graph_.tickSpace2 = 0.1;
        graph_.color2Low = 0x00C000;
        graph_.color2High = 0x0000E0;
        graph_.legendKind2 = 0;  // no second title, which leaves the plot its full height
        AddPoints({10, 20, 30});
    }
    void AddBars(const std::vector<double>& values) {
        for (const double value : values) Add(graph_.graphSeries2, "", value);
    }
};

// 210 pixels in 11 rows of 19: 190 high, bars 10 less. "100.00" (36) is as wide as the caption: points at 54, 406, 759.
TEST_F(SecondSeries, BarsStandBetweenThePoints) {
    AddBars({0.5, 0.75});
    Draw();
    ASSERT_EQ(layout_.yAxisHeight, 190);
    ASSERT_EQ(layout_.xAxisWidth, 715);
    ASSERT_EQ(Bars().size(), 2u);
    // (406 - 54) / 6 = 58 from either side; 0.5 of 180 is 90, and 50 is not over 50.
    EXPECT_EQ(Bars()[0], (PaintedShape{{54 + 58, 130, 406 - 58, 220}, kThin, Brush(0x00C000)}));
    EXPECT_EQ(Bars()[1], (PaintedShape{{406 + 58, 85, 759 - 58, 220}, kThin, Brush(0x0000E0)}));
}

TEST_F(SecondSeries, BarsHaveTheirBounds) {
    AddBars({0.0001, 2.0});
    Draw();
    ASSERT_EQ(Bars().size(), 2u);
    EXPECT_EQ(Bars()[0].box.top, 219);        // just over the bottom
    EXPECT_EQ(Bars()[1].box.top, 220 - 190);  // held to the axis
}

TEST_F(SecondSeries, BarsAreLeftOutFromMinusOneDown) {
    AddBars({-1.0, 0.0});
    Draw();
    ASSERT_EQ(Bars().size(), 1u);
    EXPECT_EQ(Bars()[0].box, (Box{464, 220, 701, 220}));
}

TEST_F(SecondSeries, BarsNeedOneLessThanThePoints) {
    AddBars({0.5});
    Draw();
    EXPECT_TRUE(Bars().empty());
}

TEST_F(SecondSeries, LineTakesTheColorOfEachPoint) {
    graph_.graphType2 = 1;
    graph_.seriesSize2 = 1;
    graph_.seriesSize = 0;
    AddBars({0.2, 0.5, 0.6});
    Draw();
    ASSERT_EQ(canvas_.ellipses.size(), 3u);
    EXPECT_EQ(canvas_.ellipses[1].brush, Brush(0x00C000));
    EXPECT_EQ(canvas_.ellipses[2].brush, Brush(0x0000E0));
    EXPECT_EQ(canvas_.ellipses[1].box, (Box{403, 220 - 95 - 3, 409, 220 - 95 + 3}));
    const Pen high{.width = 1, .color = 0x0000E0};
    EXPECT_EQ(canvas_.LinesOf(high), (std::vector<PaintedLine>{{{406, 125}, {759, 106}, high}}));
}

// Rows of 174 / 6 = 29 pixels: -26 - 14.5 is cut to -40.
TEST_F(GraphLines, CutLyingPointsTowardsZero) {
    graph_.graphAlignment = 0;
    AddPoints({1, 1, 1, 1, 1, 1});
    Draw({0, -250, 825, 0});
    EXPECT_EQ(Dots().front(), (Point{5 + 7, -26 - 14}));
}

TEST_F(GraphLines, CollectTheirPointsAlikeForAllKinds) {
    AddPoints({1, 2});
    for (const std::int32_t kind : {1, 30, 31, 320}) {
        graph_.graphType = kind;
        graph_.fillArea = 1;
        layout_.xApexPoint = 54;
        layout_.xAxisWidth = 751;
        EXPECT_EQ(PointXOf(graph_, layout_), (std::vector<std::int32_t>{54, 795})) << kind;
    }
}

}  // namespace
}  // namespace tradebill::graph_lines_test
