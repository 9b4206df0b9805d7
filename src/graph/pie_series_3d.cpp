#include "graph/pie_series_3d.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/pie_slices.h"
#include "graph/shades.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr std::int32_t kHalfTurn = 180;
constexpr std::int32_t kWholeTurn = 360;
constexpr std::int32_t kSideShade = 35;

struct Disc {
    PieCircle circle;
    std::int32_t thickness;

    [[nodiscard]] Point Lowered(Point point) const { return {point.x, point.y + thickness}; }
    /// Where a slice begins: the first one at the pie's own start.
    [[nodiscard]] Point StartOf(const PieSlice& slice) const {
        return slice.startDegrees == 0 ? circle.Start() : circle.RimPoint(slice.startDegrees);
    }
};

/// A slice of one side of the disc, which lies `down` pixels under the upper one.
void DrawSector(CCanvas& canvas, const Disc& disc, const PieSlice& slice, std::int32_t down) {
    const Point start = disc.StartOf(slice);
    const Point end = disc.circle.RimPoint(slice.endDegrees);
    // Two equal directions mean the whole circle, which a slice too thin to see isn't.
    if (start == end && slice.endDegrees - slice.startDegrees < kWholeTurn) return;
    const auto [left, top, right, bottom] = disc.circle.Bounds();
    canvas.Pie({left, top + down, right, bottom + down}, {start.x, start.y + down}, {end.x, end.y + down});
}

/// Between upper and lower side: four corners in front; a slice at the back shows none, and closes towards the middle.
void DrawRim(CCanvas& canvas, const Disc& disc, const PieSlice& slice) {
    const Point start = disc.StartOf(slice);
    if (slice.startDegrees >= kHalfTurn) {
        const Point end = disc.circle.RimPoint(slice.endDegrees);
        const Point corners[] = {disc.circle.Middle(), disc.Lowered(start), disc.Lowered(end)};
        canvas.Polygon(corners);
        return;
    }
    const Point end = disc.circle.RimPoint(std::min(slice.endDegrees, kHalfTurn));
    const Point corners[] = {start, end, disc.Lowered(end), disc.Lowered(start)};
    canvas.Polygon(corners);
}

void DrawDiscSlices(CCanvas& canvas, const CGraph& graph, const PieCircle& circle,
                    const std::vector<PieSlice>& slices) {
    const Disc disc{circle, ToPixel(circle.radius * graph.depthRatio)};
    for (const PieSlice& slice : slices) {
        const CBrushScope brush(canvas, Darker(graph.GroupColor(slice.group), kSideShade));
        DrawSector(canvas, disc, slice, disc.thickness);
        DrawRim(canvas, disc, slice);
    }
    for (const PieSlice& slice : slices) {
        const CBrushScope brush(canvas, graph.GroupColor(slice.group));
        DrawSector(canvas, disc, slice, 0);
    }
}

}  // namespace

void DrawPie3dSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPenScope pen(canvas, {.width = 1, .color = 0});
    const CBrushScope white(canvas, kWhite);
    DrawPies(canvas, graph, layout, {.drawSlices = DrawDiscSlices, .edgePoint = &PieCircle::RimPoint});
}

}  // namespace tradebill
