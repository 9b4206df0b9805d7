#include "readers/heading_words.h"

#include <string>
#include <string_view>

#include "base/text.h"

namespace tradebill {

bool IsHanzi(std::string_view character) {
    constexpr unsigned char kFirstSign = 0xA1;
    constexpr unsigned char kLastSign = 0xA9;
    if (character.size() != 2) return false;
    const auto lead = static_cast<unsigned char>(character[0]);
    const auto trail = static_cast<unsigned char>(character[1]);
    return !(lead >= kFirstSign && lead <= kLastSign && trail >= kFirstSign);
}

std::string HanziOf(std::string_view text) {
    std::string word;
    while (!text.empty()) {
        const std::string_view character = text.substr(0, GbkCharacterLength(text));
        if (IsHanzi(character)) word += character;
        text.remove_prefix(character.size());
    }
    return word;
}

}  // namespace tradebill
