#include "graph/line_series_3d.h"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "graph/shades.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr std::int32_t kLit = 35;
constexpr std::int32_t kShadow = 55;

/// A flat or falling part is lit, one that rises steeply lies in its own shadow; one of 45 degrees is an outline alone.
Brush RibbonBrush(Color color, Point from, Point to) {
    const std::int32_t run = to.x - from.x;
    const std::int32_t rise = from.y - to.y;
    if (run == rise) return std::nullopt;
    return run >= rise ? Lighter(color, kLit) : Darker(color, kShadow);
}

/// `front` and `back` are the distances of its edges from the front of the box, along its depth.
void DrawRibbon(CCanvas& canvas, Color color, Point from, Point to, std::int32_t front, std::int32_t back) {
    const Point corners[] = {{from.x + front, from.y - front},
                             {to.x + front, to.y - front},
                             {to.x + back, to.y - back},
                             {from.x + back, from.y - back}};
    {
        const CPenScope pen(canvas, {.width = 2, .color = 0});
        canvas.MoveTo(corners[3]);
        for (const Point corner : corners) canvas.LineTo(corner);
    }
    const CPenScope pen(canvas, {.width = 1, .color = 0});
    const CBrushScope brush(canvas, RibbonBrush(color, from, to));
    canvas.Polygon(corners);
}

}  // namespace

void DrawLine3dSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPlotPlane plane(graph, layout);
    const Point shift{ClampPixel(graph.depthShiftX), ClampPixel(graph.depthShiftY)};
    const std::int32_t groups = graph.Groups();
    for (std::int32_t group = 0; group < groups; ++group) {
        const std::int32_t layer = layout.depth / groups;
        const std::int32_t back = (groups - group) * layer;
        std::optional<Point> last;
        for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
            const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
            if (!value) continue;
            const std::int32_t along = ToPixel((plane.Slot() + 1.0) * static_cast<double>(position));
            Point at = plane.At(along, plane.LineHeight(*value));
            if (!last) at = {at.x + shift.x, at.y + shift.y};
            if (last) DrawRibbon(canvas, graph.GroupColor(group), *last, at, back - layer, back);
            last = at;
        }
    }
}

}  // namespace tradebill
