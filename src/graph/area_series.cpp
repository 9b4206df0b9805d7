#include "graph/area_series.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr Color kBandColor = 0xBB937A;
constexpr Color kGroundColor = 0x62599C;
constexpr std::int32_t kOverlap = 2;  ///< pixels that a band rises over its lower line

/// The points of a group, one per position; nothing where its value is missing.
using Edge = std::vector<std::optional<Point>>;

Edge EdgeOf(const CGraph& graph, const GraphLayout& layout, std::int32_t group) {
    const CPlotPlane plane(graph, layout);
    const std::size_t count = graph.graphSeries.size();
    Edge edge;
    for (std::size_t position = 1; position <= count; ++position) {
        const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
        const std::int32_t along =
            plane.IsLying() ? plane.SlotMiddle(position) : plane.PointX(position, count) - plane.Left();
        edge.push_back(value ? std::optional(plane.At(along, plane.LineHeight(*value))) : std::nullopt);
    }
    return edge;
}

/// Calls `paint` with the two ends of each part of the edge, and its place.
template <class Paint>
void ForEachPart(const Edge& edge, Paint paint) {
    for (std::size_t second = 1; second < edge.size(); ++second) {
        if (edge[second - 1] && edge[second]) paint(second, *edge[second - 1], *edge[second]);
    }
}

/// Without an outline: parts that lie side by side show no seams.
void FillFourSides(CCanvas& canvas, const std::array<Point, 4>& corners) {
    canvas.BeginPath();
    canvas.MoveTo(corners[0]);
    for (std::size_t i = 1; i < corners.size(); ++i) canvas.LineTo(corners[i]);
    canvas.EndPath();
    canvas.FillPath();
}

void FillBand(CCanvas& canvas, const Edge& lower, const Edge& upper) {
    const CBrushScope brush(canvas, kBandColor);
    ForEachPart(lower, [&](std::size_t second, Point from, Point to) {
        if (!upper[second - 1] || !upper[second]) return;
        FillFourSides(canvas, {Point{from.x, from.y - kOverlap}, Point{to.x, to.y - kOverlap}, *upper[second],
                               *upper[second - 1]});
    });
}

void FillGround(CCanvas& canvas, const GraphLayout& layout, const Edge& edge) {
    const CBrushScope brush(canvas, kGroundColor);
    const auto onAxis = [&](Point point) {
        return layout.axes.isLying ? Point{layout.xApexPoint, point.y} : Point{point.x, layout.yApexPoint};
    };
    ForEachPart(edge, [&](std::size_t, Point from, Point to) {
        FillFourSides(canvas, {from, to, onAxis(to), onAxis(from)});
    });
}

}  // namespace

void DrawAreaSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (graph.graphSeries.size() < 2) return;
    std::vector<Edge> edges;
    edges.reserve(static_cast<std::size_t>(std::max(graph.Groups(), 0)));
    for (std::int32_t group = 0; group < graph.Groups(); ++group) edges.push_back(EdgeOf(graph, layout, group));
    for (std::size_t upper = 1; upper < edges.size(); ++upper) FillBand(canvas, edges[upper - 1], edges[upper]);
    if (!edges.empty()) FillGround(canvas, layout, edges.front());
    for (std::int32_t group = 0; group < graph.Groups(); ++group) {
        const CPenScope pen(canvas, SeriesPen(graph, graph.GroupColor(group)));
        ForEachPart(edges[static_cast<std::size_t>(group)],
                    [&](std::size_t, Point from, Point to) { DrawLineBetween(canvas, from, to); });
    }
}

}  // namespace tradebill
