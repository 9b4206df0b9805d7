// Box plots: whiskers to the ends of a position's values, a box between their quartiles, a line at the median.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// All values of a position, whatever their groups, cut to whole numbers.
/// REQUIRES: the style of `layout` is Plain or Crossed.
void DrawBoxSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
