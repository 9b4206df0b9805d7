#include "graph/graph_kinds.h"

#include <algorithm>
#include <iterator>

#include "graph/area_series.h"
#include "graph/bar_series.h"
#include "graph/bar_series_3d.h"
#include "graph/box_series.h"
#include "graph/graph.h"
#include "graph/line_series.h"
#include "graph/line_series_3d.h"
#include "graph/pie_series.h"
#include "graph/pie_series_3d.h"
#include "graph/scatter_series.h"
#include "graph/slot_line_series.h"

namespace tradebill {
namespace {

// clang-format off
constexpr GraphKindRow kRows[] = {
    {kLineGraph,         true,  GraphGround::Flat, DrawAreaSeries},
    {kLineGraph,         false, GraphGround::Flat, DrawLineSeries},
    {kBarGraph,          false, GraphGround::Flat, DrawBarSeries},
    {kPieGraph,          false, GraphGround::None, DrawPieSeries},
    {kScatterGraph,      false, GraphGround::Flat, DrawScatterSeries},
    {kBoxGraph,          false, GraphGround::Flat, DrawBoxSeries},
    {kStackedBarGraph,   false, GraphGround::Flat, DrawStackedBarSeries},
    {kSlotLineGraph,     false, GraphGround::Flat, DrawSlotLineSeries},
    {kBar3dGraph,        false, GraphGround::Box,  DrawBar3dSeries},
    {kLine3dGraph,       false, GraphGround::Box,  DrawLine3dSeries},
    {kPie3dGraph,        false, GraphGround::None, DrawPie3dSeries},
    {kStackedBar3dGraph, false, GraphGround::Box,  DrawStackedBar3dSeries},
};
// clang-format on

}  // namespace

const GraphKindRow* FindGraphKind(const CGraph& graph) {
    const auto* const row = std::ranges::find_if(kRows, [&graph](const GraphKindRow& candidate) {
        return candidate.kind == graph.graphType && (!candidate.isArea || graph.fillArea == 1);
    });
    return row == std::end(kRows) ? nullptr : row;
}

}  // namespace tradebill
