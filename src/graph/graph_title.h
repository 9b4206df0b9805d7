// The outer frame of a chart, and its title in one of its three forms: in the middle, behind a swatch, or with the
// title of the secondary series.
#pragma once

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"
#include "paint/font.h"

namespace tradebill {

void DrawFrame(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

void DrawTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

/// Size of the title that is drawn last, as a text of several lines has it: the plot leaves room for its height.
[[nodiscard]] TextExtent MeasureTitle(CCanvas& canvas, const CGraph& graph);

}  // namespace tradebill
