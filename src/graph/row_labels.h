// What stands at the left of a lying chart, and its titles.
#pragma once

#include <cstdint>

#include "graph/graph.h"
#include "paint/canvas.h"

namespace tradebill {

/// X of the labels' right edge, before a gap, and of the ticks.
struct RowLabelPlace {
    std::int32_t edge;
    std::int32_t tick;
};

/// The label of each position in the middle of its row, as far as they don't cover one another. `hideAxisLabels`
/// leaves the ticks alone.
void DrawRowLabels(const CGraph& graph, CCanvas& canvas, const RowLabelPlace& place);

/// The title of the positions upwards along their axis, that of the values over the plot.
void DrawLyingTitles(const CGraph& graph, CCanvas& canvas);

}  // namespace tradebill
