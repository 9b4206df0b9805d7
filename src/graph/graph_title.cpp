// The frame, and the title in one of its three forms.
#include "graph/graph.h"
#include "graph/graph_measures.h"
#include "paint/text_block.h"

namespace tradebill {

void CGraph::DrawFrame(CCanvas& canvas) const {
    const CPenScope pen(canvas, {.width = lineWidth, .color = kAxisColor});
    const CBrushScope brush(canvas, kWhite);
    canvas.Rectangle(outline);
}

/// Returns the size of the title drawn last, as a text of several lines has it: the plot leaves room for its height.
TextExtent CGraph::DrawTitle(CCanvas& canvas) {
    if (dualAxis != 1 && swatchTitle != 1) return DrawCentredTitle(canvas);
    const CFontScope font(canvas, ChartFont(kSong, tickFontSize));
    const TextExtent first = canvas.MeasureText(graphTitle);
    DrawSwatchTitle(canvas, first);
    if (dualAxis != 1) return MeasureTextBlock(canvas, graphTitle);
    const std::int32_t x = outline.left + 10 + Scaled(40) + first.width + 25;
    return DrawSecondSwatch(canvas, {x, outline.top}, first.height) ? MeasureTextBlock(canvas, graphTitle2)
                                                                    : TextExtent{};
}

/// A piece of the first group's line, and the title behind it.
void CGraph::DrawSwatchTitle(CCanvas& canvas, const TextExtent& title) const {
    const std::int32_t swatch = Scaled(40);
    const std::int32_t left = outline.left + 10;
    const std::int32_t y = title.height / 2 + outline.top + 10;
    {
        const CPenScope pen(canvas, {.width = lineWidth, .color = GroupColor(0)});
        DrawLineBetween(canvas, {left, y}, {left + swatch, y});
    }
    canvas.WriteText({left + swatch + 10, outline.top + 10}, graphTitle);
}

/// The swatch and title of the secondary series, from `at` on. Returns whether there is one.
bool CGraph::DrawSecondSwatch(CCanvas& canvas, Point at, std::int32_t textHeight) const {
    if (legendKind2 != 1 && legendKind2 != 2) return false;
    std::int32_t width = 0;
    if (graphType2 == 1) {
        width = DrawLineSwatch(canvas, {at.x, textHeight / 2 + at.y + 10});
    } else if (graphType2 == 0) {
        width = legendKind2 == 2 ? DrawTwoBarSwatch(canvas, at, textHeight) : DrawBarSwatch(canvas, at, textHeight);
    } else {
        return false;
    }
    canvas.WriteText({at.x + width + 10, at.y + 10}, graphTitle2);
    return true;
}

/// Returns the swatch's width, as do the other two.
std::int32_t CGraph::DrawLineSwatch(CCanvas& canvas, Point at) const {
    const std::int32_t swatch = Scaled(40);
    const std::int32_t half = swatch / 2;
    const std::int32_t firstEnd = legendKind2 == 2 ? half : swatch;
    {
        const CPenScope pen(canvas, {.width = lineWidth, .color = color2Low});
        DrawLineBetween(canvas, at, {at.x + firstEnd, at.y});
    }
    if (legendKind2 != 2) return swatch;
    const CPenScope pen(canvas, {.width = lineWidth, .color = color2High});
    DrawLineBetween(canvas, {at.x + half, at.y}, {at.x + 2 * half, at.y});
    return 2 * half;
}

/// A short bar and one twice as high.
std::int32_t CGraph::DrawTwoBarSwatch(CCanvas& canvas, Point at, std::int32_t textHeight) const {
    const std::int32_t bar = Scaled(16);
    const std::int32_t half = bar / 2;
    const std::int32_t base = Scaled(10) + textHeight + at.y - 1;
    const std::int32_t height = Scaled(8);
    {
        const CPenScope pen(canvas, {.width = lineWidth, .color = color2Low});
        const CBrushScope brush(canvas, color2Low);
        canvas.Rectangle({at.x, base - height, at.x + half, base});
    }
    const CPenScope pen(canvas, {.width = lineWidth, .color = color2High});
    const CBrushScope brush(canvas, color2High);
    canvas.Rectangle({at.x + half, base - height - Scaled(8), at.x + 2 * half, base});
    return bar;
}

/// A flat bar over a piece of the axis.
std::int32_t CGraph::DrawBarSwatch(CCanvas& canvas, Point at, std::int32_t textHeight) const {
    const std::int32_t bar = Scaled(16);
    const std::int32_t y = textHeight + at.y + 10;
    {
        const CPenScope pen(canvas, {.width = lineWidth, .color = GroupColor(0)});
        DrawLineBetween(canvas, {at.x, y}, {at.x + bar, y});
    }
    const CPenScope pen(canvas, {.width = lineWidth, .color = color2Low});
    const CBrushScope brush(canvas, color2Low);
    canvas.Rectangle({at.x, y - 3, at.x + bar, y - 1});
    return bar;
}

TextExtent CGraph::DrawCentredTitle(CCanvas& canvas) const {
    const CFontScope font(canvas, ChartFont(kSong, titleFontSize));
    canvas.SelectTextColor(0);
    const auto halfLength = static_cast<std::int32_t>(graphTitle.size() / 2);
    const std::int32_t x = maxWidth / 2 - halfLength * canvas.Metrics().averageWidth + outline.left;
    canvas.WriteText({x, outline.top + 10}, graphTitle);
    return MeasureTextBlock(canvas, graphTitle);
}

}  // namespace tradebill
