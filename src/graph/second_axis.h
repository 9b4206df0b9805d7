// The right axis, of the secondary series.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// Its line, ticks and caption, at the last point of the primary line. Leaves texts transparent.
/// REQUIRES: `layout` was made with `dualAxis` 1, which leaves room for its texts.
void DrawSecondAxis(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
