#include "graph/graph_title.h"

#include <cstdint>

#include "base/scale.h"
#include "graph/graph.h"
#include "graph/graph_layout.h"
#include "graph/graph_measures.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr std::int32_t kLineSwatch = 40;  ///< pixels at 96 dots per inch
constexpr std::int32_t kBarSwatch = 16;

bool HasSwatches(const CGraph& graph) {
    return graph.dualAxis == 1 || graph.swatchTitle == 1;
}

bool HasSecondTitle(const CGraph& graph) {
    return (graph.legendKind2 == 1 || graph.legendKind2 == 2) && (graph.graphType2 == 1 || graph.graphType2 == 0);
}

Font TitleFont(const CGraph& graph) {
    return ChartFont(kSong, HasSwatches(graph) ? graph.tickFontSize : graph.titleFontSize);
}

void DrawSwatchBar(CCanvas& canvas, const CGraph& graph, Color color, const Box& bar) {
    const CPenScope pen(canvas, SeriesPen(graph, color));
    const CBrushScope brush(canvas, color);
    canvas.Rectangle(bar);
}

void DrawSwatchLine(CCanvas& canvas, const CGraph& graph, Color color, Point from, std::int32_t length) {
    const CPenScope pen(canvas, SeriesPen(graph, color));
    DrawLineBetween(canvas, from, {from.x + length, from.y});
}

/// Returns the swatch's width, as do the other two.
std::int32_t DrawLineSwatch(CCanvas& canvas, const CGraph& graph, Point at) {
    const std::int32_t swatch = ScaleByDpi(kLineSwatch, graph.dpi);
    const std::int32_t half = swatch / 2;
    const bool hasTwoColors = graph.legendKind2 == 2;
    DrawSwatchLine(canvas, graph, graph.color2Low, at, hasTwoColors ? half : swatch);
    if (!hasTwoColors) return swatch;
    DrawSwatchLine(canvas, graph, graph.color2High, {at.x + half, at.y}, half);
    return 2 * half;
}

/// A short bar and one twice as high.
std::int32_t DrawTwoBarSwatch(CCanvas& canvas, const CGraph& graph, Point at, std::int32_t textHeight) {
    const std::int32_t bar = ScaleByDpi(kBarSwatch, graph.dpi);
    const std::int32_t half = bar / 2;
    const std::int32_t base = ScaleByDpi(10, graph.dpi) + textHeight + at.y - 1;
    const std::int32_t height = ScaleByDpi(8, graph.dpi);
    DrawSwatchBar(canvas, graph, graph.color2Low, {at.x, base - height, at.x + half, base});
    DrawSwatchBar(canvas, graph, graph.color2High, {at.x + half, base - height - height, at.x + 2 * half, base});
    return bar;
}

/// A flat bar over a piece of the axis.
std::int32_t DrawBarSwatch(CCanvas& canvas, const CGraph& graph, Point at, std::int32_t textHeight) {
    const std::int32_t bar = ScaleByDpi(kBarSwatch, graph.dpi);
    const std::int32_t y = textHeight + at.y + 10;
    DrawSwatchLine(canvas, graph, graph.GroupColor(0), {at.x, y}, bar);
    DrawSwatchBar(canvas, graph, graph.color2Low, {at.x, y - 3, at.x + bar, y - 1});
    return bar;
}

/// A piece of the first group's line, and the title behind it.
void DrawFirstTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout, std::int32_t textHeight) {
    const std::int32_t swatch = ScaleByDpi(kLineSwatch, graph.dpi);
    const std::int32_t left = layout.outline.left + 10;
    DrawSwatchLine(canvas, graph, graph.GroupColor(0), {left, textHeight / 2 + layout.outline.top + 10}, swatch);
    canvas.WriteText({left + swatch + 10, layout.outline.top + 10}, graph.graphTitle);
}

/// The swatch and title of the secondary series, from `at` on.
void DrawSecondTitle(CCanvas& canvas, const CGraph& graph, Point at, std::int32_t textHeight) {
    std::int32_t width = 0;
    if (graph.graphType2 == 1) {
        width = DrawLineSwatch(canvas, graph, {at.x, textHeight / 2 + at.y + 10});
    } else if (graph.legendKind2 == 2) {
        width = DrawTwoBarSwatch(canvas, graph, at, textHeight);
    } else {
        width = DrawBarSwatch(canvas, graph, at, textHeight);
    }
    canvas.WriteText({at.x + width + 10, at.y + 10}, graph.graphTitle2);
}

void DrawCentredTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    canvas.SelectTextColor(0);
    const auto halfLength = static_cast<std::int32_t>(graph.graphTitle.size() / 2);
    const std::int32_t x = layout.maxWidth / 2 - halfLength * canvas.Metrics().averageWidth + layout.outline.left;
    canvas.WriteText({x, layout.outline.top + 10}, graph.graphTitle);
}

}  // namespace

void DrawFrame(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CPenScope pen(canvas, SeriesPen(graph, kAxisColor));
    const CBrushScope brush(canvas, kWhite);
    canvas.Rectangle(layout.outline);
}

void DrawTitle(CCanvas& canvas, const CGraph& graph, const GraphLayout& layout) {
    const CFontScope font(canvas, TitleFont(graph));
    if (!HasSwatches(graph)) {
        DrawCentredTitle(canvas, graph, layout);
        return;
    }
    const TextExtent first = canvas.MeasureText(graph.graphTitle);
    DrawFirstTitle(canvas, graph, layout, first.height);
    if (graph.dualAxis != 1 || !HasSecondTitle(graph)) return;
    const std::int32_t x = layout.outline.left + 10 + ScaleByDpi(kLineSwatch, graph.dpi) + first.width + 25;
    DrawSecondTitle(canvas, graph, {x, layout.outline.top}, first.height);
}

TextExtent MeasureTitle(CCanvas& canvas, const CGraph& graph) {
    if (graph.dualAxis != 1) return MeasureBlockIn(canvas, TitleFont(graph), graph.graphTitle);
    return HasSecondTitle(graph) ? MeasureBlockIn(canvas, TitleFont(graph), graph.graphTitle2) : TextExtent{};
}

}  // namespace tradebill
