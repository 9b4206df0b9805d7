// How rectangles of several sizes are shared out. The plain chart of 825 by 250 has its Y axis at 54, its X axis at 220
// and 751 by 160 pixels between.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "graph/axis_titles.h"
#include "graph/graph_fixture.h"
#include "graph/graph_measures.h"
#include "paint/canvas.h"
#include "paint/font.h"

namespace tradebill::graph_layout_test {
namespace {

class LaidOutGraph : public GraphFixture {};

TEST_F(LaidOutGraph, FollowsTheRectangle) {
    Draw({100, 50, 925, 300});
    EXPECT_EQ(layout_.outline, (Box{100, 50, 925, 300}));
    EXPECT_EQ(layout_.maxWidth, 825);
    EXPECT_EQ(layout_.maxHeight, 250);
    EXPECT_EQ(layout_.xApexPoint, 154);
    EXPECT_EQ(layout_.axisBottom, 270);
    EXPECT_EQ(layout_.yApexPoint, 270);
    EXPECT_EQ(layout_.plotHeight, 184);
    EXPECT_EQ(layout_.xAxisWidth, 751);
    EXPECT_EQ(layout_.yAxisHeight, 160);
}

TEST_F(LaidOutGraph, LeavesRoomForTheYTitle) {
    graph_.axisYLabel = "Yuan.";  // 30 wide, half as much again left free
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 99);
    EXPECT_EQ(layout_.xAxisWidth, 706);
    graph_.axisYLabel = "Yu";
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 54 + 18);
}

TEST_F(LaidOutGraph, LeavesRoomForTheXTitle) {
    graph_.axisXLabel = "Day";
    Draw();
    EXPECT_EQ(layout_.axisBottom, 250 - 11 - 35);
    EXPECT_EQ(layout_.plotHeight, 204 - 10 - 26);
    graph_.dpi = 192;
    Draw();
    EXPECT_EQ(layout_.axisBottom, 250 - 11 - 70);
}

TEST_F(LaidOutGraph, LeavesRoomForTurnedLabels) {
    graph_.axisXLabel = "Day";  // takes no part
    graph_.xAxisLabelLength = 10;
    for (const std::int32_t degrees : {90, 180, -45}) {
        graph_.xAxisAlign = degrees;
        Draw();
        EXPECT_EQ(layout_.axisBottom, 250 - 10 * 5 - 15);
    }
    Draw({0, 40, 825, 290});
    EXPECT_EQ(layout_.axisBottom, 290 - 10 * 5 - 15);
}

TEST_F(LaidOutGraph, LooksAtAllTicksButTheLowest) {
    graph_.minTick = -1'000'000;  // 8 bytes
    graph_.tickSpace = 1'000'000;
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 10 + 7 * 6 + 20);  // of 9000000
    graph_.minTick = 0;
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 10 + 8 * 6 + 20);
    CopyField(graph_.valueSuffix, "!!");
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 10 + 10 * 6 + 20);
}

// With real fonts a minus sign is narrower than a digit.
TEST_F(LaidOutGraph, MeasuresTheLastOfEquallyLongNumbers) {
    struct {
        double lowest, space;
        std::string_view last;
    } const kCases[] = {{-120, 110, "100"}, {210, -110, "-10"}};  // of -10 and 100, of 100 and -10
    graph_.unitText[0] = '\0';
    graph_.numTicks = 2;
    CBitmap bitmap(1, 1, kWhite);
    for (const auto& row : kCases) {
        graph_.minTick = row.lowest;
        graph_.tickSpace = row.space;
        const GraphLayout layout = LayOutGraph(*MakeCanvas(bitmap), graph_, kUsualRect);
        EXPECT_EQ(layout.xApexPoint, 30 + MeasureText(ChartFont(kTahoma, 11), row.last).width) << row.last;
    }
}

TEST_F(LaidOutGraph, MeasuresTheRightAxisByItsDivisor) {
    graph_.dualAxis = 1;
    graph_.unitText2[0] = '\0';
    graph_.maxTick2 = 1.0;
    graph_.tickSpace2 = 0.1;
    Draw();
    EXPECT_EQ(layout_.xAxisWidth, 751 - 36);  // of 100.00
    graph_.valueDivisor2 = 1.0;
    Draw();
    EXPECT_EQ(layout_.xAxisWidth, 751 - 24);  // of 1.00, though 100.00 is written
    EXPECT_TRUE(canvas_.FindText("100.00"));
    graph_.dualAxis = 2;
    Draw();
    EXPECT_EQ(layout_.xAxisWidth, 751);
}

TEST_F(LaidOutGraph, SharesRowsOutInWholePixels) {
    struct {
        std::int32_t topRowMode, baseRow, yAxisHeight, yApexPoint;
    } const kCases[] = {
        {0, 0, 160, 220},        // 184 / 11
        {1, 0, 160, 220},        //
        {2, 0, 180, 220},        // 184 / 10
        {-1, 1, 160, 220 - 16},  // 184 / 11
        {0, 1, 150, 220 - 15},   // 184 / 12
        {1, 1, 150, 220 - 15},   //
        {1, 2, 160, 220},        //
    };
    for (const auto& row : kCases) {
        graph_.topRowMode = row.topRowMode;
        graph_.baseRow = row.baseRow;
        Draw();
        EXPECT_EQ(layout_.yAxisHeight, row.yAxisHeight);
        EXPECT_EQ(layout_.yApexPoint, row.yApexPoint);
        EXPECT_EQ(layout_.axisBottom, 220);
    }
}

TEST_F(LaidOutGraph, GoesOnWithMeasuresUnderZero) {
    Draw({0, 0, 20, 20});
    EXPECT_EQ(layout_.xAxisWidth, -54);
    EXPECT_EQ(layout_.axisBottom, -10);
    EXPECT_EQ(layout_.plotHeight, -46);
    EXPECT_EQ(layout_.yAxisHeight, -40);  // rows of -46 / 11 = -4
}

// Numbers of three bytes take 3 * 5 pixels; the font of the axis titles is 16 high.
TEST_F(LaidOutGraph, HasFixedMarginsForLyingBars) {
    graph_.graphType = kBarGraph;
    graph_.graphAlignment = 0;
    graph_.xAxisLabelLength = 8;
    graph_.axisYLabel = "Yuan";  // stands elsewhere
    Draw({100, 50, 925, 300});
    EXPECT_EQ(layout_.xApexPoint, 153);
    EXPECT_EQ(layout_.yApexPoint, 269);
    EXPECT_EQ(layout_.yAxisHeight, 169);
    EXPECT_EQ(layout_.xAxisWidth, 745);
    EXPECT_EQ(layout_.axisBottom, layout_.yApexPoint);
    graph_.axisXLabel = "Day";
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 53 + 26);
    EXPECT_EQ(layout_.xAxisWidth, 745);
}

TEST_F(LaidOutGraph, TakesTheTickFontForLyingLines) {
    graph_.graphAlignment = 0;
    graph_.axisXLabel = "Day";
    graph_.tickFontSize = 13;
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 23 + 5);
    EXPECT_EQ(layout_.yApexPoint, 250 - 13 - 15);
    EXPECT_EQ(layout_.yAxisHeight, 172);
    EXPECT_EQ(layout_.xAxisWidth, 825 - 3 * 6 - 65);
}

TEST_F(LaidOutGraph, LeavesTheGapOfScatteredDotsForTheYTitle) {
    graph_.graphType = kScatterGraph;
    graph_.axisXLabel = "Day";
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 5);
    graph_.axisYLabel = "Yuan";
    Draw();
    EXPECT_EQ(layout_.xApexPoint, 5 + 26);
}

TEST_F(LaidOutGraph, GivesPiesAlmostAll) {
    for (const std::int32_t kind : {2, 32}) {
        graph_.graphType = kind;
        Draw({100, 50, 925, 300});
        EXPECT_EQ(layout_.xAxisWidth, 815);
        EXPECT_EQ(layout_.yAxisHeight, 200);
        EXPECT_EQ(layout_.xApexPoint, 105);
        EXPECT_EQ(layout_.yApexPoint, 295);
    }
}

TEST_F(LaidOutGraph, MovesTheApexOfFlatKindsAlone) {
    graph_.graphQuadType = 4;
    for (const std::int32_t kind : {0, 1, 4, 20, 21}) {
        graph_.graphType = kind;
        Draw();
        EXPECT_EQ(layout_.xApexPoint, 429) << kind;
        EXPECT_EQ(layout_.yApexPoint, 140) << kind;
    }
    for (const std::int32_t kind : {30, 31, 320, 5}) {
        graph_.graphType = kind;
        Draw();
        EXPECT_EQ(layout_.xApexPoint, 54) << kind;
        EXPECT_EQ(layout_.yApexPoint, 220) << kind;
    }
}

class AxisTitleFont : public GraphFixture {
protected:
    std::int32_t HeightFor(const Box& rect, std::size_t xLength, std::size_t yLength) {
        graph_.axisXLabel.assign(xLength, 'x');
        graph_.axisYLabel.assign(yLength, 'y');
        Draw(rect);
        return AxisTitleHeight(graph_, rect);
    }
};

TEST_F(AxisTitleFont, FitsTheYTitleOfAWideChart) {
    const Box wide{0, 0, 825, 250};
    EXPECT_EQ(HeightFor(wide, 500, 0), 16);
    EXPECT_EQ(HeightFor(wide, 500, 31), 16);  // 248 of 250
    EXPECT_EQ(HeightFor(wide, 500, 32), 14);  // 256, then 224
    EXPECT_EQ(HeightFor(wide, 500, 35), 14);  // 245
    EXPECT_EQ(HeightFor(wide, 500, 36), 12);  // 252, then 216
    EXPECT_EQ(HeightFor(wide, 0, 125), 4);
    EXPECT_EQ(HeightFor(wide, 0, 250), 2);
    EXPECT_EQ(HeightFor(wide, 0, 251), 0);
}

TEST_F(AxisTitleFont, FitsTheXTitleOfATallOrSquareOne) {
    EXPECT_EQ(HeightFor({0, 0, 250, 825}, 32, 500), 14);
    EXPECT_EQ(HeightFor({0, 0, 250, 250}, 32, 0), 14);
    EXPECT_EQ(HeightFor({0, 0, 250, 250}, 0, 32), 16);
    EXPECT_EQ(HeightFor({0, 0, 251, 250}, 0, 32), 14);
}

TEST_F(AxisTitleFont, WritesBothTitles) {
    AddPoints({1, 2});
    HeightFor({0, 0, 825, 250}, 3, 40);  // 12 high: 6 * 40 = 240
    const auto yTitle = canvas_.FindText(graph_.axisYLabel);
    ASSERT_TRUE(yTitle);
    EXPECT_EQ(yTitle->font.cellHeight, 12);
    // X: 54 + 40 * 6 * 1.5 = 414. Y: 250 - 11 - 35 = 204; rows of (194 - 26) / 11 = 15, of which the half is 75.
    EXPECT_EQ(yTitle->at, (Point{10, 204 - 6 - 75}));
    const auto xTitle = canvas_.FindText("xxx");
    ASSERT_TRUE(xTitle);
    EXPECT_EQ(layout_.xApexPoint, 414);
    EXPECT_EQ(xTitle->at, (Point{391 / 2 - 6 + 414, 204 + 25}));
    EXPECT_EQ(xTitle->font.cellHeight, 12);
}

}  // namespace
}  // namespace tradebill::graph_layout_test
