#include "graph/axis_titles.h"

#include <cstdint>

#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "graph/graph_plane.h"
#include "paint/canvas.h"
#include "paint/escapement.h"
#include "paint/font.h"
#include "paint/geometry.h"
#include "paint/text_block.h"

namespace tradebill {
namespace {

Font TitleFontOf(const CGraph& graph, const GraphLayout& layout, std::int32_t escapement = 0) {
    return ChartFont(kTahoma, AxisTitleHeight(graph, layout.outline), escapement);
}

/// The middle of the text at `leftMiddle`.
void WriteUpwards(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, Point leftMiddle,
                  std::string_view title) {
    if (title.empty()) return;
    const CFontScope font(canvas, TitleFontOf(graph, layout, kUpwardsEscapement));
    canvas.WriteText({leftMiddle.x, leftMiddle.y + canvas.MeasureText(title).width / 2}, title);
}

}  // namespace

std::int32_t AxisTitleHeight(const CGraph& graph, const Box& outline) {
    const std::int32_t width = outline.right - outline.left;
    const std::int32_t outlineHeight = outline.bottom - outline.top;
    const bool isWide = width > outlineHeight;
    const auto length = static_cast<std::int64_t>((isWide ? graph.axisYLabel : graph.axisXLabel).size());
    const std::int64_t side = isWide ? outlineHeight : width;
    std::int32_t height = 16;
    if (length * 8 <= side) return height;
    while (height > 0 && height / 2 * length > side) height -= 2;
    return height;
}

void DrawYTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (graph.axisYLabel.empty()) return;
    const CFontScope font(canvas, TitleFontOf(graph, layout));
    const std::int32_t height = MeasureTextBlock(canvas, graph.axisYLabel).height;
    const std::int32_t bottom = CPlotPlane(graph, layout).Bottom();
    WriteTextBlock(canvas, {layout.outline.left + 10, bottom - height / 2 - layout.yAxisHeight / 2}, graph.axisYLabel);
}

void DrawTurnedYTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const std::int32_t middle = layout.yApexPoint - layout.yAxisHeight / 2;
    WriteUpwards(canvas, graph, layout, {layout.outline.left + 10, middle}, graph.axisYLabel);
}

void DrawXTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    if (graph.axisXLabel.empty()) return;
    const CFontScope font(canvas, TitleFontOf(graph, layout));
    const CPlotPlane plane(graph, layout);
    if (graph.graphType == kScatterGraph) {
        const TextExtent extent = canvas.MeasureText(graph.axisXLabel);
        const std::int32_t right = plane.Left() + layout.xAxisWidth;
        canvas.WriteText({right - extent.width, plane.Bottom() - extent.height - 5}, graph.axisXLabel);
        return;
    }
    const double halfWidth = static_cast<double>(WidthInBytes(graph.axisXLabel) / 2) * canvas.Metrics().averageWidth;
    canvas.WriteText({layout.xAxisWidth / 2 - ToPixel(halfWidth) + plane.Left(), plane.Bottom() + 25},
                     graph.axisXLabel);
}

void DrawLyingTitles(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPlotPlane plane(graph, layout);
    const std::int32_t middle = plane.Bottom() - layout.yAxisHeight / 2;
    WriteUpwards(canvas, graph, layout, {layout.outline.left + 5, middle}, graph.axisXLabel);
    if (graph.axisYLabel.empty()) return;
    const CFontScope font(canvas, TitleFontOf(graph, layout));
    const TextExtent extent = canvas.MeasureText(graph.axisYLabel);
    const std::int32_t top = plane.Bottom() - layout.yAxisHeight - layout.depth;
    canvas.WriteText({plane.Left() + layout.xAxisWidth / 2 - extent.width / 2, top - extent.height - 5},
                     graph.axisYLabel);
}

}  // namespace tradebill
