// How bars share the slots of their positions, flat or not.
#pragma once

#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"

namespace tradebill {

using BarPainter = void(const CGraph& graph, CCanvas& canvas, std::int32_t group, const Box& bar);
using HeightOfValue = std::int32_t (CPlotPlane::*)(double value) const;

/// The groups of a position side by side, together filling `share` of its slot.
void PaintGroupedBars(CGraph& graph, CCanvas& canvas, double share, BarPainter* paint);

/// One bar that fills `share` of the slot, each group beginning where the last one ended.
void PaintStackedBars(CGraph& graph, CCanvas& canvas, double share, HeightOfValue heightOf, BarPainter* paint);

}  // namespace tradebill
