// Frame, title, grid, axes and labels of an upright chart, each at the place worked out by hand.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "graph/graph_fixture.h"
#include "paint/canvas.h"
#include "support/gbk_text.h"

namespace tradebill::plain_axes_test {
namespace {

using Points = std::vector<Point>;
using Lines = std::vector<PaintedLine>;

class GraphAxes : public GraphFixture {};

// 825 by 250: the unit caption of 4 bytes (24) is wider than "100" (18), so the Y axis stands at 10 + 24 + 20. The X
// axis stands at 250 - 30. Of the 210 pixels above it the title takes 10 + 16, so that 11 rows of 184 / 11 = 16 are
// left.
TEST_F(GraphAxes, StandWhereTheMeasuresPutThem) {
    AddPoints({10, 20});
    Draw();
    EXPECT_EQ(layout_.maxWidth, 825);
    EXPECT_EQ(layout_.maxHeight, 250);
    EXPECT_EQ(layout_.xApexPoint, 54);
    EXPECT_EQ(layout_.axisBottom, 220);
    EXPECT_EQ(layout_.plotHeight, 184);
    EXPECT_EQ(layout_.xAxisWidth, 751);
    EXPECT_EQ(layout_.yApexPoint, 220);
    EXPECT_EQ(layout_.yAxisHeight, 160);
    EXPECT_EQ(canvas_.LinesOf(kAxis), (Lines{{{54, 220}, {54, 44}, kAxis}, {{54, 220}, {810, 220}, kAxis}}));
    ASSERT_EQ(canvas_.rectangles.size(), 1u);
    EXPECT_EQ(canvas_.rectangles[0], (PaintedShape{{0, 0, 825, 250}, {.width = 1, .color = 0x383838}, kWhite}));
}

TEST_F(GraphAxes, KeepSpareRowsAsTold) {
    graph_.topRowMode = 1;
    graph_.baseRow = 1;
    AddPoints({10, 20});
    Draw();  // 12 rows of 184 / 12 = 15
    EXPECT_EQ(layout_.yAxisHeight, 150);
    EXPECT_EQ(layout_.yApexPoint, 205);
    EXPECT_EQ(canvas_.LinesOf(kAxis),
              (Lines{{{54, 220}, {54, 40}, kAxis}, {{54, 220}, {810, 220}, kAxis}, {{54, 41}, {810, 41}, kAxis}}));
}

TEST_F(GraphAxes, CloseTheRightBorder) {
    graph_.rightBorder = 1;
    AddPoints({10, 20});
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kAxis),
              (Lines{{{54, 220}, {54, 44}, kAxis}, {{54, 220}, {795, 220}, kAxis}, {{795, 45}, {795, 220}, kAxis}}));
}

TEST_F(GraphAxes, GrowWithoutATitle) {
    graph_.graphTitle.clear();
    Draw();
    EXPECT_EQ(layout_.plotHeight, 210);
    EXPECT_EQ(layout_.yAxisHeight, 190);
}

TEST_F(GraphAxes, ScaleFixedDistances) {
    graph_.dpi = 192;
    Draw();
    EXPECT_EQ(layout_.axisBottom, 250 - 60);
    EXPECT_EQ(layout_.plotHeight, 190 - 20 - 20 - 16);
}

TEST_F(GraphAxes, CentreTheTitleByTheWidthOfItsBytes) {
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("Equity"), (Points{{412 - 3 * 6, 10}}));
    EXPECT_EQ(canvas_.texts[0].color, 0u);
    EXPECT_EQ(canvas_.texts[0].font.cellHeight, 16);
    EXPECT_EQ(canvas_.texts[0].font.weight, 700);
}

TEST_F(GraphAxes, LabelEveryTick) {
    Draw();
    for (std::int32_t tick = 0; tick <= 10; ++tick) {
        const std::string text = std::to_string(tick * 10);
        const auto width = static_cast<std::int32_t>(text.size()) * 6;
        const std::int32_t y = 220 - 16 * tick;
        EXPECT_EQ(canvas_.PlacesOf(text), (Points{{54 - width - 10, y - 5}})) << text;
        EXPECT_EQ(canvas_.LinesOf(kThin)[static_cast<std::size_t>(tick)], (PaintedLine{{51, y}, {57, y}, kThin}));
    }
    EXPECT_EQ(canvas_.LinesOf(kThin).back().from.y, 60);
}

TEST_F(GraphAxes, WriteTheUnitTransparentAboveTheAxis) {
    Draw();
    const std::string caption = Gbk(" 万元 ");
    EXPECT_EQ(canvas_.PlacesOf(caption), (Points{{54 - 36, 36}}));
    for (const PaintedText& text : canvas_.texts) {
        if (text.text != caption) continue;
        EXPECT_EQ(text.background, TextBackground::Transparent);
    }
    CRecordingCanvas without;
    graph_.unitText[0] = '\0';
    graph_.DrawGraph(without, {0, 0, 825, 250});
    LayOut();
    EXPECT_EQ(without.PlacesOf("  "), Points{});
    EXPECT_EQ(layout_.xApexPoint, 10 + 18 + 20);  // now the tick texts are the widest
}

TEST_F(GraphAxes, DrawTheGridThroughTicksAndPoints) {
    graph_.graphHasGridLines = 1;
    AddPoints({1, 2, 3, 4, 5});
    Draw();
    const Lines grid = canvas_.LinesOf(kGridPen);
    ASSERT_EQ(grid.size(), 11u + 4u);
    for (std::int32_t tick = 0; tick <= 10; ++tick) {
        const std::int32_t y = 220 - 16 * tick;
        EXPECT_EQ(grid[static_cast<std::size_t>(tick)], (PaintedLine{{54, y}, {795, y}, kGridPen}));
    }
    const std::int32_t kX[] = {239, 424, 609, 795};  // 741 / 4 = 185.25 apart; the first point has the axis
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(grid[11 + i], (PaintedLine{{kX[i], 60}, {kX[i], 220}, kGridPen}));
    }
}

TEST_F(GraphAxes, DrawAThickRowInTheMiddle) {
    graph_.graphHasGridLines = 1;
    graph_.midLineThick = 1;
    Draw();
    const Pen thick{.width = 3, .color = 0xD7D7D7};
    EXPECT_EQ(canvas_.LinesOf(thick), (Lines{{{54, 140}, {795, 140}, thick}}));
    EXPECT_EQ(canvas_.LinesOf(kGridPen).back().to.x, 795);
}

/// Positions, counted from 1, that have a label in a chart of `count` points.
std::vector<std::size_t> Labelled(std::size_t count, std::size_t labelLength = 5) {
    CGraph graph(1);
    for (std::size_t i = 1; i <= count; ++i) {
        auto series = std::make_unique<CGraphSeries>();
        series->seriesLabel = "#" + std::to_string(i);
        series->seriesLabel.resize(labelLength, '.');
        graph.graphSeries.push_back(std::move(series));
    }
    CRecordingCanvas canvas;
    graph.DrawGraph(canvas, {0, 0, 825, 250});
    std::vector<std::size_t> positions;
    for (const PaintedText& text : canvas.texts) {
        if (text.text.starts_with('#')) positions.push_back(std::stoul(text.text.substr(1)));
    }
    return positions;
}

TEST_F(GraphAxes, ThinOutTheLabels) {
    using Positions = std::vector<std::size_t>;
    EXPECT_EQ(Labelled(0), Positions{});
    EXPECT_EQ(Labelled(1), Positions{1});
    EXPECT_EQ(Labelled(2), (Positions{1, 2}));
    EXPECT_EQ(Labelled(5), (Positions{1, 2, 3, 4, 5}));
    EXPECT_EQ(Labelled(6), (Positions{1, 3, 5, 6}));
    EXPECT_EQ(Labelled(9), (Positions{1, 3, 5, 7, 9}));
    EXPECT_EQ(Labelled(10), (Positions{1, 3, 5, 7, 9, 10}));
    EXPECT_EQ(Labelled(15), (Positions{1, 4, 7, 10, 13, 15}));
    EXPECT_EQ(Labelled(250), (Positions{1, 51, 101, 151, 201, 250}));
    EXPECT_EQ(Labelled(10, 30), (Positions{1, 3, 5, 7, 9}));  // the last one finds no room
}

TEST_F(GraphAxes, CentreLabelsUnderTheirPoints) {
    AddPoints({1, 2, 3, 4, 5});
    Draw();
    EXPECT_EQ(canvas_.PlacesOf("01-02"), (Points{{39, 228}, {224, 228}, {409, 228}, {594, 228}, {780, 228}}));
    EXPECT_EQ(canvas_.LinesOf(kThin)[11 + 4].from.x, 795);
}

TEST_F(GraphAxes, DropLabelsThatWouldCollide) {
    graph_.avoidLabelOverlap = 1;
    AddPoints(std::vector<double>(60, 1.0));  // 12.6 pixels apart, labels 30 wide
    Draw();
    const Points places = canvas_.PlacesOf("01-02");
    ASSERT_GT(places.size(), 10u);
    for (std::size_t i = 1; i < places.size(); ++i) EXPECT_GE(places[i].x, places[i - 1].x + 30);
}

TEST_F(GraphAxes, HaveARightOneForTheSecondSeries) {
    graph_.dualAxis = 1;
    graph_.graphTitle2 = "Use";
    graph_.maxTick2 = 1.0;
    graph_.tickSpace2 = 0.1;
    graph_.decimalDigits2 = 0;
    CopyField(graph_.valueSuffix2, "%");
    AddPoints({10, 20});
    Draw();
    // The caption of 6 bytes (36) is wider than "100%" (24): 751 - 36. The title takes 11 now: 189 / 11 = 17.
    EXPECT_EQ(layout_.xAxisWidth, 715);
    EXPECT_EQ(layout_.yAxisHeight, 170);
    const std::int32_t right = 715 + 54 - 10;
    EXPECT_EQ(
        canvas_.LinesOf(kAxis),
        (Lines{{{54, 220}, {54, 33}, kAxis}, {{54, 220}, {right, 220}, kAxis}, {{right, 220}, {right, 33}, kAxis}}));
    EXPECT_EQ(canvas_.PlacesOf("0%"), (Points{{right + 10, 215}}));
    EXPECT_EQ(canvas_.PlacesOf("100%"), (Points{{right + 10, 45}}));
    EXPECT_EQ(canvas_.PlacesOf(Gbk(" 百分比 ")), (Points{{right, 220 - 189}}));
    EXPECT_EQ(canvas_.PlacesOf("Equity"), (Points{{10 + 40 + 10, 10}}));
    EXPECT_EQ(canvas_.PlacesOf("Use"), (Points{{10 + 40 + 36 + 25 + 40 + 10, 10}}));
}

TEST_F(GraphAxes, GrowWithoutASwatchTitleToo) {
    graph_.graphTitle.clear();
    graph_.swatchTitle = 1;
    Draw();
    EXPECT_EQ(layout_.plotHeight, 210);
    graph_.dualAxis = 1;
    Draw();
    EXPECT_EQ(layout_.plotHeight, 210);
}

}  // namespace
}  // namespace tradebill::plain_axes_test
