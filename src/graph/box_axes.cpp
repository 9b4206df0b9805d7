#include "graph/box_axes.h"

#include <cstdint>
#include <span>
#include <vector>

#include "graph/axis_titles.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/position_labels.h"
#include "graph/value_marks.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr Color kWallGridColor = 0x808080;

/// The wall at the back of the box, whose front has the apex of the layout.
struct BackWall {
    Point origin;  ///< its lower left corner
    std::int32_t width;
    std::int32_t height;
    std::int32_t depth;

    [[nodiscard]] Point ToFront(Point back) const { return {back.x - depth, back.y + depth}; }
};

BackWall BackWallOf(const GraphLayout& layout) {
    return {{layout.xApexPoint + layout.depth, layout.yApexPoint - layout.depth},
            layout.xAxisWidth,
            layout.yAxisHeight,
            layout.depth};
}

/// Of upright values across the wall, of lying ones along the floor and up the wall.
void DrawBoxGrid(CCanvas& canvas, const BackWall& wall, bool isLying, const std::vector<ValueMark>& marks) {
    const CPenScope pen(canvas, {.width = 1, .color = kWallGridColor});
    const auto [x, y] = wall.origin;
    for (const ValueMark& mark : marks) {
        if (isLying) {
            const Point foot{x + mark.offset, y};
            DrawLineBetween(canvas, wall.ToFront(foot), foot);
            DrawLineBetween(canvas, foot, {foot.x, y - wall.height});
        } else {
            DrawLineBetween(canvas, {x, y - mark.offset}, {x + wall.width, y - mark.offset});
        }
    }
}

void DrawOutline(CCanvas& canvas, std::span<const Point> corners) {
    canvas.MoveTo(corners.front());
    for (const Point corner : corners.subspan(1)) canvas.LineTo(corner);
}

void DrawWalls(CCanvas& canvas, const BackWall& wall) {
    const CPenScope pen(canvas, kAxisPen);
    const Point origin = wall.origin;
    const Point right{origin.x + wall.width, origin.y};
    const Point topRight{right.x, right.y - wall.height};
    const Point topLeft{origin.x, topRight.y};
    const Point back[] = {origin, right, topRight, topLeft, origin};
    const Point floor[] = {origin, wall.ToFront(origin), wall.ToFront(right), right};
    DrawOutline(canvas, back);
    DrawOutline(canvas, floor);
}

void DrawWallMarks(CCanvas& canvas, const BackWall& wall, const std::vector<ValueMark>& marks) {
    for (const ValueMark& mark : marks) {
        const Point at{wall.origin.x, wall.origin.y - mark.offset};
        DrawDepthTick(canvas, wall.depth, at);
        const TextExtent extent = canvas.MeasureText(mark.text);
        canvas.WriteText({wall.ToFront(at).x - extent.width - 10, at.y - extent.height / 2}, mark.text);
    }
}

void DrawFloorMarks(CCanvas& canvas, const BackWall& wall, const std::vector<ValueMark>& marks) {
    for (const ValueMark& mark : marks) {
        const Point at = wall.ToFront({wall.origin.x + mark.offset, wall.origin.y});
        DrawDepthTick(canvas, wall.depth, at);
        canvas.WriteText({at.x - canvas.MeasureText(mark.text).width / 2, at.y + 8}, mark.text);
    }
}

void DrawBox(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const BackWall wall = BackWallOf(layout);
    const bool isLying = layout.axes.isLying;
    const std::vector<ValueMark> marks = MarksOf(graph, layout.axes, {isLying ? wall.width : wall.height, 0, false});
    if (graph.graphHasGridLines == 1) DrawBoxGrid(canvas, wall, isLying, marks);
    DrawWalls(canvas, wall);
    const CFontScope font(canvas, ChartFont(kTahoma, graph.tickFontSize));
    if (isLying) {
        DrawFloorMarks(canvas, wall, marks);
    } else {
        DrawWallMarks(canvas, wall, marks);
    }
}

}  // namespace

void DrawBoxAxes(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    DrawBox(canvas, graph, layout);
    if (layout.axes.isLying) {
        DrawRowLabels(canvas, graph, layout, {.edge = layout.xApexPoint, .tick = layout.xApexPoint});
        DrawLyingTitles(canvas, graph, layout);
    } else {
        DrawTurnedYTitle(canvas, graph, layout);
        DrawXTitle(canvas, graph, layout);
        DrawPositionLabels(canvas, graph, layout);
    }
}

}  // namespace tradebill
