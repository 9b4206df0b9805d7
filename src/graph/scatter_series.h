// Dots at two numbers each.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// The position and value of the first data of each series; both axes run to `maxTick`.
/// REQUIRES: the style of `layout` is Crossed.
void DrawScatterSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
