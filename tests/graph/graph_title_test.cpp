// The three forms of the title. "Equity" is 36 wide and 11 high, so a line swatch stands at y 11 / 2 + 10 and the
// second one begins at 10 + 40 + 36 + 25 = 111.
#include <gtest/gtest.h>

#include <vector>

#include "graph/graph_fixture.h"
#include "graph/graph_measures.h"

namespace tradebill::graph_title_test {
namespace {

constexpr Pen kFirst{.width = 2, .color = 0xC08000};
constexpr Pen kLow{.width = 2, .color = 0x00C000};
constexpr Pen kHigh{.width = 2, .color = 0x0000E0};
using Lines = std::vector<PaintedLine>;
using Points = std::vector<Point>;
using Shapes = std::vector<PaintedShape>;

class GraphTitle : public GraphFixture {
protected:
    GraphTitle() {
        graph_.lineWidth = 2;
        graph_.graphTitle2 = "Use";
        graph_.color2Low = kLow.color;
        graph_.color2High = kHigh.color;
        AddColor(kFirst.color);
    }
    void DrawDual(std::int32_t kind, std::int32_t legend) {
        graph_.dualAxis = 1;
        graph_.graphType2 = kind;
        graph_.legendKind2 = legend;
        Draw();
    }
};

TEST_F(GraphTitle, StandsBehindASwatch) {
    graph_.swatchTitle = 1;
    Draw();
    EXPECT_EQ(canvas_.lines[0], (PaintedLine{{10, 15}, {50, 15}, kFirst}));
    EXPECT_EQ(canvas_.PlacesOf("Equity"), (Points{{60, 10}}));
    EXPECT_EQ(canvas_.texts[0].color, 0x383838u);
    EXPECT_EQ(canvas_.texts[0].font, ChartFont(kSong, 11));
    EXPECT_EQ(canvas_.texts[0].background, TextBackground::Opaque);
    EXPECT_EQ(layout_.plotHeight, 210 - 10 - 11);
    EXPECT_EQ(canvas_.PlacesOf("Use"), Points{});
}

TEST_F(GraphTitle, HasABlackSwatchWithoutColors) {
    graph_.swatchTitle = 1;
    graph_.colorList.clear();
    Draw();
    EXPECT_EQ(canvas_.lines[0].pen, (Pen{.width = 2, .color = 0}));
}

TEST_F(GraphTitle, FollowsCornerAndResolution) {
    graph_.swatchTitle = 1;
    graph_.dpi = 192;
    Draw({100, 50, 925, 300});
    EXPECT_EQ(canvas_.lines[0], (PaintedLine{{110, 65}, {190, 65}, kFirst}));
    EXPECT_EQ(canvas_.PlacesOf("Equity"), (Points{{200, 60}}));
}

TEST_F(GraphTitle, HasASecondLine) {
    DrawDual(1, 1);
    EXPECT_EQ(canvas_.lines[0], (PaintedLine{{10, 15}, {50, 15}, kFirst}));
    EXPECT_EQ(canvas_.lines[1], (PaintedLine{{111, 15}, {151, 15}, kLow}));
    EXPECT_EQ(canvas_.PlacesOf("Use"), (Points{{161, 10}}));
    EXPECT_TRUE(canvas_.LinesOf(kHigh).empty());
    EXPECT_EQ(layout_.plotHeight, 210 - 10 - 11);
}

TEST_F(GraphTitle, HasASecondLineOfTwoColors) {
    DrawDual(1, 2);
    EXPECT_EQ(canvas_.LinesOf(kLow), (Lines{{{111, 15}, {131, 15}, kLow}}));
    EXPECT_EQ(canvas_.LinesOf(kHigh), (Lines{{{131, 15}, {151, 15}, kHigh}}));
    EXPECT_EQ(canvas_.PlacesOf("Use"), (Points{{161, 10}}));
}

TEST_F(GraphTitle, CutsHalvesOfOddSwatches) {
    graph_.dpi = 98;  // 102 per cent: 41 pixels
    DrawDual(1, 2);
    EXPECT_EQ(canvas_.LinesOf(kLow), (Lines{{{112, 15}, {132, 15}, kLow}}));
    EXPECT_EQ(canvas_.LinesOf(kHigh), (Lines{{{132, 15}, {152, 15}, kHigh}}));
    EXPECT_EQ(canvas_.PlacesOf("Use"), (Points{{162, 10}}));
}

// The base at 10 + 11 - 1.
TEST_F(GraphTitle, HasTwoBars) {
    DrawDual(0, 2);
    EXPECT_EQ(Bars(), (Shapes{{{111, 12, 119, 20}, kLow, kLow.color}, {{119, 4, 127, 20}, kHigh, kHigh.color}}));
    EXPECT_EQ(canvas_.PlacesOf("Use"), (Points{{137, 10}}));
}

TEST_F(GraphTitle, HasAFlatBarOnAPieceOfAxis) {
    DrawDual(0, 1);
    EXPECT_EQ(canvas_.LinesOf(kFirst), (Lines{{{10, 15}, {50, 15}, kFirst}, {{111, 21}, {127, 21}, kFirst}}));
    EXPECT_EQ(Bars(), (Shapes{{{111, 18, 127, 20}, kLow, kLow.color}}));
    EXPECT_EQ(canvas_.PlacesOf("Use"), (Points{{137, 10}}));
}

// Everything doubled but the gaps: the second one begins at 10 + 80 + 36 + 25.
TEST_F(GraphTitle, ScalesItsBars) {
    graph_.dpi = 192;
    DrawDual(0, 2);
    EXPECT_EQ(Bars(), (Shapes{{{151, 14, 167, 30}, kLow, kLow.color}, {{167, -2, 183, 30}, kHigh, kHigh.color}}));
    EXPECT_EQ(canvas_.PlacesOf("Use"), (Points{{193, 10}}));
    CRecordingCanvas flat;
    graph_.legendKind2 = 1;
    graph_.DrawGraph(flat, {0, 0, 825, 250});
    EXPECT_EQ(flat.rectangles[1], (PaintedShape{{151, 18, 183, 20}, kLow, kLow.color}));
}

TEST_F(GraphTitle, HasNoSecondOneForOtherLegendsAndKinds) {
    struct {
        std::int32_t kind, legend;
    } const kCases[] = {{0, 0}, {1, 3}, {1, -1}, {2, 1}, {-1, 2}};
    for (const auto& row : kCases) {
        DrawDual(row.kind, row.legend);
        EXPECT_EQ(canvas_.PlacesOf("Use"), Points{});
        EXPECT_EQ(layout_.plotHeight, 210);
    }
}

TEST_F(GraphTitle, IsCentredOnlyWithoutSwatchAndSecondAxis) {
    for (const std::int32_t other : {0, 2, -1}) {
        graph_.swatchTitle = other;
        graph_.dualAxis = other;
        canvas_.texts.clear();
        Draw();
        EXPECT_EQ(canvas_.PlacesOf("Equity"), (Points{{412 - 18, 10}}));
    }
    EXPECT_EQ(canvas_.FindText("100")->color, 0x383838u);  // the axes set it back
}

TEST_F(GraphTitle, CutsTheHalfOfItsLength) {
    graph_.graphTitle = "abcde";
    Draw({101, 50, 926, 300});
    EXPECT_EQ(canvas_.PlacesOf("abcde"), (Points{{412 - 12 + 101, 60}}));
}

}  // namespace
}  // namespace tradebill::graph_title_test
