// Charts of no size, of all the size there is, and with more on them than one can see.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "graph/bad_charts.h"

namespace tradebill::large_charts_test {
namespace {

using LargeCharts = BadCharts;

void AddValue(CGraph& graph, double value) {
    graph.graphSeries.push_back(std::make_unique<CGraphSeries>());
    graph.graphSeries.back()->seriesLabel = "label";
    graph.graphSeries.back()->SetData(0, value);
}

TEST_F(LargeCharts, TakeAnyRectangle) {
    const Box kRectangles[] = {{},
                               {10, 10, 10, 10},
                               {64, 48, 0, 0},
                               {-5, -5, -1, -1},
                               {0, 0, 20'000, 20'000},
                               {kLeast, kLeast, kMost, kMost},
                               {kMost, kMost, kLeast, kLeast},
                               {kMost, kMost, kMost, kMost},
                               {kLeast, kLeast, kLeast, kLeast},
                               {0, 0, kMost, 1},
                               {0, 0, 1, kMost}};
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            for (const Box& rect : kRectangles) {
                for (const std::int32_t dpi : {0, 192, kMost}) {
                    CGraph graph(1);
                    Fill(graph, kind);
                    graph.graphAlignment = alignment;
                    graph.dpi = dpi;
                    DrawRecorded(graph, rect);
                    DrawPixels(graph, rect);
                }
            }
        }
    }
}

TEST_F(LargeCharts, TakeNoData) {
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            CGraph graph(1);
            graph.graphType = kind;
            graph.graphAlignment = alignment;
            graph.graphHasGridLines = 1;
            graph.seriesSize = 3;
            DrawRecorded(graph);
            graph.graphSeries.push_back(std::make_unique<CGraphSeries>());  // nor has this one any
            DrawRecorded(graph);
        }
    }
}

TEST_F(LargeCharts, TakeManyPoints) {
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            CGraph graph(1);
            graph.graphType = kind;
            graph.graphAlignment = alignment;
            graph.graphHasGridLines = 1;
            graph.showValues = 1;
            graph.seriesSize = 1;
            for (int i = 0; i < (alignment == 1 ? 100'000 : 10'000); ++i) AddValue(graph, i % 100);
            DrawRecorded(graph);
        }
    }
}

TEST_F(LargeCharts, TakeManyGroups) {
    for (const std::int32_t kind : kKinds) {
        CGraph graph(1);
        graph.graphType = kind;
        graph.seriesSize = 1'000;
        for (int i = 0; i < 3; ++i) {
            graph.graphSeries.push_back(std::make_unique<CGraphSeries>());
            for (std::int32_t group = 0; group < 1'000; ++group) graph.graphSeries.back()->SetData(group, group % 7);
        }
        DrawRecorded(graph);
    }
}

TEST_F(LargeCharts, TakeLongTexts) {
    const std::string endless(20'000, 'w');
    for (const std::int32_t kind : kKinds) {
        for (const std::int32_t alignment : {0, 1}) {
            CGraph graph(1);
            Fill(graph, kind);
            graph.graphAlignment = alignment;
            graph.graphTitle = graph.graphTitle2 = graph.axisXLabel = graph.axisYLabel = endless;
            for (const auto& series : graph.graphSeries) series->seriesLabel = endless;
            DrawRecorded(graph);
            if (kind < 2) DrawPixels(graph);
        }
    }
}

}  // namespace
}  // namespace tradebill::large_charts_test
