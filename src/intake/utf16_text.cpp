#include "intake/utf16_text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {
namespace {

constexpr std::size_t kUnit = 2;  // bytes

char32_t UnitAt(std::string_view bytes, std::size_t at, ByteOrder order) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return order == ByteOrder::LittleEndian ? static_cast<char32_t>(second << 8 | first)
                                            : static_cast<char32_t>(first << 8 | second);
}

bool IsFirstHalf(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsSecondHalf(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

void AppendUtf8(std::string& text, char32_t point) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (point < 0x80) return append(point);
    if (point < 0x800) {
        append(0xC0 | point >> 6);
    } else if (point < 0x10000) {
        append(0xE0 | point >> 12);
        append(0x80 | (point >> 6 & 0x3F));
    } else {
        append(0xF0 | point >> 18);
        append(0x80 | (point >> 12 & 0x3F));
        append(0x80 | (point >> 6 & 0x3F));
    }
    append(0x80 | (point & 0x3F));
}

}  // namespace

std::optional<ByteOrder> GuessUtf16(std::string_view bytes) {
    constexpr std::size_t kFewest = 8;  // of so many bytes at least one is a zero in a text with digits and blanks
    constexpr std::size_t kClear = 4;   // U+4E00 and a few other characters have their zero in the other half
    std::size_t zeros[kUnit] = {0, 0};
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (bytes[at] == '\0') ++zeros[at % kUnit];
    }
    const auto speaks = [&](std::size_t more, std::size_t fewer) {
        return more * kFewest >= bytes.size() && more > fewer * kClear;
    };
    if (speaks(zeros[1], zeros[0])) return ByteOrder::LittleEndian;
    if (speaks(zeros[0], zeros[1])) return ByteOrder::BigEndian;
    return std::nullopt;
}

std::optional<std::string> Utf16ToUtf8(std::string_view bytes, ByteOrder order) {
    if (bytes.size() % kUnit != 0) return std::nullopt;
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size(); at += kUnit) {
        char32_t point = UnitAt(bytes, at, order);
        if (IsSecondHalf(point)) return std::nullopt;
        if (IsFirstHalf(point)) {
            at += kUnit;
            const char32_t second = at < bytes.size() ? UnitAt(bytes, at, order) : 0;
            if (!IsSecondHalf(second)) return std::nullopt;
            point = 0x10000 + ((point - 0xD800) << 10) + (second - 0xDC00);
        }
        AppendUtf8(text, point);
    }
    return text;
}

}  // namespace tradebill
