// The axes that aren't plain. Each draws lines, grid, numeric ticks and titles; labels of upright positions come after.
#pragma once

#include "graph/graph.h"
#include "paint/canvas.h"

namespace tradebill {

/// Two axes that cross at their zero, for lying charts, scattered dots and the quadrants.
void DrawCrossedAxes(CGraph& graph, CCanvas& canvas);

/// The back wall and floor of a box. Takes its depth off `xAxisWidth` and `yAxisHeight`.
void DrawBoxAxes(CGraph& graph, CCanvas& canvas);

}  // namespace tradebill
