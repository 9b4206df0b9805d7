#include "graph/crossed_axes.h"

#include <cstdint>
#include <vector>

#include "graph/axis_titles.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "graph/position_labels.h"
#include "graph/value_marks.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr Color kCentredGridColor = 0x808080;
constexpr Color kBetweenColor = 0xE1E1E1;

/// The rectangle that the axes run through.
Box PlotBox(const CGraph& graph, const GraphLayout& layout) {
    const CPlotPlane plane(graph, layout);
    const bool overshoots = !layout.axes.isXCentred && !layout.axes.isLying && graph.graphType != kScatterGraph;
    return {plane.Left(), plane.Bottom() - layout.yAxisHeight, plane.Left() + layout.xAxisWidth + (overshoots ? 5 : 0),
            plane.Bottom()};
}

Pen GridPen(const AxisArrangement& axes, const ValueMark& mark) {
    if (mark.isBetween) return {.width = 1, .color = kBetweenColor};
    return {.width = 1, .color = axes.IsCentred() ? kCentredGridColor : kGridColor};
}

void DrawCrossedGrid(CCanvas& canvas, const GraphLayout& layout, const Box& plot, const CrossedMarks& marks) {
    for (const ValueMark& mark : marks.y) {
        const CPenScope pen(canvas, GridPen(layout.axes, mark));
        const std::int32_t y = layout.yApexPoint - mark.offset;
        DrawLineBetween(canvas, {plot.left, y}, {plot.right, y});
    }
    for (const ValueMark& mark : marks.x) {
        const CPenScope pen(canvas, GridPen(layout.axes, mark));
        const std::int32_t x = layout.xApexPoint + mark.offset;
        DrawLineBetween(canvas, {x, plot.top}, {x, plot.bottom});
    }
}

void DrawCrossedLines(CCanvas& canvas, const GraphLayout& layout, const Box& plot) {
    const CPenScope pen(canvas, kAxisPen);
    DrawLineBetween(canvas, {layout.xApexPoint, plot.bottom}, {layout.xApexPoint, plot.top});
    DrawLineBetween(canvas, {plot.left, layout.yApexPoint}, {plot.right, layout.yApexPoint});
}

void DrawYMarks(CCanvas& canvas, const GraphLayout& layout, const Box& plot, const std::vector<ValueMark>& marks) {
    for (const ValueMark& mark : marks) {
        if (mark.isBetween) continue;
        const auto [x, y] = Point{layout.xApexPoint, layout.yApexPoint - mark.offset};
        DrawLineBetween(canvas, {x - kHalfTick, y}, {x + kHalfTick, y});
        const TextExtent extent = canvas.MeasureText(mark.text);
        canvas.WriteText({plot.left - extent.width - 10, y - extent.height / 2}, mark.text);
    }
}

void DrawXMarks(CCanvas& canvas, const GraphLayout& layout, const Box& plot, const std::vector<ValueMark>& marks) {
    for (const ValueMark& mark : marks) {
        if (mark.isBetween) continue;
        const auto [x, y] = Point{layout.xApexPoint + mark.offset, layout.yApexPoint};
        DrawLineBetween(canvas, {x, y - kHalfTick}, {x, y + kHalfTick});
        canvas.WriteText({x - canvas.MeasureText(mark.text).width / 2, plot.bottom + 8}, mark.text);
    }
}

void DrawAxesWithMarks(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const Box plot = PlotBox(graph, layout);
    const CrossedMarks marks = CrossedMarksOf(graph, layout);
    if (graph.graphHasGridLines == 1) DrawCrossedGrid(canvas, layout, plot, marks);
    DrawCrossedLines(canvas, layout, plot);
    const CFontScope font(canvas, ChartFont(kTahoma, graph.tickFontSize));
    DrawYMarks(canvas, layout, plot, marks.y);
    DrawXMarks(canvas, layout, plot, marks.x);
}

}  // namespace

CrossedMarks CrossedMarksOf(const CGraph& graph, const GraphLayout& layout) {
    const AxisArrangement& axes = layout.axes;
    const bool isScatter = graph.graphType == kScatterGraph;
    CrossedMarks marks;
    if (isScatter || !axes.isLying) marks.y = MarksOf(graph, axes, {layout.yAxisHeight, 10, axes.isYCentred});
    if (isScatter || axes.isLying) {
        marks.x = MarksOf(graph, axes, {layout.xAxisWidth, isScatter ? 20 : 0, axes.isXCentred});
    }
    return marks;
}

void DrawCrossedAxes(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const bool hasLabels = graph.graphType != kScatterGraph;
    DrawAxesWithMarks(canvas, graph, layout);
    if (layout.axes.isLying) {
        const std::int32_t edge = CPlotPlane(graph, layout).Left();
        if (hasLabels) DrawRowLabels(canvas, graph, layout, {.edge = edge, .tick = layout.xApexPoint});
        DrawLyingTitles(canvas, graph, layout);
    } else {
        DrawYTitle(canvas, graph, layout);
        DrawXTitle(canvas, graph, layout);
        if (hasLabels) DrawPositionLabels(canvas, graph, layout);
    }
}

}  // namespace tradebill
