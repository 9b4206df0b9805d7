// The secondary series on axes whose every pixel is set by hand: from (0, 100), points 31 apart, the axis 110 high.
#include <gtest/gtest.h>

#include <vector>

#include "graph/graph_fixture.h"
#include "graph/line_series.h"
#include "graph/second_bars.h"

namespace tradebill::second_bars_test {
namespace {

using Points = std::vector<Point>;

class SecondSeriesByHand : public GraphFixture {
protected:
    SecondSeriesByHand() {
        layout_.xAxisWidth = 72;
        layout_.yApexPoint = 100;
        layout_.yAxisHeight = 110;
        graph_.maxTick2 = 1.0;
        graph_.showValues = 1;
        graph_.seriesSize2 = 1;
        AddPoints({1, 2, 3});
    }
    void AddSecond(const std::vector<double>& values) {
        for (const double value : values) Add(graph_.graphSeries2, "", value);
    }
};

TEST_F(SecondSeriesByHand, KnowsThePointsOfTheLine) {
    EXPECT_EQ(PointXOf(graph_, layout_), (std::vector<std::int32_t>{0, 31, 62}));
}

// Bars of half of 100; a sixth of 31 is left free at either side.
TEST_F(SecondSeriesByHand, StandsInTheGaps) {
    graph_.showValues = 0;
    AddSecond({0.5, 0.25});
    DrawSecondBars(canvas_, graph_, layout_);
    ASSERT_EQ(canvas_.rectangles.size(), 2u);
    EXPECT_EQ(canvas_.rectangles[0].box, (Box{5, 50, 26, 100}));
    EXPECT_EQ(canvas_.rectangles[1].box, (Box{36, 75, 57, 100}));
}

// "50.00" is 30 wide: in a gap of 31 it would begin at the point itself.
TEST_F(SecondSeriesByHand, LabelsWhatIsNarrowerThanItsGap) {
    AddSecond({0.5, 0.5});
    DrawSecondBars(canvas_, graph_, layout_);
    EXPECT_EQ(canvas_.PlacesOf("50.00"), Points{});
    layout_.xAxisWidth = 74;  // 32 apart
    DrawSecondBars(canvas_, graph_, layout_);
    EXPECT_EQ(canvas_.PlacesOf("50.00"), (Points{{1, 45}, {33, 45}}));  // without a font of their own, 0 high
    EXPECT_EQ(canvas_.texts[0].background, TextBackground::Transparent);
}

TEST_F(SecondSeriesByHand, WalksTheGroupsOfTheFirst) {
    graph_.seriesSize = 3;
    graph_.seriesSize2 = 0;
    AddSecond({0.5, 0.5});
    DrawSecondBars(canvas_, graph_, layout_);
    EXPECT_EQ(canvas_.rectangles.size(), 6u);
}

TEST_F(SecondSeriesByHand, CutsALineThatWouldLeaveTheImage) {
    layout_.yAxisHeight = 100;
    AddSecond({0.0, 1.0, 1.01});
    DrawSecondLine(canvas_, graph_, layout_);
    EXPECT_EQ(Dots(), (Points{{0, 100}, {31, 0}, {62, -5}}));
}

TEST_F(SecondSeriesByHand, DoesNotLiftItsLine) {
    layout_.yAxisHeight = 10;
    AddSecond({0.05});
    DrawSecondLine(canvas_, graph_, layout_);
    EXPECT_EQ(Dots(), (Points{{0, 100}}));
}

TEST_F(SecondSeriesByHand, HasPointsOfItsOwnNumber) {
    AddSecond({0.0, 0.0});
    DrawSecondLine(canvas_, graph_, layout_);
    EXPECT_EQ(Dots(), (Points{{0, 100}, {62, 100}}));
}

TEST_F(SecondSeriesByHand, HasNoLineWithoutGroups) {
    graph_.seriesSize2 = 0;
    AddSecond({0.5, 0.5});
    DrawSecondLine(canvas_, graph_, layout_);
    EXPECT_TRUE(canvas_.ellipses.empty());
}

}  // namespace
}  // namespace tradebill::second_bars_test
