// Small things that all painters of a chart share: pixels of numbers, fonts and colours.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/gbk.h"
#include "paint/canvas.h"

namespace tradebill {

/// No pixel of a chart lies further away, so that sums of a few of them stay inside 32 bits.
inline constexpr std::int32_t kFurthestPixel = 1 << 28;

/// Cut towards zero. What lies too far away becomes the nearest end, what is no number 0.
[[nodiscard]] constexpr std::int32_t ToPixel(double value) {
    if (!(value == value)) return 0;
    return value <= -kFurthestPixel  ? -kFurthestPixel
           : value >= kFurthestPixel ? kFurthestPixel
                                     : static_cast<std::int32_t>(value);
}

[[nodiscard]] constexpr std::int32_t HeldPixel(std::int32_t pixel) {
    return pixel < -kFurthestPixel ? -kFurthestPixel : pixel > kFurthestPixel ? kFurthestPixel : pixel;
}

inline constexpr std::string_view kTahoma = "Tahoma";
inline constexpr std::string_view kSong = "宋体"_gbk;

/// All fonts of a chart are bold.
[[nodiscard]] constexpr Font ChartFont(std::string_view face, std::int32_t height, std::int32_t escapement = 0) {
    return {.face = face, .cellHeight = height, .weight = 700, .escapement = escapement};
}

inline constexpr Color kAxisColor = 0x383838;
inline constexpr Color kGridColor = 0xD7D7D7;
inline constexpr Pen kAxisPen{.width = 2, .color = kAxisColor};

/// Between these a value shows as nothing.
inline constexpr double kLeastShown = 1.1920928955078125e-07;

/// Bytes of a text, as widths are reckoned with; more than a screen can show is as much.
[[nodiscard]] constexpr std::int32_t LengthOf(std::string_view text) {
    constexpr std::size_t kLongest = 100'000;
    return static_cast<std::int32_t>(text.size() < kLongest ? text.size() : kLongest);
}

inline void DrawLineBetween(CCanvas& canvas, Point from, Point to) {
    canvas.MoveTo(from);
    canvas.LineTo(to);
}

/// Outlined by the pen in use.
inline void DrawDot(CCanvas& canvas, Color color, Point at, std::int32_t radius) {
    const CBrushScope brush(canvas, color);
    canvas.Ellipse({at.x - radius, at.y - radius, at.x + radius, at.y + radius});
}

}  // namespace tradebill
