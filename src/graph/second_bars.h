// The secondary series as bars that stand between the points of the line, scaled against the right axis.
#pragma once

#include <cstdint>
#include <vector>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// X of each point of the primary line, whatever the kind of the chart.
[[nodiscard]] std::vector<std::int32_t> PointXOf(const CGraph& graph, const GraphLayout& layout);

/// One bar for each gap; nothing unless `graphSeries2` has one less than the points.
void DrawSecondBars(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
