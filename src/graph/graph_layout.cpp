#include "graph/graph_layout.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/number.h"
#include "base/scale.h"
#include "base/text.h"
#include "graph/axis_arrangement.h"
#include "graph/axis_titles.h"
#include "graph/graph.h"
#include "graph/graph_kinds.h"
#include "graph/graph_measures.h"
#include "graph/graph_title.h"
#include "paint/canvas.h"
#include "paint/font.h"

namespace tradebill {
namespace {

double TickStep(const CGraph& graph, const GraphLayout& layout) {
    return static_cast<double>(layout.yAxisHeight) / graph.TickCount();
}

/// As the layout measures it: the axis itself multiplies.
std::string MeasuredRightTickText(const CGraph& graph, std::int32_t tick) {
    const double value = (tick * graph.tickSpace2 + graph.minTick2) / graph.valueDivisor2;
    return std::string(CNumberText::Fixed(value, graph.decimalDigits2).View()).append(FieldText(graph.valueSuffix2));
}

/// The longest of the tick texts, the last one of several; the lowest tick isn't looked at.
std::string LongestTickText(const CGraph& graph, std::string (*textOf)(const CGraph& graph, std::int32_t tick)) {
    std::string longest;
    for (std::int32_t tick = 1; tick <= graph.TickCount(); ++tick) {
        std::string text = textOf(graph, tick);
        if (text.size() >= longest.size()) longest = std::move(text);
    }
    return longest;
}

/// What tick texts and the caption over them take, whichever is wider.
std::int32_t TickColumnWidth(CCanvas& canvas, const CGraph& graph, std::string_view longest, std::string_view unit) {
    const std::int32_t ticks = MeasureIn(canvas, ChartFont(kTahoma, graph.tickFontSize), longest).width;
    return std::max(ticks, MeasureBlockIn(canvas, ChartFont(kSong, graph.tickFontSize), unit).width);
}

/// Under the plot: room for turned labels, or for labels and the title of X.
std::int32_t AxisBottomOf(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (graph.xAxisAlign != 0) {
        const double labels = static_cast<double>(graph.xAxisLabelLength) * (graph.xLabelFontSize / 2);
        return ToPixel(layout.maxHeight - labels) + layout.outline.top - 15;
    }
    const std::int32_t title = MeasureBlockIn(canvas, ChartFont(kTahoma, graph.tickFontSize), graph.axisXLabel).height;
    if (title != 0) return layout.maxHeight - title - ScaleByDpi(35, graph.dpi) + layout.outline.top;
    return layout.maxHeight - ScaleByDpi(30, graph.dpi) + layout.outline.top;
}

void LayOutUpright(CCanvas& canvas, const CGraph& graph, GraphLayout& layout) {
    const std::int32_t left =
        TickColumnWidth(canvas, graph, LongestTickText(graph, LeftTickText), FieldText(graph.unitText));
    const std::int32_t yTitle = MeasureBlockIn(canvas, ChartFont(kTahoma, graph.tickFontSize), graph.axisYLabel).width;
    layout.xApexPoint = ToPixel(layout.outline.left + 10 + left + yTitle * 1.5 + 20.0);

    layout.axisBottom = AxisBottomOf(canvas, graph, layout);
    layout.plotHeight = layout.axisBottom - ScaleByDpi(10, graph.dpi) - layout.outline.top;
    const TextExtent title = MeasureTitle(canvas, graph);
    if (title.height > 0) layout.plotHeight -= ScaleByDpi(10, graph.dpi) + title.height;

    layout.xAxisWidth = layout.outline.left - layout.xApexPoint + layout.maxWidth - 20;
    if (graph.dualAxis == 1) {
        layout.xAxisWidth -=
            TickColumnWidth(canvas, graph, LongestTickText(graph, MeasuredRightTickText), FieldText(graph.unitText2));
    }
    const std::int32_t row = RowCount(graph) > 0 ? layout.plotHeight / RowCount(graph) : 0;
    layout.yApexPoint = layout.axisBottom - (graph.baseRow == 1 ? row : 0);
    layout.yAxisHeight = row * graph.TickCount();
}

/// Lying charts and scattered dots: room for labels of a length told beforehand at the left, for numbers below.
void LayOutNumeric(CCanvas& canvas, const CGraph& graph, GraphLayout& layout) {
    const std::int32_t fontHeight =
        graph.graphType == kLineGraph ? graph.tickFontSize : AxisTitleHeight(graph, layout.outline);
    const CFontScope font(canvas, ChartFont(kTahoma, fontHeight));
    const TextMetrics metrics = canvas.Metrics();
    const std::string& sideTitle = layout.axes.isLying ? graph.axisXLabel : graph.axisYLabel;
    const std::int32_t titleGap = sideTitle.empty() ? 0 : metrics.height + 10;
    const auto longest = static_cast<double>(WidthInBytes(LongestTickText(graph, LeftTickText)));
    layout.xApexPoint = ToPixel(static_cast<double>(graph.xAxisLabelLength) * metrics.averageWidth) +
                        layout.outline.left + titleGap + 5;
    layout.yApexPoint = layout.maxHeight - metrics.height + layout.outline.top - 15;
    layout.yAxisHeight = layout.yApexPoint - layout.outline.top - 50;
    layout.xAxisWidth = ToPixel(layout.maxWidth - graph.tickFontSize / 2 * longest) - 65;
    layout.axisBottom = layout.yApexPoint;
    layout.plotHeight = layout.yAxisHeight;
}

void LayOutPies(GraphLayout& layout) {
    layout.xAxisWidth = layout.maxWidth - 10;
    layout.yAxisHeight = layout.maxHeight - 50;
    layout.xApexPoint = layout.outline.left + 5;
    layout.yApexPoint = layout.maxHeight + layout.outline.top - 5;
    layout.axisBottom = layout.yApexPoint;
    layout.plotHeight = layout.yAxisHeight;
}

void TakeOffDepth(const CGraph& graph, GraphLayout& layout) {
    layout.depth = ToPixel(layout.yAxisHeight * graph.depthRatio);
    layout.xAxisWidth -= layout.depth;
    layout.yAxisHeight -= layout.depth;
}

bool IsPie(const CGraph& graph) {
    const GraphKindRow* const kind = FindGraphKind(graph);
    return kind != nullptr && kind->ground == GraphGround::None;
}

}  // namespace

GraphLayout LayOutGraph(CCanvas& canvas, const CGraph& graph, const Box& rect) {
    GraphLayout layout;
    layout.axes = ArrangementOf(graph);
    layout.outline = {ClampPixel(rect.left), ClampPixel(rect.top), ClampPixel(rect.right), ClampPixel(rect.bottom)};
    layout.maxWidth = layout.outline.right - layout.outline.left;
    layout.maxHeight = layout.outline.bottom - layout.outline.top;
    if (IsPie(graph)) {
        LayOutPies(layout);
    } else if (layout.axes.isLying || graph.graphType == kScatterGraph) {
        LayOutNumeric(canvas, graph, layout);
    } else {
        LayOutUpright(canvas, graph, layout);
    }
    if (layout.axes.isXCentred) layout.xApexPoint += layout.xAxisWidth / 2;
    if (layout.axes.isYCentred) layout.yApexPoint -= layout.yAxisHeight / 2;
    if (layout.axes.style == AxisStyle::Box) TakeOffDepth(graph, layout);
    return layout;
}

std::int32_t RowCount(const CGraph& graph) {
    return graph.TickCount() + (graph.topRowMode == 0 || graph.topRowMode == 1 ? 1 : 0) + (graph.baseRow == 1 ? 1 : 0);
}

std::int32_t TickY(const CGraph& graph, const GraphLayout& layout, std::int32_t tick) {
    return ToPixel(layout.yApexPoint - tick * TickStep(graph, layout));
}

double TopOfRows(const CGraph& graph, const GraphLayout& layout) {
    return layout.axisBottom - RowCount(graph) * TickStep(graph, layout);
}

std::string LeftTickText(const CGraph& graph, std::int32_t tick) {
    const double value = (tick * graph.tickSpace + graph.minTick) / graph.valueDivisor;
    return std::string(CNumberText::Fixed(value, graph.decimalDigits).View()).append(FieldText(graph.valueSuffix));
}

}  // namespace tradebill
