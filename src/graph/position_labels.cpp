#include "graph/position_labels.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "graph/axis_arrangement.h"
#include "graph/axis_titles.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"
#include "paint/escapement.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr std::size_t kAllShown = 5;

/// Every so many positions have a label: five to eight of them, however many there are.
std::size_t LabelInterval(std::size_t count) {
    if (count <= kAllShown) return 1;
    return count / kAllShown >= 2 ? count / kAllShown : 2;
}

bool ContainsPoint(const Box& box, Point point) {
    return point.x >= box.left && point.x < box.right && point.y >= box.top && point.y < box.bottom;
}

std::int32_t HalfLabelWidth(const std::string& label, std::int32_t averageWidth) {
    return ToPixel(static_cast<double>(WidthInBytes(label)) * averageWidth) / 2;
}

bool IsPlainArea(const CGraph& graph, const GraphLayout& layout) {
    return layout.axes.style == AxisStyle::Plain && IsArea(graph);
}

/// Bands and crossed axes have their ticks at the lowest value, above the spare row.
std::int32_t TickLineY(const CGraph& graph, const GraphLayout& layout) {
    return layout.axes.style != AxisStyle::Plain || IsArea(graph) ? layout.yApexPoint : layout.axisBottom;
}

/// Labels stay out of a plot whose axis runs through its middle.
std::int32_t LabelTop(const CGraph& graph, const GraphLayout& layout) {
    return (IsPlainArea(graph, layout) ? layout.yApexPoint : layout.axisBottom) + 8;
}

void DrawPositionTick(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, std::int32_t x) {
    const std::int32_t y = TickLineY(graph, layout);
    if (layout.axes.style == AxisStyle::Box) {
        DrawDepthTick(canvas, layout.depth, {x, y});
    } else {
        DrawLineBetween(canvas, {x, y - kHalfTick}, {x, y + kHalfTick});
    }
}

/// All of them, without ticks.
void DrawTurnedLabels(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPlotPlane plane(graph, layout);
    const double length = graph.xAxisLabelLength;
    const std::int32_t reserved = ToPixel(length * canvas.Metrics().averageWidth);
    const std::int32_t top = layout.yApexPoint + 8;
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::int32_t x = plane.PointX(position, graph.graphSeries.size());
        const Point at = graph.xAxisAlign >= 180 ? Point{x + 2, top} : Point{x - 8, reserved + top};
        canvas.WriteText(at, graph.graphSeries[position - 1]->seriesLabel);
    }
}

/// A tick for each, and each label that doesn't begin inside the one before.
void DrawLabelsApart(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, std::int32_t averageWidth) {
    const CPlotPlane plane(graph, layout);
    const std::int32_t top = LabelTop(graph, layout);
    Box lastLabel;
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::string& label = graph.graphSeries[position - 1]->seriesLabel;
        const std::int32_t x = plane.PointX(position, graph.graphSeries.size());
        const std::int32_t halfWidth = HalfLabelWidth(label, averageWidth);
        const Box box{x - halfWidth, top, x + halfWidth, top + canvas.MeasureText(label).height};
        DrawPositionTick(canvas, graph, layout, x);
        const bool isCovered =
            ContainsPoint(lastLabel, {box.left, box.top}) || ContainsPoint(lastLabel, {box.left, box.bottom});
        if (position > 1 && isCovered) continue;
        canvas.WriteText({box.left, box.top}, label);
        lastLabel = box;
    }
}

/// Ticks and labels at every so many positions, and at the last one if there is room.
void DrawThinnedLabels(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, std::int32_t averageWidth) {
    const CPlotPlane plane(graph, layout);
    const std::size_t count = graph.graphSeries.size();
    std::int32_t lastRight = 0;
    for (std::size_t position = 1; position <= count; ++position) {
        const std::string& label = graph.graphSeries[position - 1]->seriesLabel;
        const std::int32_t x = plane.PointX(position, count);
        const std::int32_t halfWidth = HalfLabelWidth(label, averageWidth);
        const bool isRegular = position == 1 || (position - 1) % LabelInterval(count) == 0;
        const bool isLast = position == count && x - lastRight >= halfWidth;
        if (!isRegular && !isLast) continue;
        if (isRegular && position > 1) lastRight = x + halfWidth;
        DrawPositionTick(canvas, graph, layout, x);
        canvas.WriteText({x - halfWidth, LabelTop(graph, layout)}, label);
    }
}

}  // namespace

void DrawPositionLabels(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    std::int32_t averageWidth = 0;
    {
        const CFontScope font(canvas, ChartFont(kTahoma, AxisTitleHeight(graph, layout.outline)));
        averageWidth = canvas.Metrics().averageWidth;  // of the axis titles, not of the labels
    }
    const CFontScope font(canvas, ChartFont(kTahoma, graph.xLabelFontSize, EscapementOfDegrees(graph.xAxisAlign)));
    if (graph.xAxisAlign != 0) {
        DrawTurnedLabels(canvas, graph, layout);
    } else if (graph.avoidLabelOverlap != 0) {
        DrawLabelsApart(canvas, graph, layout, averageWidth);
    } else {
        DrawThinnedLabels(canvas, graph, layout, averageWidth);
    }
}

void DrawRowLabels(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, const RowLabelPlace& place) {
    const CPlotPlane plane(graph, layout);
    const CFontScope font(canvas, ChartFont(kTahoma, graph.xLabelFontSize));
    std::int32_t lastTop = std::numeric_limits<std::int32_t>::max();
    for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
        const std::int32_t y = plane.Bottom() - plane.SlotMiddle(position);
        DrawLineBetween(canvas, {place.tick - kHalfTick, y}, {place.tick + kHalfTick, y});
        const std::string& label = graph.graphSeries[position - 1]->seriesLabel;
        const TextExtent extent = canvas.MeasureText(label);
        const std::int32_t top = y - extent.height / 2;
        if (layout.hideAxisLabels || top + extent.height > lastTop) continue;
        canvas.WriteText({place.edge - extent.width - 5, top}, label);
        lastTop = top;
    }
}

}  // namespace tradebill
