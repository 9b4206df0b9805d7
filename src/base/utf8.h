// UTF-8 read character by character, broken bytes included.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tradebill {

struct Utf8Character {
    std::optional<char32_t> point;  ///< nothing: the bytes are no character
    std::size_t size = 1;           ///< bytes
    bool isCut = false;             ///< more bytes would make it one
};

/// The first character of `text`, or the first byte that belongs to none: overlong forms, halves of surrogates and what
/// lies beyond U+10FFFF are none.
///
/// REQUIRES: `text` isn't empty.
[[nodiscard]] Utf8Character FirstUtf8Character(std::string_view text);

/// Whether all of `text` is UTF-8. ASCII alone is too; Chinese texts in GBK almost never are.
[[nodiscard]] bool IsUtf8(std::string_view text);

}  // namespace tradebill
