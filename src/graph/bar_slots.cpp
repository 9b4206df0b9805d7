#include "graph/bar_slots.h"

#include <cstddef>
#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"

namespace tradebill {

void PaintGroupedBars(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, double share,
                      BarPainter* paint) {
    const CPlotPlane plane(graph, layout);
    if (graph.Groups() < 1) return;
    const std::int32_t thickness = ToPixel(plane.Slot() * share / graph.Groups());
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::int32_t start = plane.SlotMiddle(position) - graph.Groups() * thickness / 2;
        for (std::int32_t group = 0; group < graph.Groups(); ++group) {
            const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
            if (!value) continue;
            const std::int32_t height = plane.Limited(plane.BarHeight(*value));
            paint(canvas, graph, layout, group, plane.Bar(start + group * thickness, thickness, 0, height));
        }
    }
}

void PaintStackedBars(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, double share,
                      HeightOfValue heightOf, BarPainter* paint) {
    const CPlotPlane plane(graph, layout);
    const std::int32_t thickness = ToPixel(plane.Slot() * share);
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::int32_t start = plane.SlotMiddle(position) - thickness / 2;
        std::int32_t base = 0;
        for (std::int32_t group = 0; group < graph.Groups(); ++group) {
            const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
            if (!value) continue;
            const std::int32_t end = plane.Limited(ClampPixel(base + (plane.*heightOf)(*value)));
            paint(canvas, graph, layout, group, plane.Bar(start, thickness, base, end));
            base = end;
        }
    }
}

}  // namespace tradebill
