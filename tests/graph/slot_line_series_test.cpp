// Lines on bar slots: three slots of 250 have their middles at 54 + 125, and 100 is 160 pixels high.
#include <gtest/gtest.h>

#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill::slot_line_series_test {
namespace {

constexpr Pen kRed{.width = 2, .color = 0x0000C0};
constexpr Pen kBlue{.width = 2, .color = 0xC00000};
using Lines = std::vector<PaintedLine>;

class SlotLine : public GraphFixture {
protected:
    SlotLine() {
        graph_.graphType = kSlotLineGraph;
        graph_.lineWidth = 5;  // takes no part
        AddColor(kRed.color);
        AddColor(kBlue.color);
    }
};

TEST_F(SlotLine, JoinsTheMiddlesOfTheSlots) {
    AddGroups({50, 10});
    AddGroups({100, 20});
    AddGroups({25, 30});
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kRed), (Lines{{{179, 140}, {429, 60}, kRed}, {{429, 60}, {679, 180}, kRed}}));
    EXPECT_EQ(canvas_.LinesOf(kBlue), (Lines{{{179, 204}, {429, 188}, kBlue}, {{429, 188}, {679, 172}, kBlue}}));
    EXPECT_TRUE(canvas_.ellipses.empty());
}

TEST_F(SlotLine, BridgesAMissingValue) {
    for (const double value : {50.0, -1.0, 25.0, -2.0}) AddGroups({value});  // slots of 187
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kRed), (Lines{{{148, 140}, {522, 180}, kRed}}));
}

TEST_F(SlotLine, LiftsAndCutsAsTheLineDoes) {
    for (const double value : {0.3, 137.6, 138.2, 0.0}) AddGroups({value});  // 220.16 and 221.12 pixels of 220
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kRed), (Lines{{{148, 219}, {335, 0}, kRed},  //
                                            {{335, 0}, {522, 55}, kRed},
                                            {{522, 55}, {709, 220}, kRed}}));
}

TEST_F(SlotLine, IsNoneForOnePosition) {
    AddGroups({50});
    Draw();
    EXPECT_TRUE(canvas_.LinesOf(kRed).empty());
}

TEST_F(SlotLine, CutsByThePixelOfTheAxisInTheThirdQuadrant) {
    graph_.graphQuadType = 3;
    for (const double value : {87.5, 88.2, 50.0}) AddGroups({value});  // 140 and 141.12 pixels of 140
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kRed), (Lines{{{179, 0}, {429, -25}, kRed}, {{429, -25}, {679, 60}, kRed}}));
}

// 169 pixels in three rows of 56; 745 pixels for 100, and nothing is cut.
TEST_F(SlotLine, LiesInRows) {
    graph_.graphAlignment = 0;
    graph_.xAxisLabelLength = 8;
    for (const double value : {50.0, 200.0, 25.0}) AddGroups({value});
    Draw();
    EXPECT_EQ(canvas_.LinesOf(kRed), (Lines{{{425, 191}, {1543, 135}, kRed}, {{1543, 135}, {239, 79}, kRed}}));
}

}  // namespace
}  // namespace tradebill::slot_line_series_test
