// Small things that all painters of a chart share: pixels of numbers, fonts, pens and colours.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/gbk.h"
#include "base/number.h"
#include "graph/graph.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"
#include "paint/text_block.h"

namespace tradebill {

/// No pixel of a chart lies further away, so that sums of a few of them stay inside 32 bits.
inline constexpr std::int32_t kFurthestPixel = 1 << 28;

/// What lies too far away becomes the nearest end.
[[nodiscard]] constexpr std::int32_t ClampPixel(std::int32_t pixel) {
    return std::clamp(pixel, -kFurthestPixel, kFurthestPixel);
}

/// Cut towards zero and clamped; what is no number becomes 0.
[[nodiscard]] constexpr std::int32_t ToPixel(double value) {
    return ClampPixel(TruncateToInt32(value));
}

inline constexpr std::string_view kTahoma = "Tahoma";
inline constexpr std::string_view kSong = "宋体"_gbk;

/// All fonts of a chart are bold.
[[nodiscard]] constexpr Font ChartFont(std::string_view face, std::int32_t height, std::int32_t escapement = 0) {
    return {.face = face, .cellHeight = height, .weight = 700, .escapement = escapement};
}

[[nodiscard]] inline TextExtent MeasureIn(CCanvas& canvas, const Font& font, std::string_view text) {
    const CFontScope scope(canvas, font);
    return canvas.MeasureText(text);
}
/// Of a title or caption, which may have several lines.
[[nodiscard]] inline TextExtent MeasureBlockIn(CCanvas& canvas, const Font& font, std::string_view text) {
    const CFontScope scope(canvas, font);
    return MeasureTextBlock(canvas, text);
}

/// Bytes of a text, as widths are reckoned with; more than a screen can show is as much.
[[nodiscard]] constexpr std::int32_t WidthInBytes(std::string_view text) {
    constexpr std::size_t kWidest = 100'000;
    return static_cast<std::int32_t>(std::min(text.size(), kWidest));
}

inline constexpr Color kAxisColor = 0x383838;
inline constexpr Color kGridColor = 0xD7D7D7;
inline constexpr Pen kAxisPen{.width = 2, .color = kAxisColor};
inline constexpr std::int32_t kHalfTick = 3;

/// Of series, swatches and the outer frame.
[[nodiscard]] inline Pen SeriesPen(const CGraph& graph, Color color) {
    return {.width = ClampPixel(graph.lineWidth), .color = color};
}

inline void DrawLineBetween(CCanvas& canvas, Point from, Point to) {
    canvas.MoveTo(from);
    canvas.LineTo(to);
}

/// A tick of a box: a fifth of its depth, away from it.
inline void DrawDepthTick(CCanvas& canvas, std::int32_t depth, Point at) {
    const std::int32_t outward = ToPixel(depth * 0.2);
    DrawLineBetween(canvas, at, {at.x - outward, at.y + outward});
}

/// Outlined by the pen in use.
inline void DrawDot(CCanvas& canvas, Color color, Point at, std::int32_t radius) {
    const CBrushScope brush(canvas, color);
    canvas.Ellipse({at.x - radius, at.y - radius, at.x + radius, at.y + radius});
}

}  // namespace tradebill
