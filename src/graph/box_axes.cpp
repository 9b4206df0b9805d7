// Back wall and floor of the three-dimensional kinds. Depth runs up and to the right; values are read on the back wall.
#include "graph/graph_axes.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "graph/row_labels.h"
#include "graph/value_marks.h"

namespace tradebill {
namespace {

constexpr Color kWallGridColor = 0x808080;
constexpr std::int32_t kUpwards = 900;

class CBoxAxes {
public:
    /// While it lives the apex of the chart stands at the back.
    CBoxAxes(CGraph& graph, CCanvas& canvas) : graph_(graph), canvas_(canvas) {
        graph_.depth = ToPixel(graph_.yAxisHeight * graph_.depthRatio);
        graph_.xAxisWidth -= graph_.depth;
        graph_.yAxisHeight -= graph_.depth;
        graph_.xApexPoint += graph_.depth;
        graph_.yApexPoint -= graph_.depth;
    }
    ~CBoxAxes() {
        graph_.xApexPoint -= graph_.depth;
        graph_.yApexPoint += graph_.depth;
    }
    CBoxAxes(const CBoxAxes&) = delete;
    CBoxAxes& operator=(const CBoxAxes&) = delete;

    void Draw() {
        const std::int32_t length = IsLying(graph_) ? graph_.xAxisWidth : graph_.yAxisHeight;
        const std::vector<ValueMark> marks = MarksOf(graph_, {length, 0, false});
        if (graph_.graphHasGridLines == 1) DrawGrid(marks);
        DrawWalls();
        const CFontScope font(canvas_, ChartFont(kTahoma, graph_.tickFontSize));
        if (IsLying(graph_)) {
            DrawFloorTicks(marks);
        } else {
            DrawWallTicks(marks);
        }
    }

private:
    [[nodiscard]] Point ToFront(Point back) const { return {back.x - graph_.depth, back.y + graph_.depth}; }

    /// A fifth of the depth, away from the box.
    void DrawTick(Point at) {
        const std::int32_t outwardX = ToPixel(graph_.depth * -0.2);
        const std::int32_t outwardY = ToPixel(graph_.depth * 0.2);
        DrawLineBetween(canvas_, at, {at.x + outwardX, at.y + outwardY});
    }

    void DrawGrid(const std::vector<ValueMark>& marks) {
        const CPenScope pen(canvas_, {.width = 1, .color = kWallGridColor});
        const auto [x, y] = Point{graph_.xApexPoint, graph_.yApexPoint};
        for (const ValueMark& mark : marks) {
            if (IsLying(graph_)) {
                DrawLineBetween(canvas_, ToFront({x + mark.offset, y}), {x + mark.offset, y});
                DrawLineBetween(canvas_, {x + mark.offset, y}, {x + mark.offset, y - graph_.yAxisHeight});
            } else {
                DrawLineBetween(canvas_, {x, y - mark.offset}, {x + graph_.xAxisWidth, y - mark.offset});
            }
        }
    }

    void DrawWalls() {
        const CPenScope pen(canvas_, kAxisPen);
        const Point origin{graph_.xApexPoint, graph_.yApexPoint};
        const Point right{origin.x + graph_.xAxisWidth, origin.y};
        const Point topRight{right.x, right.y - graph_.yAxisHeight};
        const Point topLeft{origin.x, topRight.y};
        const Point wall[] = {origin, right, topRight, topLeft, origin};
        const Point floor[] = {origin, ToFront(origin), ToFront(right), right};
        DrawOutline(wall);
        DrawOutline(floor);
    }

    void DrawOutline(std::span<const Point> corners) {
        canvas_.MoveTo(corners.front());
        for (const Point corner : corners.subspan(1)) canvas_.LineTo(corner);
    }

    void DrawWallTicks(const std::vector<ValueMark>& marks) {
        for (const ValueMark& mark : marks) {
            const Point at{graph_.xApexPoint, graph_.yApexPoint - mark.offset};
            DrawTick(at);
            const TextExtent extent = canvas_.MeasureText(mark.text);
            canvas_.WriteText({ToFront(at).x - extent.width - 10, at.y - extent.height / 2}, mark.text);
            graph_.yAxisLast = at.y;
        }
    }

    void DrawFloorTicks(const std::vector<ValueMark>& marks) {
        for (const ValueMark& mark : marks) {
            const Point at = ToFront({graph_.xApexPoint + mark.offset, graph_.yApexPoint});
            DrawTick(at);
            canvas_.WriteText({at.x - canvas_.MeasureText(mark.text).width / 2, at.y + 8}, mark.text);
            graph_.xAxisLast = at.x;
        }
    }

    CGraph& graph_;
    CCanvas& canvas_;
};

/// Upwards along the wall.
void DrawTurnedYTitle(const CGraph& graph, CCanvas& canvas) {
    if (graph.axisYLabel.empty()) return;
    const CFontScope font(canvas, ChartFont(kTahoma, graph.AxisTitleHeight(), kUpwards));
    const std::int32_t width = canvas.MeasureText(graph.axisYLabel).width;
    const std::int32_t middle = graph.yApexPoint - graph.yAxisHeight / 2;
    canvas.WriteText({graph.outline.left + 10, middle + width / 2}, graph.axisYLabel);
}

}  // namespace

void DrawBoxAxes(CGraph& graph, CCanvas& canvas) {
    CBoxAxes(graph, canvas).Draw();
    if (IsLying(graph)) {
        DrawRowLabels(graph, canvas, {.edge = graph.xApexPoint, .tick = graph.xApexPoint});
        DrawLyingTitles(graph, canvas);
    } else {
        DrawTurnedYTitle(graph, canvas);
    }
}

}  // namespace tradebill
