// Back wall and floor of the three-dimensional kinds. Depth runs up and to the right; values are read on the back wall.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// Walls, grid, numeric ticks, titles and labels.
/// REQUIRES: the style of `layout` is Box.
void DrawBoxAxes(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
