// What is painted in which case and in which state of the canvas.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "graph/graph_fixture.h"
#include "graph/graph_measures.h"
#include "graph/second_bars.h"
#include "support/gbk_text.h"

namespace tradebill::graph_steps_test {
namespace {

using Lines = std::vector<PaintedLine>;
using Points = std::vector<Point>;

class GraphSteps : public GraphFixture {};

TEST_F(GraphSteps, NeedNoPaintingToEnd) {
    auto graph = std::make_unique<CGraph>(1);
    Add(graph->graphSeries, "x", 1);
    Add(graph->graphSeries2, "y", 2);
    graph->colorList.push_back(std::make_unique<CGraphDataColor>());
    graph->colorList2.push_back(std::make_unique<CGraphDataColor>());
    graph.reset();
}

TEST_F(GraphSteps, StopBeforeTheAxesOfAnUnknownKind) {
    graph_.graphHasGridLines = 1;
    for (const std::int32_t kind : {5, -1, 22, 33, 321, std::numeric_limits<std::int32_t>::max()}) {
        CRecordingCanvas canvas;
        graph_.graphType = kind;
        EXPECT_EQ(graph_.DrawGraph(canvas, {0, 0, 825, 250}), "No graph type to display");
        EXPECT_EQ(canvas.rectangles.size(), 1u);
        EXPECT_EQ(canvas.texts.size(), 1u);  // the title
        EXPECT_EQ(canvas.LinesOf(kGridPen).size(), 11u);
        EXPECT_EQ(canvas.lines.size(), 11u);
    }
    graph_.graphType = kLineGraph;
    EXPECT_EQ(Draw(), "");
}

TEST_F(GraphSteps, HaveAMessageForNoKindThatThereIs) {
    AddPoints({1, 2});
    for (const std::int32_t kind : {0, 1, 2, 3, 4, 20, 21, 30, 31, 32, 320}) {
        graph_.graphType = kind;
        EXPECT_EQ(Draw(), "") << kind;
    }
}

TEST_F(GraphSteps, PaintTheSameTwice) {
    graph_.depthRatio = 0.25;
    graph_.dualAxis = 1;
    graph_.quadSetManually = 0;
    AddGroups({-10, 20});
    AddGroups({30, 40});
    for (const std::int32_t kind : {0, 1, 2, 3, 4, 20, 21, 30, 31, 32, 320}) {
        for (const std::int32_t alignment : {0, 1}) {
            graph_.graphType = kind;
            graph_.graphAlignment = alignment;
            CRecordingCanvas first;
            CRecordingCanvas second;
            graph_.DrawGraph(first, kUsualRect);
            graph_.DrawGraph(second, kUsualRect);
            EXPECT_EQ(second.lines, first.lines) << kind;
            EXPECT_EQ(second.rectangles, first.rectangles) << kind;
            EXPECT_EQ(second.ellipses, first.ellipses) << kind;
            EXPECT_EQ(second.pies, first.pies) << kind;
            EXPECT_EQ(second.polygons, first.polygons) << kind;
            EXPECT_EQ(second.order, first.order) << kind;
        }
    }
}

// The second swatch, then ticks; the caption of the left axis makes all texts behind it transparent.
TEST_F(GraphSteps, LeaveTextsTransparentBehindTheCaption) {
    AddPoints({1, 2});
    Draw();
    EXPECT_EQ(canvas_.FindText("Equity")->background, TextBackground::Opaque);
    EXPECT_EQ(canvas_.FindText("100")->background, TextBackground::Opaque);
    EXPECT_EQ(canvas_.FindText("01-02")->background, TextBackground::Transparent);
    CRecordingCanvas without;
    graph_.unitText[0] = '\0';
    graph_.DrawGraph(without, {0, 0, 825, 250});
    EXPECT_EQ(without.FindText("01-02")->background, TextBackground::Opaque);
}

TEST_F(GraphSteps, WriteInTheFontOfEachText) {
    graph_.tickFontSize = 13;
    graph_.xLabelFontSize = 14;
    graph_.titleFontSize = 20;
    AddPoints({1, 2});
    Draw();
    EXPECT_EQ(canvas_.FindText("Equity")->font, ChartFont(kSong, 20));
    EXPECT_EQ(canvas_.FindText("100")->font, ChartFont(kTahoma, 13));
    EXPECT_EQ(canvas_.FindText("01-02")->font, ChartFont(kTahoma, 14));
    EXPECT_EQ(canvas_.FindText(Gbk(" 万元 "))->font, ChartFont(kSong, 13));
}

TEST_F(GraphSteps, PutTheFirstSeriesOverTheSecond) {
    graph_.dualAxis = 1;
    graph_.seriesSize2 = 1;
    AddColor(0xC08000);
    AddPoints({10, 20});
    Add(graph_.graphSeries2, "", 0.1);
    Add(graph_.graphSeries2, "", 0.2);
    Draw();
    ASSERT_EQ(canvas_.ellipses.size(), 4u);
    EXPECT_EQ(canvas_.ellipses[0].brush, Brush(0));
    EXPECT_EQ(canvas_.ellipses[3].brush, Brush(0xC08000));
}

TEST_F(GraphSteps, DrawTheYTitleOnceMoreWithTheRightAxis) {
    graph_.axisYLabel = "Yuan";
    graph_.dualAxis = 1;
    graph_.legendKind2 = 0;  // leaves rows of 210 / 11 = 19
    Draw();
    const Point place{10, 220 - 8 - 95};
    EXPECT_EQ(canvas_.PlacesOf("Yuan"), (Points{place, place}));
}

TEST_F(GraphSteps, WriteTheRightCaptionThoughEmpty) {
    graph_.dualAxis = 1;
    graph_.unitText2[0] = '\0';
    Draw();
    const std::int32_t right = layout_.xApexPoint + layout_.xAxisWidth - 10;
    EXPECT_EQ(canvas_.PlacesOf("  "), (Points{{right, 220 - layout_.plotHeight}}));
    EXPECT_EQ(canvas_.FindText("  ")->background, TextBackground::Transparent);
}

TEST_F(GraphSteps, DrawNoSecondSeriesOfAnotherKind) {
    graph_.dualAxis = 1;
    graph_.graphType2 = 2;
    graph_.seriesSize2 = 1;
    AddPoints({1, 2});
    Add(graph_.graphSeries2, "", 1);
    Draw();
    EXPECT_EQ(canvas_.ellipses.size(), 2u);
    EXPECT_TRUE(Bars().empty());
    EXPECT_EQ(canvas_.LinesOf(kAxis).size(), 3u);  // with the right axis
}

TEST_F(GraphSteps, DrawTheGridOfPiesToo) {
    graph_.graphType = kPieGraph;
    graph_.graphHasGridLines = 1;
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kGridPen).size(), 11u);
}

TEST_F(GraphSteps, TurnLabelsByTheirAngle) {
    graph_.xAxisAlign = 45;
    graph_.xAxisLabelLength = 5;
    AddPoints(std::vector<double>(8, 1.0));
    graph_.seriesSize = 0;  // labels without data
    Draw();
    ASSERT_EQ(canvas_.PlacesOf("01-02").size(), 8u);  // all of them
    EXPECT_EQ(canvas_.FindText("01-02")->font, ChartFont(kTahoma, 11, 450));
    EXPECT_EQ(canvas_.PlacesOf("01-02")[0], (Point{54 - 8, 5 * 6 + layout_.yApexPoint + 8}));
    EXPECT_EQ(canvas_.PlacesOf("01-02")[7].x, 795 - 8);
    EXPECT_EQ(canvas_.LinesOf(kThin).size(), 11u);  // no ticks but the values'
}

TEST_F(GraphSteps, HangLabelsOfHalfATurnAndMore) {
    AddPoints({1});
    for (const std::int32_t degrees : {180, 270}) {
        CRecordingCanvas canvas;
        graph_.xAxisAlign = degrees;
        graph_.DrawGraph(canvas, {0, 0, 825, 250});
        LayOut();
        EXPECT_EQ(canvas.PlacesOf("01-02"), (Points{{56, layout_.yApexPoint + 8}}));
    }
    for (const std::int32_t degrees : {179, -90}) {
        CRecordingCanvas canvas;
        graph_.xAxisAlign = degrees;
        graph_.DrawGraph(canvas, {0, 0, 825, 250});
        LayOut();
        EXPECT_EQ(canvas.PlacesOf("01-02"), (Points{{46, layout_.yApexPoint + 8}}));  // nothing reserved
    }
}

// Labels 30 wide, 24.7 apart: every second one begins inside the one before.
TEST_F(GraphSteps, GiveEachPositionATickWhereLabelsAvoidOneAnother) {
    graph_.avoidLabelOverlap = 1;
    AddPoints(std::vector<double>(31, 1.0));
    graph_.seriesSize = 0;
    Draw();
    Points places;
    for (std::int32_t i = 0; i < 31; i += 2) {
        places.push_back({static_cast<std::int32_t>(741.0 / 30 * i + 54) - 15, 228});
    }
    EXPECT_EQ(canvas_.PlacesOf("01-02"), places);
    EXPECT_EQ(canvas_.LinesOf(kThin).size(), 11u + 31u);
}

// The seventh of eight points stands at 700, the last one at 808.
TEST_F(GraphSteps, LabelTheLastPointIfJustItsHalfFits) {
    AddPoints(std::vector<double>(8, 1.0));
    graph_.graphSeries[6]->seriesLabel.assign(18, 'a');  // to 700 + 54
    graph_.graphSeries[7]->seriesLabel.assign(18, 'z');
    Draw({0, 0, 838, 250});
    EXPECT_EQ(canvas_.PlacesOf(std::string(18, 'z')), (Points{{808 - 54, 228}}));
    graph_.graphSeries[7]->seriesLabel.assign(19, 'y');
    Draw({0, 0, 838, 250});
    EXPECT_EQ(canvas_.PlacesOf(std::string(19, 'y')), Points{});
}

TEST_F(GraphSteps, CountAnAbsentSecondValueAsZero) {
    graph_.dualAxis = 1;
    graph_.graphType2 = 0;
    graph_.legendKind2 = 0;
    graph_.maxTick2 = 1.0;
    graph_.tickSpace2 = 0.1;
    AddPoints({1, 2});
    graph_.graphSeries2.push_back(std::make_unique<CGraphSeries>());
    Draw();
    ASSERT_EQ(Bars().size(), 1u);
    EXPECT_EQ(Bars()[0].box.top, 220);
    EXPECT_EQ(Bars()[0].box.bottom, 220);
}

TEST_F(GraphSteps, DrawNoSecondBarsWithoutPoints) {
    graph_.dualAxis = 1;
    graph_.graphType2 = 0;
    graph_.legendKind2 = 0;
    graph_.seriesSize = 1;
    Draw();
    EXPECT_TRUE(Bars().empty());
    EXPECT_TRUE(PointXOf(graph_, layout_).empty());
}

}  // namespace
}  // namespace tradebill::graph_steps_test
