#include "graph/graph_plane.h"

#include <gtest/gtest.h>

#include <limits>

#include "graph/graph_measures.h"

namespace tradebill::graph_plane_test {
namespace {

/// Apex at (100, 300), axes of 410 by 200.
class GraphPlane : public testing::Test {
protected:
    GraphPlane() : graph_(1) {
        layout_.xApexPoint = 100;
        layout_.yApexPoint = 300;
        layout_.xAxisWidth = 410;
        layout_.yAxisHeight = 200;
    }
    void AddPositions(std::size_t count) {
        while (graph_.graphSeries.size() < count) graph_.graphSeries.push_back(std::make_unique<CGraphSeries>());
    }
    /// On axes as the chart's settings ask for.
    [[nodiscard]] CPlotPlane Plane() {
        layout_.axes = ArrangementOf(graph_);
        return {graph_, layout_};
    }

    CGraph graph_;
    GraphLayout layout_;
};

TEST_F(GraphPlane, PutsTheLastPointTenPixelsBeforeTheEnd) {
    EXPECT_EQ(Plane().PointX(1, 1), 100);
    EXPECT_EQ(Plane().PointX(1, 4), 100);
    EXPECT_EQ(Plane().PointX(2, 4), 233);
    EXPECT_EQ(Plane().PointX(3, 4), 366);
    EXPECT_EQ(Plane().PointX(4, 4), 500);
    EXPECT_EQ(Plane().PointX(5, 4), 633);
}

TEST_F(GraphPlane, TakesWholeStepsForBands) {
    graph_.fillArea = 1;
    EXPECT_EQ(Plane().PointX(1, 1), 100);
    EXPECT_EQ(Plane().PointX(2, 1), 510);  // the width itself for one
    EXPECT_EQ(Plane().PointX(2, 4), 236);
    EXPECT_EQ(Plane().PointX(4, 4), 508);
    graph_.graphType = kBarGraph;  // has no bands
    EXPECT_EQ(Plane().PointX(4, 4), 500);
}

TEST_F(GraphPlane, KnowsItsSlots) {
    EXPECT_EQ(Plane().Slot(), 0);
    AddPositions(3);
    EXPECT_EQ(Plane().Slot(), 136);
    EXPECT_EQ(Plane().SlotMiddle(1), 68);
    EXPECT_EQ(Plane().SlotMiddle(3), 340);
    graph_.graphAlignment = 0;
    EXPECT_EQ(Plane().Slot(), 66);
}

TEST_F(GraphPlane, BeginsPositionsAtTheLeftInAllQuadrants) {
    struct {
        std::int32_t quadrant, left, bottom;
    } const kCases[] = {{1, 100, 300}, {2, -105, 300}, {3, 100, 400}, {4, -105, 400}, {0, 100, 300}, {5, 100, 300}};
    for (const auto& row : kCases) {
        graph_.graphQuadType = row.quadrant;
        EXPECT_EQ(Plane().Left(), row.left);
        EXPECT_EQ(Plane().Bottom(), row.bottom);
    }
    graph_.graphQuadType = 4;
    for (const std::int32_t kind : {0, 1, 3, 4, 20, 21}) {
        graph_.graphType = kind;
        EXPECT_EQ(Plane().Left(), -105) << kind;
    }
    for (const std::int32_t kind : {2, 5, 30, 31, 32, 320}) {
        graph_.graphType = kind;
        EXPECT_EQ(Plane().Left(), 100) << kind;
    }
}

TEST_F(GraphPlane, TurnsWhatLies) {
    EXPECT_EQ(Plane().At(5, 7), (Point{105, 293}));
    EXPECT_EQ(Plane().Bar(10, 20, 30, 40), (Box{110, 260, 130, 270}));
    graph_.graphAlignment = 0;
    EXPECT_EQ(Plane().At(5, 7), (Point{107, 295}));
    EXPECT_EQ(Plane().Bar(10, 20, 30, 40), (Box{130, 270, 140, 290}));
}

TEST_F(GraphPlane, HasTwoScales) {
    EXPECT_EQ(Plane().BarHeight(50), 95);
    EXPECT_EQ(Plane().LineHeight(50), 100);
    graph_.graphAlignment = 0;
    EXPECT_EQ(Plane().BarHeight(25), 100);
    EXPECT_EQ(Plane().LineHeight(25), 102);
}

TEST_F(GraphPlane, LiftsWhatLiesJustOverTheBottom) {
    EXPECT_EQ(Plane().LineHeight(0.0), 0);
    EXPECT_EQ(Plane().LineHeight(0.1), 2);
    EXPECT_EQ(Plane().LineHeight(0.5), 1);
    EXPECT_EQ(Plane().LineHeight(-0.4), 0);
    EXPECT_EQ(Plane().LineHeight(-0.6), -1);
    EXPECT_EQ(Plane().BarHeight(0.1), 1);
}

TEST_F(GraphPlane, CutsLinesThatWouldLeaveTheImage) {
    EXPECT_EQ(Plane().LineHeight(150), 300);
    EXPECT_EQ(Plane().LineHeight(150.6), 205);
    EXPECT_EQ(Plane().BarHeight(200), 380);
    graph_.graphAlignment = 0;
    EXPECT_EQ(Plane().LineHeight(205), 840);
}

TEST_F(GraphPlane, LimitsBarsToTheAxisOrHalfOfIt) {
    EXPECT_EQ(Plane().Limited(201), 200);
    EXPECT_EQ(Plane().Limited(200), 200);
    EXPECT_EQ(Plane().Limited(-500), -500);
    graph_.graphQuadType = 2;
    EXPECT_EQ(Plane().Limited(101), 100);
    EXPECT_EQ(Plane().Limited(-101), -100);
    EXPECT_EQ(Plane().Limited(99), 99);
    layout_.yAxisHeight = -50;  // no room
    EXPECT_EQ(Plane().Limited(7), 0);
}

TEST_F(GraphPlane, HasSomePixelForAnyScale) {
    const double kEnds[] = {0, -1, 1e300, std::numeric_limits<double>::infinity(),
                            std::numeric_limits<double>::quiet_NaN()};
    for (const double lowest : kEnds) {
        for (const double highest : kEnds) {
            graph_.minTick = lowest;
            graph_.maxTick = highest;
            for (const double value : kEnds) {
                for (const std::int32_t height : {Plane().BarHeight(value), Plane().LineHeight(value)}) {
                    EXPECT_LE(height, kFurthestPixel + 5);
                    EXPECT_GE(height, -kFurthestPixel);
                }
            }
        }
    }
}

}  // namespace
}  // namespace tradebill::graph_plane_test
