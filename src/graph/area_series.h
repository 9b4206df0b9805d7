// The bands of a line chart: between the lines of neighbouring groups, and one under the first.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// Bands, then the line of each group over them. A missing value leaves a gap; one position alone shows nothing.
/// REQUIRES: the style of `layout` is Plain or Crossed.
void DrawAreaSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
