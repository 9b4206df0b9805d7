#include "graph/plain_axes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/text.h"
#include "graph/axis_arrangement.h"
#include "graph/axis_titles.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "graph/position_labels.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

void DrawTickRows(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const std::int32_t xEnd = layout.xAxisWidth + layout.xApexPoint - 10;
    for (std::int32_t tick = 0; tick <= graph.TickCount(); ++tick) {
        const bool isThick = graph.midLineThick == 1 && tick == graph.numTicks / 2;
        const CPenScope pen(canvas, {.width = isThick ? 3 : 1, .color = kGridColor});
        const std::int32_t y = TickY(graph, layout, tick);
        DrawLineBetween(canvas, {layout.xApexPoint, y}, {xEnd, y});
    }
}

/// The first point has the axis.
void DrawPointColumns(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const std::int32_t top = TickY(graph, layout, graph.TickCount() + (graph.topRowMode == 1 ? 1 : 0));
    const CPlotPlane plane(graph, layout);
    const CPenScope pen(canvas, {.width = 1, .color = kGridColor});
    std::optional<std::int32_t> last;  // where positions are many, several fall on one column
    for (std::size_t position = 2; position <= graph.graphSeries.size(); ++position) {
        const std::int32_t x = plane.PointX(position, graph.graphSeries.size());
        if (x != last) DrawLineBetween(canvas, {x, top}, {x, layout.axisBottom});
        last = x;
    }
}

void DrawAxisLines(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPenScope pen(canvas, kAxisPen);
    const auto [x, y] = Point{layout.xApexPoint, layout.axisBottom};
    DrawLineBetween(canvas, {x, y}, {x, ToPixel(TopOfRows(graph, layout))});
    const bool isClosed = graph.dualAxis == 1 || graph.rightBorder == 1;
    const std::int32_t xEnd = x + layout.xAxisWidth + (isClosed ? -10 : 5);  // past the last point by 15
    const std::int32_t top = ToPixel(TopOfRows(graph, layout) + 1.0);
    DrawLineBetween(canvas, {x, y}, {xEnd, y});
    if (graph.topRowMode == 1) DrawLineBetween(canvas, {x, top}, {xEnd, top});
    if (graph.dualAxis != 1 && graph.rightBorder == 1) DrawLineBetween(canvas, {xEnd, top}, {xEnd, y});
}

void DrawLeftTicks(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CFontScope font(canvas, ChartFont(kTahoma, graph.tickFontSize));
    const std::int32_t x = layout.xApexPoint;
    for (std::int32_t tick = 0; tick <= graph.TickCount(); ++tick) {
        const std::int32_t y = TickY(graph, layout, tick);
        DrawLineBetween(canvas, {x - kHalfTick, y}, {x + kHalfTick, y});
        const std::string text = LeftTickText(graph, tick);
        const TextExtent extent = canvas.MeasureText(text);
        canvas.WriteText({x - extent.width - 10, y - extent.height / 2}, text);
    }
}

void DrawLeftCaption(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (graph.unitText[0] == '\0') return;
    const CFontScope font(canvas, ChartFont(kSong, graph.tickFontSize));
    const std::string caption = " " + std::string(FieldText(graph.unitText)) + " ";
    canvas.SelectTextBackground(TextBackground::Transparent);
    canvas.WriteText({layout.xApexPoint - canvas.MeasureText(caption).width, layout.axisBottom - layout.plotHeight},
                     caption);
}

}  // namespace

void DrawPlainGrid(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (layout.axes.style == AxisStyle::Crossed || layout.axes.style == AxisStyle::Box) return;
    DrawTickRows(canvas, graph, layout);
    DrawPointColumns(canvas, graph, layout);
}

void DrawPlainAxes(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    DrawAxisLines(canvas, graph, layout);
    DrawYTitle(canvas, graph, layout);
    DrawXTitle(canvas, graph, layout);
    DrawLeftTicks(canvas, graph, layout);
    DrawLeftCaption(canvas, graph, layout);
    DrawPositionLabels(canvas, graph, layout);
}

}  // namespace tradebill
