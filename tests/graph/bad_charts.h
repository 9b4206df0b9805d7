// Charts that make no sense: each has to end soon, without a crash, on a canvas that takes anything and on a small one
// with pixels.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "graph/graph.h"
#include "graph/recording_canvas.h"
#include "paint/canvas.h"

namespace tradebill {

inline constexpr std::int32_t kKinds[] = {0, 1, 2, 3, 4, 20, 21, 30, 31, 32, 320, 5};
inline constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
inline constexpr Box kUsual{0, 0, 64, 48};

/// A chart that uses as much of the control as one can.
inline void Fill(CGraph& graph, std::int32_t kind) {
    graph.graphType = kind;
    graph.graphTitle = "Title";
    graph.graphTitle2 = "Second";
    graph.axisXLabel = "X";
    graph.axisYLabel = "Y";
    graph.graphHasGridLines = 1;
    graph.showValues = 1;
    graph.dualAxis = 1;
    graph.graphType2 = kind % 2;
    graph.midLineThick = 1;
    graph.seriesSize = graph.seriesSize2 = 2;
    for (int i = 0; i < 4; ++i) {
        for (SeriesList* const list : {&graph.graphSeries, &graph.graphSeries2}) {
            if (list->size() == 3 && graph.graphType2 == 0 && list == &graph.graphSeries2) continue;
            auto series = std::make_unique<CGraphSeries>();
            series->seriesLabel = "label";
            series->SetData(0, 10.0 * i);
            series->SetData(1, 30.0);
            list->push_back(std::move(series));
        }
    }
}

inline void DrawRecorded(const CGraph& graph, const Box& rect = kUsual) {
    CRecordingCanvas canvas;
    graph.DrawGraph(canvas, rect);
}

inline void DrawPixels(const CGraph& graph, const Box& rect = kUsual) {
    CBitmap bitmap(64, 48, kWhite);
    graph.DrawGraph(*MakeCanvas(bitmap), rect);
}

class BadCharts : public testing::Test {};

}  // namespace tradebill
