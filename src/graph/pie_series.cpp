// The flat pie: one for each position, slices from its groups.
#include "graph/graph_painters.h"
#include "graph/pie_slices.h"

namespace tradebill {
namespace {

void DrawSlices(const CGraph& graph, CCanvas& canvas, const PieCircle& circle, const std::vector<PieSlice>& slices) {
    Point start = circle.Start();
    for (const PieSlice& slice : slices) {
        const Point end = circle.DiamondPoint(slice.endDegrees);
        // Two equal directions mean the whole circle, which a slice too thin to see isn't.
        const bool isVisible = end != start || slice.endDegrees - slice.startDegrees >= 360;
        const CBrushScope brush(canvas, graph.GroupColor(slice.group));
        if (isVisible) canvas.Pie(circle.Bounds(), start, end);
        start = end;
    }
}

}  // namespace

void DrawPieSeries(CGraph& graph, CCanvas& canvas) {
    DrawPies(graph, canvas, {.drawSlices = DrawSlices, .edgePoint = &PieCircle::DiamondPoint});
}

}  // namespace tradebill
