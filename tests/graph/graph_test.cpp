#include "graph/graph.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "graph/graph_fixture.h"
#include "graph/graph_measures.h"
#include "paint/canvas.h"
#include "support/gbk_text.h"

namespace tradebill::graph_test {
namespace {

TEST(GraphModel, BeginsAsALineChartOfTenTicks) {
    for (const std::int32_t kind : {1, 0, 320}) {
        const CGraph graph(kind);
        EXPECT_EQ(graph.graphType, 1);  // whatever the argument
        EXPECT_EQ(graph.graphType2, 1);
        EXPECT_EQ(graph.graphAlignment, 1);
        EXPECT_EQ(graph.tickSpace, 10.0);
        EXPECT_EQ(graph.numTicks, 10);
        EXPECT_EQ(graph.minTick, 0.0);
        EXPECT_EQ(graph.maxTick, 100.0);
        EXPECT_EQ(graph.tickFontSize, 11);
        EXPECT_EQ(graph.xLabelFontSize, 11);
        EXPECT_EQ(graph.titleFontSize, 16);
        EXPECT_EQ(graph.decimalDigits, 3);
        EXPECT_EQ(graph.decimalDigits2, 2);
        EXPECT_EQ(graph.depthRatio, 0.05);
        EXPECT_EQ(graph.lineWidth, 1);
        EXPECT_EQ(graph.markerRadius, 3);
        EXPECT_EQ(graph.valueGapDivisor, 15);
        EXPECT_EQ(graph.valueDivisor, 10000.0);
        EXPECT_EQ(graph.valueDivisor2, 0.01);
        EXPECT_EQ(graph.legendKind2, 1);
        EXPECT_EQ(graph.quadSetManually, 1);
        EXPECT_EQ(graph.graphQuadType, 1);
        EXPECT_EQ(std::string(graph.unitText), Gbk("万元"));
        EXPECT_EQ(std::string(graph.unitText2), Gbk("百分比"));
        EXPECT_EQ(std::string(graph.valueSuffix), "");
        EXPECT_EQ(graph.graphTitle, "");
        EXPECT_EQ(graph.screenWidth, 1920);
    }
}

TEST(GraphModel, IsBlackWhereAGroupHasNoColor) {
    const CGraph graph(0);
    EXPECT_EQ(graph.GroupColor(-1), 0U);
    EXPECT_EQ(graph.GroupColor(0), 0U);
}

TEST(GraphModel, FindsTheFirstValueOfAGroup) {
    CGraphSeries series;
    series.seriesLabel = "01-02";
    series.SetData(0, 1.5);
    series.SetData(1, 2.5);
    series.SetData(0, 3.5);
    EXPECT_EQ(series.GetLabel(), "01-02");
    EXPECT_EQ(series.dataValues.size(), 3u);
    EXPECT_EQ(series.ValueOf(0), 1.5);
    EXPECT_EQ(series.ValueOf(1), 2.5);
    EXPECT_EQ(series.ValueOf(2), 0.0);
    EXPECT_EQ(series.FindData(2), nullptr);
}

TEST(GraphMeasures, CutPixelsTowardsZeroAndHoldThemInReach) {
    EXPECT_EQ(ToPixel(1.99), 1);
    EXPECT_EQ(ToPixel(-1.99), -1);
    EXPECT_EQ(ToPixel(1e300), kFurthestPixel);
    EXPECT_EQ(ToPixel(-1e300), -kFurthestPixel);
    EXPECT_EQ(ToPixel(std::numeric_limits<double>::infinity()), kFurthestPixel);
    EXPECT_EQ(ToPixel(std::numeric_limits<double>::quiet_NaN()), 0);
}

class GraphOfAnything : public GraphFixture {};

TEST_F(GraphOfAnything, IsSafe) {
    const double kValues[] = {
        0, -1, 1e300, -1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()};
    for (const double value : kValues) {
        for (const std::int32_t ticks : {0, -5, 1, 10, 2'000'000'000}) {
            CGraph graph(1);
            graph.numTicks = ticks;
            graph.dualAxis = 1;
            graph.graphType2 = 0;
            graph.graphHasGridLines = 1;
            graph.showValues = 1;
            graph.maxTick = value;
            graph.minTick = value;
            graph.valueDivisor = 0;
            graph.valueGapDivisor = 0;
            graph.seriesSize = 1;
            for (int i = 0; i < 4; ++i) Add(graph.graphSeries, "x", value);
            for (int i = 0; i < 3; ++i) Add(graph.graphSeries2, "", value);
            CRecordingCanvas canvas;
            graph.DrawGraph(canvas, {0, 0, ticks, 250});
        }
    }
}

TEST_F(GraphOfAnything, PaintsOnARealCanvasAndDoesNotFailWithoutASize) {
    AddPoints({1, 2, 3});
    CBitmap bitmap(0, 0, kWhite);
    const auto canvas = MakeCanvas(bitmap);
    graph_.DrawGraph(*canvas, {0, 0, 0, 0});
}

}  // namespace
}  // namespace tradebill::graph_test
