// The kinds of charts, a row for each: what it stands on and who paints its data.
#pragma once

#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "paint/canvas.h"

namespace tradebill {

/// What a kind of chart stands on.
enum class GraphGround {
    None,  ///< pies have neither axes nor ticks
    Flat,  ///< axes that may lie, and cross in the middle
    Box,   ///< a back wall and a floor
};

struct GraphKindRow {
    std::int32_t kind;  ///< as in `graphType`
    bool isArea;        ///< with `fillArea` 1 alone
    GraphGround ground;
    void (*drawSeries)(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout);
};

/// The row of a chart, or null if there is no such kind.
[[nodiscard]] const GraphKindRow* FindGraphKind(const CGraph& graph);

}  // namespace tradebill
