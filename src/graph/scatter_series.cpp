// Dots at two numbers each.
#include "graph/graph_measures.h"
#include "graph/graph_painters.h"
#include "graph/graph_plane.h"

namespace tradebill {

/// Both axes run to `maxTick`.
void DrawScatterSeries(CGraph& graph, CCanvas& canvas) {
    constexpr std::int32_t kRadius = 3;
    const double xStep = (graph.xAxisLast - graph.xApexPoint) / graph.maxTick;
    const double yStep = (graph.yApexPoint - graph.yAxisLast) / graph.maxTick;
    for (const auto& series : graph.graphSeries) {
        if (series->dataValues.empty() || !(series->dataValues.front()->yValue > -1.0)) continue;
        const auto& [position, value] = *series->dataValues.front();
        const double right = IsLying(graph) ? value : position;
        const double up = IsLying(graph) ? position : value;
        DrawDot(canvas, 0, {graph.xApexPoint + ToPixel(right * xStep), graph.yApexPoint - ToPixel(up * yStep)},
                kRadius);
    }
}

}  // namespace tradebill
