// GBK literals: `"买"_gbk` is the text's GBK bytes, made at compile time from the UTF-8 source. Statements, templates
// and the page are GBK from end to end, so these bytes are what the code searches for and writes. A character that the
// generated table lacks is a compile error; tools/gbk_table.py brings the table up to date.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/gbk_table.h"

namespace tradebill {
namespace gbk {

/// A literal as the compiler hands it over: UTF-8 with its terminating zero.
template <std::size_t N>
struct Utf8Literal {
    char text[N]{};
    consteval Utf8Literal(const char (&source)[N]) { std::copy_n(source, N, text); }
};

/// Bytes of the UTF-8 sequence that `lead` opens.
constexpr std::size_t SequenceLength(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

constexpr char32_t CodePointAt(const char* text) {
    const std::size_t length = SequenceLength(*text);
    if (length == 1) return static_cast<unsigned char>(*text);
    auto point = static_cast<char32_t>(static_cast<unsigned char>(*text) & (0x7F >> length));
    for (std::size_t i = 1; i < length; ++i) {
        point = (point << 6) | static_cast<char32_t>(static_cast<unsigned char>(text[i]) & 0x3F);
    }
    return point;
}

/// The two GBK bytes of `point`, high byte first. Not a constant expression if the table lacks it.
constexpr std::uint16_t CodeOf(char32_t point) {
    const auto* const entry = std::ranges::lower_bound(kGbkTable, point, {}, &GbkTableEntry::point);
    if (entry == std::end(kGbkTable) || entry->point != point) throw "character is not in the GBK table";
    return entry->code;
}

template <Utf8Literal Literal>
constexpr std::size_t GbkLength() {
    std::size_t length = 0;
    for (const char* at = Literal.text; *at != '\0'; at += SequenceLength(*at)) {
        length += SequenceLength(*at) == 1 ? 1 : 2;
    }
    return length;
}

template <Utf8Literal Literal>
constexpr auto ToGbk() {
    std::array<char, GbkLength<Literal>() + 1> bytes{};
    std::size_t size = 0;
    for (const char* at = Literal.text; *at != '\0'; at += SequenceLength(*at)) {
        if (SequenceLength(*at) == 1) {
            bytes[size++] = *at;
            continue;
        }
        const std::uint16_t code = CodeOf(CodePointAt(at));
        bytes[size++] = static_cast<char>(code >> 8);
        bytes[size++] = static_cast<char>(code & 0xFF);
    }
    return bytes;
}

template <Utf8Literal Literal>
inline constexpr auto kBytes = ToGbk<Literal>();

}  // namespace gbk

/// The literal's GBK bytes, followed by a zero byte that the view doesn't count.
template <gbk::Utf8Literal Literal>
consteval std::string_view operator""_gbk() {
    return {gbk::kBytes<Literal>.data(), gbk::kBytes<Literal>.size() - 1};
}

}  // namespace tradebill
