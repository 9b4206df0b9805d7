// Pixels laid over pixels: what glyphs and pictures have in common.
#pragma once

#include <algorithm>
#include <cstdint>

#include "paint/bitmap.h"
#include "paint/geometry.h"
#include "paint/picture.h"

namespace tradebill {

/// `over` on `under`, `coverage` of 255 of it; the top byte of both is passed over, that of the result 0.
/// REQUIRES: coverage <= 255.
[[nodiscard]] inline std::uint32_t Blended(std::uint32_t under, std::uint32_t over, std::uint32_t coverage) {
    constexpr std::uint32_t kColors = 0xFFFFFF;
    if (coverage == 0) return under & kColors;
    if (coverage == 255) return over & kColors;
    std::uint32_t result = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const std::uint32_t from = under >> shift & 0xFF;
        const std::uint32_t to = over >> shift & 0xFF;
        result |= (from * (255 - coverage) + to * coverage + 127) / 255 << shift;
    }
    return result;
}

/// First and end of those of `count` rows or columns that lie from `from` up to `to`, if number 0 lies at `start`; end
/// isn't above first if none does.
struct SeenPart {
    std::int64_t first;
    std::int64_t end;

    SeenPart(std::int64_t start, std::int64_t count, std::int64_t from, std::int64_t to)
        : first(std::max<std::int64_t>(0, from - start)), end(std::min(count, to - start)) {}
};

/// Lays a picture over a bitmap, pixel by pixel as far as each is opaque, its left top corner at `leftTop`. Nothing
/// outside of `seen` changes.
/// REQUIRES: `seen` lies on the bitmap.
void BlendPicture(CBitmap& bitmap, const Box& seen, const CPicture& picture, Point leftTop);

}  // namespace tradebill
