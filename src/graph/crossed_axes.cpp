// Axes of lying charts, scattered dots and the quadrants. Ticks stand on the axes, their texts at the edges of the
// plot, where no bar runs through them.
#include "base/number.h"
#include "graph/graph_axes.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "graph/row_labels.h"
#include "graph/value_marks.h"

namespace tradebill {
namespace {

constexpr Color kCrossedGridColor = 0x808080;
constexpr Color kBetweenColor = 0xE1E1E1;

/// The rectangle that the axes run through.
Box PlotOf(const CGraph& graph) {
    const CPlotPlane plane(graph);
    const bool overshoots = !IsXCentred(graph) && !IsLying(graph) && graph.graphType != kScatterGraph;
    return {plane.Left(), plane.Bottom() - graph.yAxisHeight, plane.Left() + graph.xAxisWidth + (overshoots ? 5 : 0),
            plane.Bottom()};
}

Color GridColor(const CGraph& graph, const ValueMark& mark) {
    if (mark.isBetween) return kBetweenColor;
    return IsXCentred(graph) || IsYCentred(graph) ? kCrossedGridColor : kGridColor;
}

class CCrossedAxes {
public:
    CCrossedAxes(CGraph& graph, CCanvas& canvas) : graph_(graph), canvas_(canvas), plot_(PlotOf(graph)) {}

    void Draw() {
        const bool isScatter = graph_.graphType == kScatterGraph;
        std::vector<ValueMark> yMarks;
        std::vector<ValueMark> xMarks;
        if (isScatter || !IsLying(graph_)) yMarks = MarksOf(graph_, {graph_.yAxisHeight, 10, IsYCentred(graph_)});
        if (isScatter || IsLying(graph_)) {
            xMarks = MarksOf(graph_, {graph_.xAxisWidth, isScatter ? 20 : 0, IsXCentred(graph_)});
        }
        if (graph_.graphHasGridLines == 1) DrawGrid(xMarks, yMarks);
        DrawLines();
        const CFontScope font(canvas_, ChartFont(kTahoma, graph_.tickFontSize));
        DrawYTicks(yMarks);
        DrawXTicks(xMarks);
    }

private:
    void DrawGrid(const std::vector<ValueMark>& xMarks, const std::vector<ValueMark>& yMarks) {
        for (const ValueMark& mark : yMarks) {
            const CPenScope pen(canvas_, {.width = 1, .color = GridColor(graph_, mark)});
            const std::int32_t y = graph_.yApexPoint - mark.offset;
            DrawLineBetween(canvas_, {plot_.left, y}, {plot_.right, y});
        }
        for (const ValueMark& mark : xMarks) {
            const CPenScope pen(canvas_, {.width = 1, .color = GridColor(graph_, mark)});
            const std::int32_t x = graph_.xApexPoint + mark.offset;
            DrawLineBetween(canvas_, {x, plot_.top}, {x, plot_.bottom});
        }
    }

    void DrawLines() {
        const CPenScope pen(canvas_, kAxisPen);
        DrawLineBetween(canvas_, {graph_.xApexPoint, plot_.bottom}, {graph_.xApexPoint, plot_.top});
        DrawLineBetween(canvas_, {plot_.left, graph_.yApexPoint}, {plot_.right, graph_.yApexPoint});
    }

    void DrawYTicks(const std::vector<ValueMark>& marks) {
        for (const ValueMark& mark : marks) {
            if (mark.isBetween) continue;
            const std::int32_t y = graph_.yApexPoint - mark.offset;
            DrawLineBetween(canvas_, {graph_.xApexPoint - 3, y}, {graph_.xApexPoint + 3, y});
            const TextExtent extent = canvas_.MeasureText(mark.text);
            canvas_.WriteText({plot_.left - extent.width - 10, y - extent.height / 2}, mark.text);
            graph_.yAxisLast = y;
        }
    }

    void DrawXTicks(const std::vector<ValueMark>& marks) {
        for (const ValueMark& mark : marks) {
            if (mark.isBetween) continue;
            const std::int32_t x = graph_.xApexPoint + mark.offset;
            DrawLineBetween(canvas_, {x, graph_.yApexPoint - 3}, {x, graph_.yApexPoint + 3});
            canvas_.WriteText({x - canvas_.MeasureText(mark.text).width / 2, plot_.bottom + 8}, mark.text);
            graph_.xAxisLast = x;
        }
    }

    CGraph& graph_;
    CCanvas& canvas_;
    Box plot_;
};

}  // namespace

void DrawCrossedAxes(CGraph& graph, CCanvas& canvas) {
    CCrossedAxes(graph, canvas).Draw();
    if (!IsLying(graph)) return;
    const CPlotPlane plane(graph);
    if (graph.graphType != kScatterGraph)
        DrawRowLabels(graph, canvas, {.edge = plane.Left(), .tick = graph.xApexPoint});
    DrawLyingTitles(graph, canvas);
}

}  // namespace tradebill
