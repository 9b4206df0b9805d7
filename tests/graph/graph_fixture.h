// Charts of 825 by 250 pixels whose every place is known: X axis at y 220, Y axis at x 54, ticks 16 pixels apart.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "graph/graph.h"
#include "graph/graph_layout.h"
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
    /// One position with a value for each group, and the groups of all counted.
    void AddGroups(const std::vector<double>& values) {
        auto series = std::make_unique<CGraphSeries>();
        series->seriesLabel = "01-02";
        for (const double value : values) {
            series->SetData(static_cast<std::int32_t>(series->dataValues.size()), value);
        }
        graph_.seriesSize = std::max(graph_.seriesSize, static_cast<std::int32_t>(values.size()));
        graph_.graphSeries.push_back(std::move(series));
    }
    /// How the chart is laid out in `rect`.
    void LayOut(const Box& rect = kUsualRect) {
        CRecordingCanvas measured;
        layout_ = LayOutGraph(measured, graph_, rect);
    }
    /// Draws it, and keeps the layout too. Returns what kept the data from being painted.
    std::string_view Draw(const Box& rect = kUsualRect) {
        LayOut(rect);
        return graph_.DrawGraph(canvas_, rect);
    }

    /// All rectangles but the frame.
    [[nodiscard]] std::vector<PaintedShape> Bars() const {
        return {canvas_.rectangles.begin() + 1, canvas_.rectangles.end()};
    }
    [[nodiscard]] std::vector<Box> BarBoxes() const {
        std::vector<Box> boxes;
        for (const PaintedShape& bar : Bars()) boxes.push_back(bar.box);
        return boxes;
    }
    /// Middles of the dots.
    [[nodiscard]] std::vector<Point> Dots() const {
        std::vector<Point> points;
        for (const PaintedShape& dot : canvas_.ellipses) {
            points.push_back({(dot.box.left + dot.box.right) / 2, (dot.box.top + dot.box.bottom) / 2});
        }
        return points;
    }

    static constexpr Box kUsualRect{0, 0, 825, 250};

    CGraph graph_;
    GraphLayout layout_;
    CRecordingCanvas canvas_;
};

inline constexpr Pen kThin{.width = 1, .color = 0};
inline constexpr Pen kGridPen{.width = 1, .color = 0xD7D7D7};
inline constexpr Pen kAxis{.width = 2, .color = 0x383838};

}  // namespace tradebill
