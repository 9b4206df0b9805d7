// Bars with a side and a top, as deep as their box.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// REQUIRES: the style of `layout` is Box.
void DrawBar3dSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);
void DrawStackedBar3dSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
