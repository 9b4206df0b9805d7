// The titles of the axes, where each style has them. An axis without a title has none drawn.
#pragma once

#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {

/// Height of the font in which the titles fit their sides of `outline`.
[[nodiscard]] std::int32_t AxisTitleHeight(const CGraph& graph, const Box& outline);

/// At the left of an upright chart, half way up.
void DrawYTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

/// The same upwards along the wall of a box.
void DrawTurnedYTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

/// Under the labels; scattered dots leave no room there, and have it over the end of the axis.
void DrawXTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

/// Of a lying chart: the title of the positions upwards along their axis, that of the values over the plot.
void DrawLyingTitles(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);

}  // namespace tradebill
