#include "graph/line_series.h"

#include <cstddef>
#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "graph/value_labels.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

/// What the two lines differ in.
struct Line {
    const SeriesList& series;
    std::int32_t groups;
    double divisor;
    std::int32_t decimals;
    HeightOfValue heightOf;
    Color (*colorOf)(const CGraph& graph, std::int32_t group, double value);
};

std::int32_t DotRadius(const CGraph& graph) {
    return ClampPixel(graph.markerRadius);
}

std::int32_t LeastLabelGap(const CGraph& graph) {
    return graph.valueGapDivisor != 0 ? ToPixel(static_cast<double>(graph.screenWidth) / graph.valueGapDivisor) : 0;
}

/// The segment that arrives at a point, and its dot, outlined by the pen in use.
void DrawPoint(CCanvas& canvas, const CGraph& graph, Color color, const Point* previous, Point at) {
    if (previous != nullptr) {
        const CPenScope pen(canvas, SeriesPen(graph, color));
        DrawLineBetween(canvas, *previous, at);
    }
    DrawDot(canvas, color, at, DotRadius(graph));
}

void DrawGroup(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, const Line& line, std::int32_t group) {
    const CPlotPlane plane(graph, layout);
    const std::size_t count = line.series.size();
    CValueLabels labels(DotRadius(graph), LeastLabelGap(graph));
    Point previous;
    for (std::size_t position = 1; position <= count; ++position) {
        const double value = line.series[position - 1]->ValueOf(group);
        const Point at{plane.LineX(position, count), layout.yApexPoint - (plane.*line.heightOf)(value)};
        DrawPoint(canvas, graph, line.colorOf(graph, group, value), position > 1 ? &previous : nullptr, at);
        if (graph.showValues == 1) {
            canvas.SelectTextBackground(TextBackground::Transparent);
            const LabelledPoint point{at, plane.LineX(position + 1, count), position == 1, position == count};
            if (labels.IsWanted(point)) labels.Place(canvas, point, ShownValue(value, line.divisor, line.decimals));
        }
        previous = at;
        labels.PassPoint(at);
    }
}

void DrawLine(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, const Line& line) {
    const CFontScope font(canvas, ChartFont(kTahoma, graph.tickFontSize));
    for (std::int32_t group = 0; group < line.groups; ++group) DrawGroup(canvas, graph, layout, line, group);
}

/// Lying points stand in the middle of their rows, joined by nothing.
void DrawLyingDots(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPlotPlane plane(graph, layout);
    for (std::int32_t group = 0; group < graph.Groups(); ++group) {
        for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
            const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
            if (!value) continue;
            const double rowsBelow = static_cast<double>(position) * plane.Slot() - plane.Slot() * 0.5;
            const Point at{layout.xApexPoint + plane.LineHeight(*value), ToPixel(plane.Bottom() - rowsBelow)};
            DrawDot(canvas, graph.GroupColor(group), at, DotRadius(graph));
        }
    }
}

}  // namespace

void DrawLineSeries(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (layout.axes.isLying) {
        DrawLyingDots(canvas, graph, layout);
        return;
    }
    DrawLine(canvas, graph, layout,
             {.series = graph.graphSeries,
              .groups = graph.Groups(),
              .divisor = graph.valueDivisor,
              .decimals = graph.decimalDigits,
              .heightOf = &CPlotPlane::LineHeight,
              .colorOf = [](const CGraph& chart, std::int32_t group, double) { return chart.GroupColor(group); }});
}

void DrawSecondLine(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    DrawLine(canvas, graph, layout,
             {.series = graph.graphSeries2,
              .groups = graph.SecondGroups(),
              .divisor = graph.valueDivisor2,
              .decimals = graph.decimalDigits2,
              .heightOf = &CPlotPlane::SecondLineHeight,
              .colorOf = [](const CGraph& chart, std::int32_t, double value) { return chart.SecondColor(value); }});
}

}  // namespace tradebill
