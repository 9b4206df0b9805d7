#include "graph/graph.h"

#include <algorithm>

#include "base/gbk.h"
#include "base/text.h"
#include "graph/graph_measures.h"
#include "graph/graph_painters.h"

namespace tradebill {
namespace {

/// Groups without data are painted as zeros, which need not be more.
constexpr std::int32_t kMostGroups = 1'000;

struct GraphPainter {
    std::int32_t kind;
    bool isArea;  ///< only with `fillArea`
    void (*draw)(CGraph& graph, CCanvas& canvas);
};

constexpr GraphPainter kPainters[] = {
    {kLineGraph, true, DrawAreaSeries},
    {kLineGraph, false, DrawLineSeries},
    {kBarGraph, false, DrawBarSeries},
    {kPieGraph, false, DrawPieSeries},
    {kScatterGraph, false, DrawScatterSeries},
    {kBoxGraph, false, DrawBoxSeries},
    {kStackedBarGraph, false, DrawStackedBarSeries},
    {kSlotLineGraph, false, DrawSlotLineSeries},
    {kBar3dGraph, false, DrawBar3dSeries},
    {kLine3dGraph, false, DrawLine3dSeries},
    {kPie3dGraph, false, DrawPie3dSeries},
    {kStackedBar3dGraph, false, DrawStackedBar3dSeries},
};

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

void CGraph::DrawGraph(CCanvas& canvas, const Box& rect) {
    for (std::int32_t* const pixels : {&markerRadius, &lineWidth, &depthShiftX, &depthShiftY}) {
        *pixels = HeldPixel(*pixels);
    }
    canvas.SelectTextColor(kAxisColor);
    outline = {HeldPixel(rect.left), HeldPixel(rect.top), HeldPixel(rect.right), HeldPixel(rect.bottom)};
    DrawFrame(canvas);
    maxHeight = outline.bottom - outline.top;
    maxWidth = outline.right - outline.left;
    const TextExtent title = DrawTitle(canvas);
    LayOut(canvas, title);
    if (graphHasGridLines == 1) DrawGridLines(canvas);
    hideAxisLabels = 0;
    DrawAxis(canvas);
    if (dualAxis == 1) {
        DrawRightAxis(canvas);
        if (graphType2 == 1) DrawSecondLine(*this, canvas);
        if (graphType2 == 0) DrawSecondBars(*this, canvas);
    }
    DrawSeries(canvas);
}

void CGraph::DrawSeries(CCanvas& canvas) {
    message.clear();
    const auto painter = std::ranges::find_if(kPainters, [this](const GraphPainter& candidate) {
        return candidate.kind == graphType && (!candidate.isArea || fillArea == 1);
    });
    if (painter == std::end(kPainters)) {
        message = "No graph type to display";
    } else {
        painter->draw(*this, canvas);
    }
}

}  // namespace tradebill
