// Lines without dots whose points stand where bars would.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// A missing value is bridged.
/// REQUIRES: the style of `layout` is Plain or Crossed.
void DrawSlotLineSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
