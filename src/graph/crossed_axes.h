// Two axes that cross at their zero, for lying charts, scattered dots and the quadrants. Ticks stand on the axes, their
// texts at the edges of the plot, where no bar runs through them.
#pragma once

#include <vector>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/value_marks.h"
#include "paint/canvas.h"

namespace tradebill {

/// Along either axis; none along positions, which have labels instead.
struct CrossedMarks {
    std::vector<ValueMark> x;
    std::vector<ValueMark> y;
};
[[nodiscard]] CrossedMarks CrossedMarksOf(const CGraph& graph, const GraphLayout& layout);

/// Axes, grid, numeric ticks, titles and labels.
/// REQUIRES: the style of `layout` is Crossed.
void DrawCrossedAxes(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
