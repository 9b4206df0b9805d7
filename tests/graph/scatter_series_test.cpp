// Scattered dots. Of 825 by 250 pixels the axes have 745 by 169 from (5, 219) on, 725 and 159 of them in ticks: 72 and
// 15 pixels apart.
#include <gtest/gtest.h>

#include <vector>

#include "graph/crossed_axes.h"
#include "graph/graph_fixture.h"

namespace tradebill::scatter_series_test {
namespace {

using Points = std::vector<Point>;

class ScatterSeries : public GraphFixture {
protected:
    ScatterSeries() { graph_.graphType = kScatterGraph; }
    void AddDot(std::int32_t position, double value) {
        auto series = std::make_unique<CGraphSeries>();
        series->SetData(position, value);
        graph_.graphSeries.push_back(std::move(series));
    }
};

TEST_F(ScatterSeries, StandsAtItsTwoNumbers) {
    AddColor(0x0000C0);  // takes no part
    graph_.markerRadius = 9;
    AddDot(0, 0);
    AddDot(10, 20);
    AddDot(100, 100);
    AddDot(-10, 0.9);
    Draw();
    const CrossedMarks marks = CrossedMarksOf(graph_, layout_);
    EXPECT_EQ(layout_.xApexPoint + marks.x.back().offset, 725);
    EXPECT_EQ(layout_.yApexPoint - marks.y.back().offset, 69);
    EXPECT_EQ(Dots(), (Points{{5, 219}, {77, 189}, {725, 69}, {-67, 218}}));
    EXPECT_EQ(canvas_.ellipses[1], (PaintedShape{{74, 186, 80, 192}, kThin, Brush(0)}));
}

TEST_F(ScatterSeries, ShowsTheFirstValueOfEachAlone) {
    AddDot(10, 20);
    graph_.graphSeries[0]->SetData(30, 40);
    graph_.graphSeries.push_back(std::make_unique<CGraphSeries>());  // none at all
    Draw();
    EXPECT_EQ(Dots(), (Points{{77, 189}}));
}

TEST_F(ScatterSeries, LacksMissingValues) {
    AddDot(10, -1);
    AddDot(10, -50);
    Draw();
    EXPECT_TRUE(canvas_.ellipses.empty());
}

TEST_F(ScatterSeries, TakesTheHighestTickForBothAxes) {
    graph_.maxTick = 50;
    AddDot(10, 20);  // 14.4 and 3 pixels for 1
    Draw();
    EXPECT_EQ(Dots(), (Points{{149, 159}}));
}

TEST_F(ScatterSeries, MeasuresFromTheOriginInTheFourthQuadrant) {
    graph_.graphQuadType = 4;
    AddDot(50, 50);
    AddDot(-50, 0);
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 5 + 372);
    EXPECT_EQ(layout_.yApexPoint, 219 - 84);
    const CrossedMarks marks = CrossedMarksOf(graph_, layout_);
    EXPECT_EQ(marks.x.back().offset, 5 * 72);  // half as many ticks: (725 / 2) / 5 and (159 / 2) / 5 apart
    EXPECT_EQ(marks.y.back().offset, 5 * 15);
    EXPECT_EQ(Dots(), (Points{{377 + 180, 135 - 37}, {377 - 180, 135}}));
}

TEST_F(ScatterSeries, ReachesToTheCornerWithoutTicks) {
    graph_.numTicks = 0;
    AddDot(100, 100);
    AddDot(20, 50);
    Draw();
    EXPECT_EQ(Dots(), (Points{{0, 0}, {4, 219 - 109}}));
}

TEST_F(ScatterSeries, LiesWithItsNumbersExchanged) {
    graph_.graphAlignment = 0;
    AddDot(10, 20);
    Draw();
    EXPECT_EQ(Dots(), (Points{{5 + 144, 219 - 15}}));
}

}  // namespace
}  // namespace tradebill::scatter_series_test
