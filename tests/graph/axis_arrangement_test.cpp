#include "graph/axis_arrangement.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace tradebill::axis_arrangement_test {
namespace {

TEST(AxisArrangement, TellsTheAxesOfAChart) {
    CGraph graph(1);
    struct {
        std::int32_t kind;
        AxisStyle upright, lying;
    } const kCases[] = {
        {0, AxisStyle::Plain, AxisStyle::Crossed},  {1, AxisStyle::Plain, AxisStyle::Crossed},
        {2, AxisStyle::None, AxisStyle::None},      {3, AxisStyle::Crossed, AxisStyle::Crossed},
        {4, AxisStyle::Plain, AxisStyle::Crossed},  {20, AxisStyle::Plain, AxisStyle::Crossed},
        {21, AxisStyle::Plain, AxisStyle::Crossed}, {30, AxisStyle::Box, AxisStyle::Box},
        {31, AxisStyle::Box, AxisStyle::Box},       {32, AxisStyle::None, AxisStyle::None},
        {320, AxisStyle::Box, AxisStyle::Box},      {5, AxisStyle::None, AxisStyle::None},
        {-1, AxisStyle::None, AxisStyle::None},
    };
    for (const auto& row : kCases) {
        graph.graphType = row.kind;
        graph.graphAlignment = 1;
        EXPECT_EQ(ArrangementOf(graph).style, row.upright) << row.kind;
        graph.graphAlignment = 0;
        EXPECT_EQ(ArrangementOf(graph).style, row.lying) << row.kind;
    }
}

struct FirstData {
    std::int32_t position;
    double value;
};
struct QuadrantCase {
    std::vector<FirstData> data;
    std::int32_t quadrant;
};

TEST(AxisArrangement, FindsTheQuadrantOfBarsByTheirLeastFirstData) {
    const QuadrantCase kCases[] = {
        {{}, 1},                     //
        {{{0, 5}}, 1},               //
        {{{3, 0}}, 1},               //
        {{{-1, 5}}, 2},              //
        {{{0, -5}}, 3},              //
        {{{0, -0.99}}, 1},           // cut to 0 first
        {{{0, -1}}, 3},              //
        {{{-1, -5}}, 4},             //
        {{{-1, 5}, {2, -5}}, 4},     // each the least of all
        {{{7, 7}, {-2, 9}}, 2},      //
        {{{7, 7}, {9, -1e300}}, 3},  //
    };
    for (const QuadrantCase& row : kCases) {
        CGraph graph(1);
        graph.graphType = kBarGraph;
        graph.quadSetManually = 0;
        graph.graphQuadType = 3;  // takes no part
        for (const auto& [position, value] : row.data) {
            auto series = std::make_unique<CGraphSeries>();
            series->SetData(position, value);
            series->SetData(-7, -7);  // nor does the second
            graph.graphSeries.push_back(std::move(series));
        }
        EXPECT_EQ(ArrangementOf(graph).quadrant, row.quadrant);
        EXPECT_EQ(graph.graphQuadType, 3);
    }
}

TEST(AxisArrangement, LeavesAQuadrantSetByHand) {
    CGraph graph(1);
    graph.graphType = kBarGraph;
    graph.graphQuadType = 2;
    graph.graphSeries.push_back(std::make_unique<CGraphSeries>());
    graph.graphSeries.back()->SetData(0, -5);
    EXPECT_EQ(ArrangementOf(graph).quadrant, 2);
    EXPECT_TRUE(ArrangementOf(graph).isXCentred);
    EXPECT_FALSE(ArrangementOf(graph).isYCentred);
}

TEST(AxisArrangement, FindsTheQuadrantOfBarsAlone) {
    for (const std::int32_t kind : {1, 3, 4, 20, 21, 30}) {
        CGraph graph(1);
        graph.graphType = kind;
        graph.quadSetManually = 0;
        graph.graphSeries.push_back(std::make_unique<CGraphSeries>());
        graph.graphSeries.back()->SetData(0, -5);
        EXPECT_EQ(ArrangementOf(graph).quadrant, 1) << kind;
    }
}

}  // namespace
}  // namespace tradebill::axis_arrangement_test
