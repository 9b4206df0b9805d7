// The line with dots, of the primary series and of the secondary ones.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// A lying chart has dots alone.
/// REQUIRES: the style of `layout` is Plain or Crossed.
void DrawLineSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

/// `graphSeries2` on the right axis, which is upright whatever the chart.
void DrawSecondLine(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
