// The pie as a disc seen from the front.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// The shaded lower side of all slices first, then the upper one.
/// REQUIRES: `layout` was made for a pie.
void DrawPie3dSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
