#include "paint/freetype/text_layout.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/control_character.h"
#include "paint/font.h"
#include "paint/freetype/font_use.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

constexpr std::int32_t kBoldFrom = 600;
constexpr char32_t kFirstWide = 0x1100;

/// Takes the first character off a UTF-8 text that comes of GBK: it is sound, and its characters have three bytes at
/// the most.
char32_t TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : 3;
    char32_t point = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) point = (point << 6) | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    text.remove_prefix(length);
    return point;
}

/// Most texts of a chart are numbers, which are the same in both encodings.
std::string Utf8Of(std::string_view gbk) {
    const bool isAscii = std::ranges::all_of(gbk, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
    return isAscii ? std::string(gbk) : GbkToUtf8(gbk);
}

CFontFamily& FamilyOf(const Font& font) {
    return FamilyFor(Utf8Of(font.face), font.weight >= kBoldFrom);
}

/// The best face that has the character, or null.
const FaceChoice* ChoiceWith(char32_t character, CFontFamily& family) {
    for (std::size_t i = 0;; ++i) {
        const FaceChoice* const choice = family.FaceAt(i);
        if (choice == nullptr || HasGlyph(*choice, character)) return choice;
    }
}

CScaledFace* FaceWith(char32_t character, std::int32_t pixelsPerEm, CFontFamily& family) {
    const FaceChoice* const choice = ChoiceWith(character, family);
    return choice != nullptr ? &ScaledFaceFor(*choice, pixelsPerEm) : nullptr;
}

/// What is written for a character: for a control that the font's own face lacks a space.
char32_t WrittenFor(char32_t character, const FaceChoice* own) {
    if (!IsControl(character) || own == nullptr) return character;
    return HasGlyph(*own, character) ? character : U' ';
}

/// Of a character that no face has: a full cell beyond Latin, half a cell for others.
std::int32_t BoxWidth(char32_t character, std::int32_t cellHeight) {
    const std::int32_t cell = std::max(cellHeight, 1);
    return character >= kFirstWide ? cell : (cell + 1) / 2;
}

}  // namespace

std::vector<PlacedGlyph> LayOutText(const Font& font, std::string_view text) {
    CFontFamily& family = FamilyOf(font);
    const std::string characters = Utf8Of(text);
    const FaceChoice* const own = family.FaceAt(0);
    const std::int32_t pixelsPerEm = own == nullptr ? 1 : EmForCell(*own, font.cellHeight);
    std::vector<PlacedGlyph> glyphs;
    std::int32_t offset = 0;
    for (std::string_view rest = characters; !rest.empty();) {
        const char32_t character = WrittenFor(TakeCharacter(rest), own);
        CScaledFace* const face = FaceWith(character, pixelsPerEm, family);
        const std::int32_t advance =
            face != nullptr ? face->AdvanceOf(character) : BoxWidth(character, font.cellHeight);
        glyphs.push_back({face, character, offset, advance});
        offset += advance;
    }
    return glyphs;
}

TextExtent MeasureText(const Font& font, std::string_view text) {
    const CFontUse use;
    const auto glyphs = LayOutText(font, text);
    const std::int32_t width = glyphs.empty() ? 0 : glyphs.back().offset + glyphs.back().advance;
    return {width, MetricsOf(font).height};
}

TextMetrics MetricsOf(const Font& font) {
    const CFontUse use;
    const FaceChoice* const own = FamilyOf(font).FaceAt(0);
    if (own != nullptr) return ScaledFaceFor(*own, EmForCell(*own, font.cellHeight)).Metrics();
    const std::int32_t height = std::max(font.cellHeight, 1);
    const std::int32_t descent = height / 5;
    return {.height = height,
            .ascent = height - descent,
            .descent = descent,
            .internalLeading = 0,
            .averageWidth = BoxWidth(U'0', height),
            .maxWidth = height};
}

bool HasFontsFor(std::string_view text) {
    const CFontUse use;
    CFontFamily& family = FamilyFor("Arial", true);  // the banner's, whose faces are open in every run with pictures
    const std::string characters = Utf8Of(text);
    for (std::string_view rest = characters; !rest.empty();) {
        if (ChoiceWith(TakeCharacter(rest), family) == nullptr) return false;
    }
    return true;
}

}  // namespace tradebill
