#include "graph/graph.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "base/gbk.h"
#include "base/text.h"
#include "graph/axis_arrangement.h"
#include "graph/box_axes.h"
#include "graph/crossed_axes.h"
#include "graph/graph_kinds.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_title.h"
#include "graph/line_series.h"
#include "graph/plain_axes.h"
#include "graph/second_axis.h"
#include "graph/second_bars.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

/// Groups without data are painted as zeros, which need not be more.
constexpr std::int32_t kMostGroups = 1'000;

/// Axes with their ticks, labels and titles; nothing for charts without axes.
void DrawAxes(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (layout.axes.style == AxisStyle::None) return;
    canvas.SelectTextColor(kAxisColor);
    const CFontScope font(canvas, ChartFont(kTahoma, 12));
    if (layout.axes.style == AxisStyle::Plain) DrawPlainAxes(canvas, graph, layout);
    if (layout.axes.style == AxisStyle::Crossed) DrawCrossedAxes(canvas, graph, layout);
    if (layout.axes.style == AxisStyle::Box) DrawBoxAxes(canvas, graph, layout);
}

void DrawSecondSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (graph.graphType2 == 1) DrawSecondLine(canvas, graph, layout);
    if (graph.graphType2 == 0) DrawSecondBars(canvas, graph, layout);
}

}  // namespace

void CGraphSeries::SetData(std::int32_t xPosition, double yValue) {
    dataValues.push_back(std::make_unique<CGraphDataSet>(CGraphDataSet{xPosition, yValue}));
}

const CGraphDataSet* CGraphSeries::FindData(std::int32_t group) const {
    const auto found = std::ranges::find(dataValues, group, [](const auto& data) { return data->xPosition; });
    return found == dataValues.end() ? nullptr : found->get();
}

double CGraphSeries::ValueOf(std::int32_t group) const {
    const CGraphDataSet* const data = FindData(group);
    return data != nullptr ? data->yValue : 0.0;
}

std::optional<double> ValueToDraw(const CGraphSeries& series, std::int32_t group) {
    const CGraphDataSet* const data = series.FindData(group);
    if (data == nullptr) return 0.0;
    return data->yValue > -1.0 ? std::optional(data->yValue) : std::nullopt;
}

CGraph::CGraph(std::int32_t /*kind*/) : valueSuffix{}, valueSuffix2{} {
    CopyField(unitText, "万元"_gbk);
    CopyField(unitText2, "百分比"_gbk);
}

Color CGraph::GroupColor(std::int32_t group) const {
    const auto index = static_cast<std::size_t>(group);
    return group >= 0 && index < colorList.size() ? colorList[index]->color : 0;
}

Color CGraph::SecondColor(double value) const {
    constexpr double kHighFrom = 50.0;
    return value / valueDivisor2 > kHighFrom ? color2High : color2Low;
}

std::int32_t CGraph::Groups() const {
    return std::min(seriesSize, kMostGroups);
}

std::int32_t CGraph::SecondGroups() const {
    return std::min(seriesSize2, kMostGroups);
}

/// More of them would only be a black bar.
std::int32_t CGraph::TickCount() const {
    constexpr std::int32_t kMostTicks = 1'000;
    return std::min(numTicks, kMostTicks);
}

/// The secondary series lie under the primary ones.
std::string_view CGraph::DrawGraph(CCanvas& canvas, const Box& rect) const {
    const GraphLayout layout = LayOutGraph(canvas, *this, rect);
    canvas.SelectTextColor(kAxisColor);
    DrawFrame(canvas, *this, layout);
    DrawTitle(canvas, *this, layout);
    if (graphHasGridLines == 1) DrawPlainGrid(canvas, *this, layout);
    DrawAxes(canvas, *this, layout);
    if (dualAxis == 1) {
        DrawSecondAxis(canvas, *this, layout);
        DrawSecondSeries(canvas, *this, layout);
    }
    const GraphKindRow* const kind = FindGraphKind(*this);
    if (kind == nullptr) return "No graph type to display";
    kind->drawSeries(canvas, *this, layout);
    return {};
}

}  // namespace tradebill
