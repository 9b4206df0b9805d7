// Flat bars: the groups of a position side by side, or one on another.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// REQUIRES: the style of `layout` is Plain or Crossed.
void DrawBarSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);
void DrawStackedBarSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
