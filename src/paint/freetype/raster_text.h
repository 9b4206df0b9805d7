// Texts on a bitmap: glyphs blended by their coverage.
#pragma once

#include <cstdint>
#include <string_view>

#include "paint/bitmap.h"
#include "paint/font.h"
#include "paint/raster/raster.h"

namespace tradebill {

/// The corners of the cells of a text that begins at `point`.
[[nodiscard]] Figure TextCells(const Font& font, Point point, std::string_view text);

/// Writes a GBK text, the left top corner of its first cell at `point`. Nothing outside of `seen`, which lies in the
/// bitmap, is painted.
void PaintText(CBitmap& bitmap, const Box& seen, const Font& font, Point point, std::string_view text,
               std::uint32_t pixel);

}  // namespace tradebill
