// How rectangles of several sizes are shared out. The plain chart of 825 by 250 has its Y axis at 54, its X axis at 220
// and 751 by 160 pixels between.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "graph/graph_fixture.h"
#include "graph/graph_measures.h"
#include "paint/font.h"

namespace tradebill {
namespace {

class GraphLayout : public GraphFixture {};

TEST_F(GraphLayout, FollowsTheRectangle) {
    graph_.DrawGraph(canvas_, {100, 50, 925, 300});
    EXPECT_EQ(graph_.outline, (Box{100, 50, 925, 300}));
    EXPECT_EQ(graph_.maxWidth, 825);
    EXPECT_EQ(graph_.maxHeight, 250);
    EXPECT_EQ(graph_.xApexPoint, 154);
    EXPECT_EQ(graph_.axisBottom, 270);
    EXPECT_EQ(graph_.yApexPoint, 270);
    EXPECT_EQ(graph_.plotHeight, 184);
    EXPECT_EQ(graph_.xAxisWidth, 751);
    EXPECT_EQ(graph_.yAxisHeight, 160);
}

TEST_F(GraphLayout, LeavesRoomForTheYTitle) {
    graph_.axisYLabel = "Yuan.";  // 30 wide, half as much again left free
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 99);
    EXPECT_EQ(graph_.xAxisWidth, 706);
    graph_.axisYLabel = "Yu";
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 54 + 18);
}

TEST_F(GraphLayout, LeavesRoomForTheXTitle) {
    graph_.axisXLabel = "Day";
    Draw();
    EXPECT_EQ(graph_.axisBottom, 250 - 11 - 35);
    EXPECT_EQ(graph_.plotHeight, 204 - 10 - 26);
    graph_.dpi = 192;
    Draw();
    EXPECT_EQ(graph_.axisBottom, 250 - 11 - 70);
}

TEST_F(GraphLayout, LeavesRoomForTurnedLabels) {
    graph_.axisXLabel = "Day";  // takes no part
    graph_.xAxisLabelLength = 10;
    for (const std::int32_t degrees : {90, 180, -45}) {
        graph_.xAxisAlign = degrees;
        Draw();
        EXPECT_EQ(graph_.axisBottom, 250 - 10 * 5 - 15);
    }
    graph_.DrawGraph(canvas_, {0, 40, 825, 290});
    EXPECT_EQ(graph_.axisBottom, 290 - 10 * 5 - 15);
}

TEST_F(GraphLayout, LooksAtAllTicksButTheLowest) {
    graph_.minTick = -1'000'000;  // 8 bytes
    graph_.tickSpace = 1'000'000;
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 10 + 7 * 6 + 20);  // of 9000000
    graph_.minTick = 0;
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 10 + 8 * 6 + 20);
    CopyField(graph_.valueSuffix, "!!");
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 10 + 10 * 6 + 20);
}

// With real fonts a minus sign is narrower than a digit.
TEST_F(GraphLayout, MeasuresTheLastOfEquallyLongNumbers) {
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
        graph_.DrawGraph(*MakeCanvas(bitmap), {0, 0, 825, 250});
        EXPECT_EQ(graph_.xApexPoint, 30 + MeasureText(ChartFont(kTahoma, 11), row.last).width) << row.last;
    }
}

TEST_F(GraphLayout, MeasuresTheRightAxisByItsDivisor) {
    graph_.dualAxis = 1;
    graph_.unitText2[0] = '\0';
    graph_.maxTick2 = 1.0;
    graph_.tickSpace2 = 0.1;
    Draw();
    EXPECT_EQ(graph_.xAxisWidth, 751 - 36);  // of 100.00
    graph_.valueDivisor2 = 1.0;
    Draw();
    EXPECT_EQ(graph_.xAxisWidth, 751 - 24);  // of 1.00, though 100.00 is written
    EXPECT_TRUE(canvas_.FindText("100.00"));
    graph_.dualAxis = 2;
    Draw();
    EXPECT_EQ(graph_.xAxisWidth, 751);
}

TEST_F(GraphLayout, SharesRowsOutInWholePixels) {
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
        EXPECT_EQ(graph_.yAxisHeight, row.yAxisHeight);
        EXPECT_EQ(graph_.yApexPoint, row.yApexPoint);
        EXPECT_EQ(graph_.axisBottom, 220);
    }
}

TEST_F(GraphLayout, GoesOnWithMeasuresUnderZero) {
    graph_.DrawGraph(canvas_, {0, 0, 20, 20});
    EXPECT_EQ(graph_.xAxisWidth, -54);
    EXPECT_EQ(graph_.axisBottom, -10);
    EXPECT_EQ(graph_.plotHeight, -46);
    EXPECT_EQ(graph_.yAxisHeight, -40);  // rows of -46 / 11 = -4
}

// Numbers of three bytes take 3 * 5 pixels; the font of the axis titles is 16 high.
TEST_F(GraphLayout, HasFixedMarginsForLyingBars) {
    graph_.graphType = kBarGraph;
    graph_.graphAlignment = 0;
    graph_.xAxisLabelLength = 8;
    graph_.axisYLabel = "Yuan";  // stands elsewhere
    graph_.DrawGraph(canvas_, {100, 50, 925, 300});
    EXPECT_EQ(graph_.xApexPoint, 153);
    EXPECT_EQ(graph_.yApexPoint, 269);
    EXPECT_EQ(graph_.yAxisHeight, 169);
    EXPECT_EQ(graph_.xAxisWidth, 745);
    EXPECT_EQ(graph_.axisBottom, graph_.yApexPoint);
    graph_.axisXLabel = "Day";
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 53 + 26);
    EXPECT_EQ(graph_.xAxisWidth, 745);
}

TEST_F(GraphLayout, TakesTheTickFontForLyingLines) {
    graph_.graphAlignment = 0;
    graph_.axisXLabel = "Day";
    graph_.tickFontSize = 13;
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 23 + 5);
    EXPECT_EQ(graph_.yApexPoint, 250 - 13 - 15);
    EXPECT_EQ(graph_.yAxisHeight, 172);
    EXPECT_EQ(graph_.xAxisWidth, 825 - 3 * 6 - 65);
}

TEST_F(GraphLayout, LeavesTheGapOfScatteredDotsForTheYTitle) {
    graph_.graphType = kScatterGraph;
    graph_.axisXLabel = "Day";
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 5);
    graph_.axisYLabel = "Yuan";
    Draw();
    EXPECT_EQ(graph_.xApexPoint, 5 + 26);
}

TEST_F(GraphLayout, GivesPiesAlmostAll) {
    for (const std::int32_t kind : {2, 32}) {
        graph_.graphType = kind;
        graph_.DrawGraph(canvas_, {100, 50, 925, 300});
        EXPECT_EQ(graph_.xAxisWidth, 815);
        EXPECT_EQ(graph_.yAxisHeight, 200);
        EXPECT_EQ(graph_.xApexPoint, 105);
        EXPECT_EQ(graph_.yApexPoint, 295);
    }
}

TEST_F(GraphLayout, MovesTheApexOfFlatKindsAlone) {
    graph_.graphQuadType = 4;
    for (const std::int32_t kind : {0, 1, 4, 20, 21}) {
        graph_.graphType = kind;
        Draw();
        EXPECT_EQ(graph_.xApexPoint, 429) << kind;
        EXPECT_EQ(graph_.yApexPoint, 140) << kind;
    }
    for (const std::int32_t kind : {30, 31, 320, 5}) {
        graph_.graphType = kind;
        Draw();
        EXPECT_EQ(graph_.xApexPoint, 54) << kind;
        EXPECT_EQ(graph_.yApexPoint, 220) << kind;
    }
}

class AxisTitleFont : public GraphFixture {
protected:
    std::int32_t HeightFor(const Box& rect, std::size_t xLength, std::size_t yLength) {
        graph_.axisXLabel.assign(xLength, 'x');
        graph_.axisYLabel.assign(yLength, 'y');
        graph_.DrawGraph(canvas_, rect);
        return graph_.AxisTitleHeight();
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
    EXPECT_EQ(graph_.xApexPoint, 414);
    EXPECT_EQ(xTitle->at, (Point{391 / 2 - 6 + 414, 204 + 25}));
    EXPECT_EQ(xTitle->font.cellHeight, 12);
}

}  // namespace
}  // namespace tradebill
