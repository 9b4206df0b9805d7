// How the rectangle of a chart is shared out among title, axes, tick rows and captions. It is worked out once, before
// anything is painted; all that paints goes by it.
#pragma once

#include <cstdint>
#include <string>

#include "graph/axis_arrangement.h"
#include "graph/graph.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {

/// Device pixels. Sizes may lie under zero where the rectangle is too small.
struct GraphLayout {
    AxisArrangement axes;
    Box outline;                   ///< the rectangle painted
    std::int32_t maxWidth = 0;     ///< of the outline
    std::int32_t maxHeight = 0;    ///< of the outline
    std::int32_t xApexPoint = 0;   ///< x of the Y axis; of a box at its front
    std::int32_t yApexPoint = 0;   ///< y of the lowest tick, or of the X axis in the middle; of a box at its front
    std::int32_t xAxisWidth = 0;   ///< points use this less 10
    std::int32_t yAxisHeight = 0;  ///< from the lowest to the highest tick
    std::int32_t axisBottom = 0;   ///< y of the X axis, under the spare row
    std::int32_t plotHeight = 0;   ///< shared out among the tick rows
    std::int32_t depth = 0;        ///< of a box; it takes it off width and height of its axes
    bool hideAxisLabels = false;   ///< the rows of lying charts go without labels; no layout asks for it by itself
};

/// Lays out `graph` in `rect`: in full for upright charts, with fixed margins for those whose values run along X, and
/// hardly at all for pies. Measures on `canvas`, and leaves it as it was.
[[nodiscard]] GraphLayout LayOutGraph(CCanvas& canvas, const CGraph& graph, const Box& rect);

/// Tick rows with the spare ones above and below.
[[nodiscard]] std::int32_t RowCount(const CGraph& graph);
/// Y of a tick of an upright chart, counted from the lowest.
[[nodiscard]] std::int32_t TickY(const CGraph& graph, const GraphLayout& layout, std::int32_t tick);
/// Y of the end of the uppermost row, spare or not.
[[nodiscard]] double TopOfRows(const CGraph& graph, const GraphLayout& layout);
/// What the left axis writes at a tick.
[[nodiscard]] std::string LeftTickText(const CGraph& graph, std::int32_t tick);

}  // namespace tradebill
