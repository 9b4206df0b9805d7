#include "graph/axis_arrangement.h"

#include <algorithm>
#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_kinds.h"
#include "graph/graph_measures.h"

namespace tradebill {
namespace {

/// By the least position and value of the first data of each series.
std::int32_t QuadrantOfData(const CGraph& graph) {
    std::int32_t leastX = 0;
    std::int32_t leastY = 0;
    for (const auto& series : graph.graphSeries) {
        if (series->dataValues.empty()) continue;
        leastX = std::min(leastX, series->dataValues.front()->xPosition);
        leastY = std::min(leastY, ToPixel(series->dataValues.front()->yValue));
    }
    if (leastX < 0) return leastY < 0 ? 4 : 2;
    return leastY < 0 ? 3 : 1;
}

AxisStyle StyleOf(GraphGround ground, bool isCrossed) {
    if (ground == GraphGround::Box) return AxisStyle::Box;
    if (ground == GraphGround::None) return AxisStyle::None;
    return isCrossed ? AxisStyle::Crossed : AxisStyle::Plain;
}

}  // namespace

AxisArrangement ArrangementOf(const CGraph& graph) {
    const GraphKindRow* const kind = FindGraphKind(graph);
    const GraphGround ground = kind != nullptr ? kind->ground : GraphGround::None;
    AxisArrangement axes;
    const bool isFound = graph.quadSetManually == 0 && graph.graphType == kBarGraph;
    axes.quadrant = isFound ? QuadrantOfData(graph) : graph.graphQuadType;
    axes.isLying = graph.graphAlignment == 0;
    if (ground == GraphGround::Flat) {
        axes.isXCentred = axes.quadrant == 2 || axes.quadrant == 4;
        axes.isYCentred = axes.quadrant == 3 || axes.quadrant == 4;
    }
    axes.style = StyleOf(ground, axes.isLying || graph.graphType == kScatterGraph || axes.IsCentred());
    return axes;
}

}  // namespace tradebill
