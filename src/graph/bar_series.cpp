#include "graph/bar_series.h"

#include <cstdint>

#include "graph/bar_slots.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr double kFlatShare = 0.6;

/// Outlined by the pen in use.
void PaintFlatBar(CCanvas& canvas, const CGraph& graph, const GraphLayout& /*layout*/, std::int32_t group,
                  const Box& bar) {
    const CBrushScope brush(canvas, graph.GroupColor(group));
    canvas.Rectangle(bar);
}

}  // namespace

void DrawBarSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    PaintGroupedBars(canvas, graph, layout, kFlatShare, PaintFlatBar);
}

void DrawStackedBarSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    PaintStackedBars(canvas, graph, layout, kFlatShare, &CPlotPlane::BarHeight, PaintFlatBar);
}

}  // namespace tradebill
