#include "graph/bar_series_3d.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "graph/bar_slots.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_plane.h"
#include "graph/shades.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr double kSolidShare = 0.8;
constexpr std::int32_t kShade = 35;  ///< of the side, and of the light on the top

void PaintPolygon(CCanvas& canvas, Color color, std::span<const Point> corners) {
    const CPenScope pen(canvas, {.width = 1, .color = color});
    const CBrushScope brush(canvas, color);
    canvas.Polygon(corners);
}

/// Side and top are the face's right and upper edge, moved up and to the right.
void PaintSolidBar(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, std::int32_t group,
                   const Box& bar) {
    const Color color = graph.GroupColor(group);
    const std::int32_t left = std::min(bar.left, bar.right);
    const std::int32_t right = std::max(bar.left, bar.right) - 1;  // a rectangle's last column and row
    const std::int32_t top = std::min(bar.top, bar.bottom);
    const std::int32_t bottom = std::max(bar.top, bar.bottom) - 1;
    const std::int32_t depth = layout.depth;
    {
        const CPenScope pen(canvas, {.width = 1, .color = color});
        const CBrushScope brush(canvas, color);
        canvas.Rectangle({left, top, right + 1, bottom + 1});
    }
    const Point side[] = {{right, top}, {right + depth, top - depth}, {right + depth, bottom - depth}, {right, bottom}};
    const Point upper[] = {{left, top}, {left + depth, top - depth}, {right + depth, top - depth}, {right, top}};
    PaintPolygon(canvas, Darker(color, kShade), side);
    PaintPolygon(canvas, Lighter(color, kShade), upper);
}

}  // namespace

void DrawBar3dSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    PaintGroupedBars(canvas, graph, layout, kSolidShare, PaintSolidBar);
}

void DrawStackedBar3dSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    PaintStackedBars(canvas, graph, layout, kSolidShare, &CPlotPlane::LineHeight, PaintSolidBar);
}

}  // namespace tradebill
