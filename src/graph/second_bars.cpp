#include "graph/second_bars.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "graph/value_labels.h"
#include "paint/canvas.h"
#include "paint/font.h"

namespace tradebill {
namespace {

/// The gap between two points of the line.
struct Gap {
    std::int32_t left;
    std::int32_t right;
};

/// Over the bar's top; one that is wider than the gap is dropped.
void DrawBarLabel(CCanvas& canvas, const CGraph& graph, Gap gap, std::int32_t top, double value) {
    const std::string text = ShownValue(value, graph.valueDivisor2, graph.decimalDigits2);
    const TextExtent extent = canvas.MeasureText(text);
    canvas.SelectTextBackground(TextBackground::Transparent);
    const std::int32_t middle = gap.left + (gap.right - gap.left) / 2;
    const std::int32_t left = middle - extent.width / 2;
    const bool fits = left > gap.left && middle + extent.width / 2 < gap.right;
    if (fits) canvas.WriteText({left, top - extent.height - 5}, text);
}

/// A full bar stops ten pixels short of the top tick.
void DrawSecondBar(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, Gap gap, double value) {
    const double scale = (layout.yAxisHeight - 10) / (graph.maxTick2 - graph.minTick2);
    std::int32_t height = ToPixel((value - graph.minTick2) * scale);
    if (value - graph.minTick2 > 0.0 && height < 1) height = 1;
    const std::int32_t top = layout.yApexPoint - std::min(height, layout.yAxisHeight);
    const std::int32_t inset = (gap.right - gap.left) / 6;
    {
        const CBrushScope brush(canvas, graph.SecondColor(value));
        canvas.Rectangle({gap.left + inset, top, gap.right - inset, layout.yApexPoint});
    }
    if (graph.showValues == 1) DrawBarLabel(canvas, graph, gap, top, value);
}

}  // namespace

std::vector<std::int32_t> PointXOf(const CGraph& graph, const GraphLayout& layout) {
    const CPlotPlane plane(graph, layout);
    std::vector<std::int32_t> positions;
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        positions.push_back(plane.LineX(position, graph.graphSeries.size()));
    }
    return positions;
}

void DrawSecondBars(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const std::vector<std::int32_t> positions = PointXOf(graph, layout);
    if (positions.size() != graph.graphSeries2.size() + 1) return;
    for (std::size_t bar = 0; bar < graph.graphSeries2.size(); ++bar) {
        for (std::int32_t group = 0; group < graph.Groups(); ++group) {
            const auto value = ValueToDraw(*graph.graphSeries2[bar], group);
            if (value) DrawSecondBar(canvas, graph, layout, {positions[bar], positions[bar + 1]}, *value);
        }
    }
}

}  // namespace tradebill
