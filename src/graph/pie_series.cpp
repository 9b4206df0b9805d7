#include "graph/pie_series.h"

#include <vector>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/pie_slices.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

void DrawFlatSlices(CCanvas& canvas, const CGraph& graph, const PieCircle& circle,
                    const std::vector<PieSlice>& slices) {
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

void DrawPieSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    DrawPies(canvas, graph, layout, {.drawSlices = DrawFlatSlices, .edgePoint = &PieCircle::DiamondPoint});
}

}  // namespace tradebill
