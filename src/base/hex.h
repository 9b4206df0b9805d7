// Bytes as hexadecimal digits.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tradebill {

/// Two lower-case digits for each byte.
[[nodiscard]] inline std::string HexText(std::span<const std::uint8_t> bytes) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text;
}

}  // namespace tradebill
