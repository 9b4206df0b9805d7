// Axes of an upright chart in the first quadrant, and the grid behind them.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// Lines through ticks and points. Pies and unknown kinds have them too; axes of the other styles bring their own.
void DrawPlainGrid(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

/// Axes, titles, ticks, the caption over the left axis and the labels of X. The caption leaves texts transparent.
/// REQUIRES: the style of `layout` is Plain.
void DrawPlainAxes(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
