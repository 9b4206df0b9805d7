// The pie as a disc seen from the front: the shaded lower side of all slices first, then the upper one.
#include <algorithm>

#include "graph/graph_measures.h"
#include "graph/graph_painters.h"
#include "graph/pie_slices.h"
#include "graph/shades.h"

namespace tradebill {
namespace {

constexpr std::int32_t kHalfTurn = 180;
constexpr std::int32_t kWholeTurn = 360;
constexpr std::int32_t kShade = 35;

class CDisc {
public:
    CDisc(const CGraph& graph, CCanvas& canvas, const PieCircle& circle)
        : graph_(graph), canvas_(canvas), circle_(circle), thickness_(ToPixel(circle.radius * graph.depthRatio)) {}

    void Draw(const std::vector<PieSlice>& slices) {
        for (const PieSlice& slice : slices) {
            const CBrushScope brush(canvas_, Darker(graph_.GroupColor(slice.group), kShade));
            DrawSector(slice, thickness_);
            DrawRim(slice);
        }
        for (const PieSlice& slice : slices) {
            const CBrushScope brush(canvas_, graph_.GroupColor(slice.group));
            DrawSector(slice, 0);
        }
    }

private:
    [[nodiscard]] Point Lowered(Point point) const { return {point.x, point.y + thickness_}; }

    /// Where a slice begins: the first one at the pie's own start.
    [[nodiscard]] Point StartOf(const PieSlice& slice) const {
        return slice.startDegrees == 0 ? circle_.Start() : circle_.RimPoint(slice.startDegrees);
    }

    void DrawSector(const PieSlice& slice, std::int32_t down) {
        const Point start = StartOf(slice);
        const Point end = circle_.RimPoint(slice.endDegrees);
        // Two equal directions mean the whole circle, which a slice too thin to see isn't.
        if (start == end && slice.endDegrees - slice.startDegrees < kWholeTurn) return;
        const auto [left, top, right, bottom] = circle_.Bounds();
        canvas_.Pie({left, top + down, right, bottom + down}, {start.x, start.y + down}, {end.x, end.y + down});
    }

    /// Between upper and lower side: four corners in front; a slice at the back shows none, and closes towards the
    /// middle.
    void DrawRim(const PieSlice& slice) {
        const Point start = StartOf(slice);
        if (slice.startDegrees >= kHalfTurn) {
            const Point corners[] = {circle_.Middle(), Lowered(start), Lowered(circle_.RimPoint(slice.endDegrees))};
            canvas_.Polygon(corners);
            return;
        }
        const Point end = circle_.RimPoint(std::min(slice.endDegrees, kHalfTurn));
        const Point corners[] = {start, end, Lowered(end), Lowered(start)};
        canvas_.Polygon(corners);
    }

    const CGraph& graph_;
    CCanvas& canvas_;
    PieCircle circle_;
    std::int32_t thickness_;
};

void DrawDisc(const CGraph& graph, CCanvas& canvas, const PieCircle& circle, const std::vector<PieSlice>& slices) {
    CDisc(graph, canvas, circle).Draw(slices);
}

}  // namespace

void DrawPie3dSeries(CGraph& graph, CCanvas& canvas) {
    const CPenScope pen(canvas, {.width = 1, .color = 0});
    const CBrushScope white(canvas, kWhite);
    DrawPies(graph, canvas, {.drawSlices = DrawDisc, .edgePoint = &PieCircle::RimPoint});
}

}  // namespace tradebill
