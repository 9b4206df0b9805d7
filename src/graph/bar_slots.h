// How bars share the slots of their positions, flat or not.
#pragma once

#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {

/// Paints one bar of a group.
using BarPainter = void(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, std::int32_t group,
                        const Box& bar);

/// The groups of a position side by side, together filling `share` of its slot.
void PaintGroupedBars(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, double share, BarPainter* paint);

/// One bar that fills `share` of the slot, each group beginning where the last one ended.
void PaintStackedBars(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, double share,
                      HeightOfValue heightOf, BarPainter* paint);

}  // namespace tradebill
