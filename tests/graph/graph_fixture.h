// Charts of 825 by 250 pixels whose every place is known: X axis at y 220, Y axis at x 54, ticks 16 pixels apart.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "graph/graph.h"
#include "graph/recording_canvas.h"

namespace tradebill {

class GraphFixture : public testing::Test {
protected:
    GraphFixture() : graph_(1) {
        graph_.graphTitle = "Equity";
        graph_.valueDivisor = 1.0;
        graph_.decimalDigits = 0;
    }

    void AddColor(Color color) {
        graph_.colorList.push_back(std::make_unique<CGraphDataColor>(CGraphDataColor{0, color}));
    }
    static void Add(SeriesList& list, const std::string& label, double value) {
        auto series = std::make_unique<CGraphSeries>();
        series->seriesLabel = label;
        series->SetData(0, value);
        list.push_back(std::move(series));
    }
    void AddPoints(const std::vector<double>& values) {
        for (const double value : values) Add(graph_.graphSeries, "01-02", value);
        graph_.seriesSize = 1;
    }
    void Draw() { graph_.DrawGraph(canvas_, {0, 0, 825, 250}); }

    CGraph graph_;
    CRecordingCanvas canvas_;
};

inline constexpr Pen kThin{.width = 1, .color = 0};
inline constexpr Pen kGridPen{.width = 1, .color = 0xD7D7D7};
inline constexpr Pen kAxis{.width = 2, .color = 0x383838};

}  // namespace tradebill
