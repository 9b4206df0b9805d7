// The labels of the positions: under an upright chart, thinned out, or at the left of a lying one.
#pragma once

#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// Ticks and labels under an upright chart: turned, kept apart, or at every so many positions, as its settings ask.
void DrawPositionLabels(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

/// X of the labels' right edge, before a gap, and of the ticks.
struct RowLabelPlace {
    std::int32_t edge;
    std::int32_t tick;
};

/// The label of each position of a lying chart in the middle of its row, as far as they don't cover one another.
/// `hideAxisLabels` leaves the ticks alone.
void DrawRowLabels(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, const RowLabelPlace& place);

}  // namespace tradebill
