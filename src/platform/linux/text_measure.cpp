#include "platform/text_measure.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "platform/linux/font_faces.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

constexpr int kBoldFrom = 600;

/// Takes the first character off a UTF-8 text that is known to be sound.
char32_t TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t point = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length && i < text.size(); ++i) {
        point = (point << 6) | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    }
    text.remove_prefix(std::min(length, text.size()));
    return point;
}

/// Advance in pixels; a full cell for a character beyond Latin that no face has, half a cell for others.
double AdvanceOf(char32_t character, const std::vector<FT_Face>& faces, double emSize) {
    constexpr char32_t kFirstWide = 0x1100;
    for (const FT_Face face : faces) {
        const FT_UInt glyph = FT_Get_Char_Index(face, character);
        if (glyph == 0 || FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0) continue;
        return std::round(static_cast<double>(face->glyph->metrics.horiAdvance) * emSize / face->units_per_EM);
    }
    return std::round(character >= kFirstWide ? emSize : emSize / 2);
}

}  // namespace

TextExtent MeasureText(const FontRequest& font, std::string_view text) {
    const std::vector<FT_Face>& faces = FacesFor(GbkToUtf8(font.face), font.weight >= kBoldFrom);
    const double emSize = faces.empty() ? font.cellHeight : std::round(EmSizeFor(faces.front(), font.cellHeight));
    const std::string characters = GbkToUtf8(text);
    double width = 0;
    for (std::string_view rest = characters; !rest.empty();) width += AdvanceOf(TakeCharacter(rest), faces, emSize);
    return {static_cast<int>(width), font.cellHeight};
}

}  // namespace tradebill
