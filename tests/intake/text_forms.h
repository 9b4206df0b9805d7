// Texts in the encodings that editors and systems save them in.
#pragma once

#include <string>
#include <string_view>

#include "base/utf8.h"
#include "platform/text_encoding.h"

namespace tradebill {

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
inline constexpr std::string_view kBigEndianMark = "\xFE\xFF";

inline void AppendUnit(std::string& text, char32_t unit, bool isBigEndian) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    text += isBigEndian ? high : low;
    text += isBigEndian ? low : high;
}

/// `utf8`, which is sound, as UTF-16 without a mark.
inline std::string Utf16(std::string_view utf8, bool isBigEndian) {
    std::string text;
    while (!utf8.empty()) {
        const Utf8Character character = FirstUtf8Character(utf8);
        const char32_t point = *character.point;
        if (point < 0x10000) {
            AppendUnit(text, point, isBigEndian);
        } else {
            AppendUnit(text, 0xD800 + ((point - 0x10000) >> 10), isBigEndian);
            AppendUnit(text, 0xDC00 + ((point - 0x10000) & 0x3FF), isBigEndian);
        }
        utf8.remove_prefix(character.size);
    }
    return text;
}

/// With `end` for each CRLF.
inline std::string WithLineEnds(std::string text, std::string_view end) {
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + end.size())) {
        text.replace(at, 2, end);
    }
    return text;
}

}  // namespace tradebill
