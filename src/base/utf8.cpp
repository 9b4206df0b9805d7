#include "base/utf8.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace tradebill {
namespace {

/// The sequences of one first byte. The second byte's bounds keep out overlong forms and surrogates; all that follow
/// are 80 to BF.
struct SequenceKind {
    unsigned char first;
    unsigned char last;
    std::size_t size;
    unsigned char secondLeast;
    unsigned char secondMost;
};

// clang-format off
constexpr SequenceKind kSequences[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
};
// clang-format on

}  // namespace

Utf8Character FirstUtf8Character(std::string_view text) {
    const auto byteAt = [&text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char lead = byteAt(0);
    if (lead < 0x80) return {.point = lead};
    const auto* const kind = std::ranges::find_if(
        kSequences, [lead](const SequenceKind& row) { return row.first <= lead && lead <= row.last; });
    if (kind == std::end(kSequences)) return {.point = {}};
    char32_t point = lead & (0x7Fu >> kind->size);
    for (std::size_t at = 1; at < kind->size; ++at) {
        if (at == text.size()) return {.point = {}, .isCut = true};
        const unsigned char byte = byteAt(at);
        const unsigned char least = at == 1 ? kind->secondLeast : 0x80;
        const unsigned char most = at == 1 ? kind->secondMost : 0xBF;
        if (byte < least || byte > most) return {.point = {}};
        point = point << 6 | (byte & 0x3Fu);
    }
    return {.point = point, .size = kind->size};
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const Utf8Character character = FirstUtf8Character(text);
        if (!character.point) return false;
        text.remove_prefix(character.size);
    }
    return true;
}

}  // namespace tradebill
