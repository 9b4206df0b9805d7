// The line with dots, of the primary series and of the secondary ones.
#include "graph/graph_measures.h"
#include "graph/graph_painters.h"
#include "graph/graph_plane.h"
#include "graph/value_labels.h"

namespace tradebill {
namespace {

/// What the two lines differ in.
struct Line {
    const SeriesList& series;
    std::int32_t groups;
    double divisor;
    std::int32_t decimals;
    std::int32_t (*heightOf)(const CGraph& graph, double value);
    Color (*colorOf)(const CGraph& graph, std::int32_t group, double value);
};

/// On the right axis; a point that would leave the image stands just over the highest tick.
std::int32_t SecondHeight(const CGraph& graph, double value) {
    const double range = graph.maxTick2 - graph.minTick2;
    const double scale = graph.yAxisHeight / range;
    const std::int32_t height = ToPixel((value - graph.minTick2) * scale);
    return height > graph.yApexPoint ? ToPixel(range * scale) + 5 : height;
}

std::int32_t LeastLabelGap(const CGraph& graph) {
    return graph.valueGapDivisor != 0 ? ToPixel(static_cast<double>(graph.screenWidth) / graph.valueGapDivisor) : 0;
}

/// The segment that arrives at a point, and its dot, outlined by the pen in use.
void DrawPoint(const CGraph& graph, CCanvas& canvas, Color color, const Point* previous, Point at) {
    if (previous != nullptr) {
        const CPenScope pen(canvas, {.width = graph.lineWidth, .color = color});
        DrawLineBetween(canvas, *previous, at);
    }
    DrawDot(canvas, color, at, graph.markerRadius);
}

void DrawGroup(const CGraph& graph, CCanvas& canvas, const Line& line, std::int32_t group) {
    const CPlotPlane plane(graph);
    const std::size_t count = line.series.size();
    CValueLabels labels(graph.markerRadius, LeastLabelGap(graph));
    Point previous;
    for (std::size_t position = 1; position <= count; ++position) {
        const double value = line.series[position - 1]->ValueOf(group);
        const Point at{plane.LineX(position, count), graph.yApexPoint - line.heightOf(graph, value)};
        DrawPoint(graph, canvas, line.colorOf(graph, group, value), position > 1 ? &previous : nullptr, at);
        if (graph.showValues == 1) {
            canvas.SelectTextBackground(TextBackground::Transparent);
            const LabelledPoint point{at, plane.LineX(position + 1, count), position == 1, position == count};
            if (labels.IsWanted(point)) labels.Place(canvas, point, ShownValue(value, line.divisor, line.decimals));
        }
        previous = at;
        labels.PassPoint(at);
    }
}

void DrawUpright(const CGraph& graph, CCanvas& canvas, const Line& line) {
    const CFontScope font(canvas, ChartFont(kTahoma, graph.tickFontSize));
    for (std::int32_t group = 0; group < line.groups; ++group) DrawGroup(graph, canvas, line, group);
}

/// Lying points stand in the middle of their rows, joined by nothing.
void DrawLyingDots(const CGraph& graph, CCanvas& canvas) {
    const CPlotPlane plane(graph);
    for (std::int32_t group = 0; group < graph.Groups(); ++group) {
        for (std::size_t position = 1; position <= graph.graphSeries.size(); ++position) {
            const auto value = ValueToDraw(*graph.graphSeries[position - 1], group);
            if (!value) continue;
            const double rowsBelow = static_cast<double>(position) * plane.Slot() - plane.Slot() * 0.5;
            const Point at{graph.xApexPoint + plane.LineHeight(*value), ToPixel(plane.Bottom() - rowsBelow)};
            DrawDot(canvas, graph.GroupColor(group), at, graph.markerRadius);
        }
    }
}

}  // namespace

void DrawLineSeries(CGraph& graph, CCanvas& canvas) {
    if (IsLying(graph)) {
        DrawLyingDots(graph, canvas);
        return;
    }
    DrawUpright(graph, canvas,
                {.series = graph.graphSeries,
                 .groups = graph.Groups(),
                 .divisor = graph.valueDivisor,
                 .decimals = graph.decimalDigits,
                 .heightOf = [](const CGraph& chart, double value) { return CPlotPlane(chart).LineHeight(value); },
                 .colorOf = [](const CGraph& chart, std::int32_t group, double) { return chart.GroupColor(group); }});
}

void DrawSecondLine(CGraph& graph, CCanvas& canvas) {
    DrawUpright(graph, canvas,
                {.series = graph.graphSeries2,
                 .groups = graph.SecondGroups(),
                 .divisor = graph.valueDivisor2,
                 .decimals = graph.decimalDigits2,
                 .heightOf = SecondHeight,
                 .colorOf = [](const CGraph& chart, std::int32_t, double value) { return chart.SecondColor(value); }});
}

}  // namespace tradebill
