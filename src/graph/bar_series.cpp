// Bars side by side and bars one on another.
#include <algorithm>

#include "graph/bar_slots.h"
#include "graph/graph_measures.h"
#include "graph/graph_painters.h"
#include "graph/graph_plane.h"

namespace tradebill {
namespace {

constexpr double kFlatShare = 0.6;

/// Outlined by the pen in use.
void PaintFlatBar(const CGraph& graph, CCanvas& canvas, std::int32_t group, const Box& bar) {
    const CBrushScope brush(canvas, graph.GroupColor(group));
    canvas.Rectangle(bar);
}

}  // namespace

void PaintGroupedBars(CGraph& graph, CCanvas& canvas, double share, BarPainter* paint) {
    const CPlotPlane plane(graph);
    if (graph.Groups() < 1) return;
    const std::int32_t thickness = ToPixel(plane.Slot() * share / graph.Groups());
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::int32_t start = plane.SlotMiddle(position) - graph.Groups() * thickness / 2;
        for (std::int32_t group = 0; group < graph.Groups(); ++group) {
            const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
            if (!value) continue;
            const std::int32_t height = plane.Limited(plane.BarHeight(*value));
            paint(graph, canvas, group, plane.Bar(start + group * thickness, thickness, 0, height));
        }
    }
}

void PaintStackedBars(CGraph& graph, CCanvas& canvas, double share, HeightOfValue heightOf, BarPainter* paint) {
    const CPlotPlane plane(graph);
    const std::int32_t thickness = ToPixel(plane.Slot() * share);
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::int32_t start = plane.SlotMiddle(position) - thickness / 2;
        std::int32_t base = 0;
        for (std::int32_t group = 0; group < graph.Groups(); ++group) {
            const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
            if (!value) continue;
            const std::int32_t end = plane.Limited(HeldPixel(base + (plane.*heightOf)(*value)));
            paint(graph, canvas, group, plane.Bar(start, thickness, base, end));
            base = end;
        }
    }
}

void DrawBarSeries(CGraph& graph, CCanvas& canvas) {
    PaintGroupedBars(graph, canvas, kFlatShare, PaintFlatBar);
}

void DrawStackedBarSeries(CGraph& graph, CCanvas& canvas) {
    PaintStackedBars(graph, canvas, kFlatShare, &CPlotPlane::BarHeight, PaintFlatBar);
}

}  // namespace tradebill
