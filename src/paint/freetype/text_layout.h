// A text as glyphs in a row.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "paint/font.h"
#include "paint/freetype/scaled_face.h"

namespace tradebill {

struct PlacedGlyph {
    CScaledFace* face;  ///< belongs to the cache; null without any font that has the character
    char32_t character;
    std::int32_t offset;  ///< pixels from the start of the text
    std::int32_t advance;
};

/// The glyphs of a GBK text. Bytes that belong to no character come out as replacement characters.
/// REQUIRES: the caller holds FontLock(), for as long as the glyphs are used.
[[nodiscard]] std::vector<PlacedGlyph> LayOutText(const Font& font, std::string_view text);

}  // namespace tradebill
