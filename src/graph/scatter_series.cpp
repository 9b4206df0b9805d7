#include "graph/scatter_series.h"

#include <cstdint>
#include <vector>

#include "graph/crossed_axes.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/value_marks.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr std::int32_t kScatterRadius = 3;

/// Pixels from the origin to the last mark; to the edge of the picture where there are none.
std::int32_t ReachOf(const std::vector<ValueMark>& marks, std::int32_t toEdge) {
    return marks.empty() ? toEdge : marks.back().offset;
}

}  // namespace

void DrawScatterSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CrossedMarks marks = CrossedMarksOf(graph, layout);
    const double xStep = ReachOf(marks.x, -layout.xApexPoint) / graph.maxTick;
    const double yStep = ReachOf(marks.y, layout.yApexPoint) / graph.maxTick;
    for (const auto& series : graph.graphSeries) {
        if (series->dataValues.empty() || !(series->dataValues.front()->yValue > -1.0)) continue;
        const auto& [position, value] = *series->dataValues.front();
        const double right = layout.axes.isLying ? value : position;
        const double up = layout.axes.isLying ? position : value;
        const Point at{layout.xApexPoint + ToPixel(right * xStep), layout.yApexPoint - ToPixel(up * yStep)};
        DrawDot(canvas, 0, at, kScatterRadius);
    }
}

}  // namespace tradebill
