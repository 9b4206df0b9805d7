// Lines as ribbons, each group in a layer of its own.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// The last group lies in front. A missing value is bridged.
/// REQUIRES: the style of `layout` is Box.
void DrawLine3dSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
