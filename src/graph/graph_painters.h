// The painters of the data, one for each kind of chart. All work on a chart whose layout stands and leave pen, brush
// and font as they were.
#pragma once

#include <cstdint>
#include <vector>

#include "graph/graph.h"
#include "paint/canvas.h"

namespace tradebill {

// line_series.cpp, slot_line_series.cpp, area_series.cpp
void DrawLineSeries(CGraph& graph, CCanvas& canvas);
void DrawSecondLine(CGraph& graph, CCanvas& canvas);
void DrawSlotLineSeries(CGraph& graph, CCanvas& canvas);
void DrawAreaSeries(CGraph& graph, CCanvas& canvas);

// second_bars.cpp
void DrawSecondBars(CGraph& graph, CCanvas& canvas);
/// X of each point of the primary line.
void CollectPointX(const CGraph& graph, std::vector<std::int32_t>& positions);

// bar_series.cpp, bar_series_3d.cpp
void DrawBarSeries(CGraph& graph, CCanvas& canvas);
void DrawStackedBarSeries(CGraph& graph, CCanvas& canvas);
void DrawBar3dSeries(CGraph& graph, CCanvas& canvas);
void DrawStackedBar3dSeries(CGraph& graph, CCanvas& canvas);

// pie_series.cpp, pie_series_3d.cpp
void DrawPieSeries(CGraph& graph, CCanvas& canvas);
void DrawPie3dSeries(CGraph& graph, CCanvas& canvas);

// scatter_series.cpp, box_series.cpp, line_series_3d.cpp
void DrawScatterSeries(CGraph& graph, CCanvas& canvas);
/// Leaves the count of the last box's values in `seriesSize`.
void DrawBoxSeries(CGraph& graph, CCanvas& canvas);
void DrawLine3dSeries(CGraph& graph, CCanvas& canvas);

}  // namespace tradebill
