// Byte texts: fields of fixed width, trims, searches and the splitting of a statement into rows and columns. All of it
// works on bytes; a GBK character is two of them. "White space" is the six ASCII characters, "blank" is 0x20 alone.
#pragma once

#include <string.h>
#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/word_bytes.h"

namespace tradebill {

[[nodiscard]] constexpr bool IsWhiteSpace(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

[[nodiscard]] constexpr bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// The text of a zero-terminated field; all of it if the zero is missing. Most end within their first bytes: these are
/// looked at eight at a time before a call of strnlen is worth it.
template <std::size_t N>
[[nodiscard]] std::string_view FieldText(const char (&field)[N]) {
    std::size_t at = 0;
    if constexpr (std::endian::native == std::endian::little) {
        for (; at + kWordBytes <= std::min<std::size_t>(N, 2 * kWordBytes); at += kWordBytes) {
            const std::uint64_t zeros = ZeroBytes(LoadWord(field + at));
            if (zeros != 0) return {field, at + static_cast<std::size_t>(std::countr_zero(zeros)) / 8};
        }
    }
    return {field, at + ::strnlen(field + at, N - at)};
}

/// Copies `text` to `field` and terminates it.
///
/// REQUIRES: `field` has a byte more than `text`, and they don't overlap.
inline void CopyText(char* field, std::string_view text) {
    CopyWords(field, text, [](std::uint64_t) {});
    field[text.size()] = '\0';
}

/// Copies `text` into `field`, cut to N-1 bytes and always terminated. A text too long is cut, never refused.
template <std::size_t N>
void CopyField(char (&field)[N], std::string_view text) {
    CopyText(field, text.substr(0, N - 1));
}

/// Where `word` first stands in `text`, or npos: as text.find(word), quick in long texts even where the word's first
/// byte is everywhere, as a lead byte of GBK is.
[[nodiscard]] std::size_t FindText(std::string_view text, std::string_view word);

[[nodiscard]] constexpr bool Contains(std::string_view text, std::string_view word) {
    constexpr std::size_t kShort = 32;  // bytes; a column is looked through before memchr is called
    if (word.empty() || text.size() > kShort) return text.find(word) != std::string_view::npos;
    for (; text.size() >= word.size(); text.remove_prefix(1)) {
        if (text.front() == word.front() && text.starts_with(word)) return true;
    }
    return false;
}

[[nodiscard]] constexpr std::string_view TrimLeft(std::string_view text) {
    while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
    return text;
}

[[nodiscard]] constexpr std::string_view TrimRight(std::string_view text) {
    while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
    return text;
}

/// White space off both ends.
[[nodiscard]] constexpr std::string_view Trim(std::string_view text) {
    return TrimRight(TrimLeft(text));
}

/// One byte value off both ends.
[[nodiscard]] constexpr std::string_view TrimByte(std::string_view text, char byte) {
    while (!text.empty() && text.front() == byte) text.remove_prefix(1);
    while (!text.empty() && text.back() == byte) text.remove_suffix(1);
    return text;
}

/// Takes the first line off `rest` and gives it without its line feed. What stands behind the last line feed is a line
/// too; an empty text has none and gives an empty one.
[[nodiscard]] constexpr std::string_view TakeLine(std::string_view& rest) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return line;
}

/// What stands before the first digit; all of it without one.
[[nodiscard]] constexpr std::string_view UpToFirstDigit(std::string_view text) {
    std::size_t size = 0;
    while (size < text.size() && !IsDigit(text[size])) ++size;
    return text.substr(0, size);
}

inline constexpr char kFullWidthBlankByte = '\xA1';  ///< both bytes of the GBK full-width blank

/// How the page shows an exchange or a contract: leading white space off, then leading bytes 0xA1, each once.
[[nodiscard]] constexpr std::string_view TrimForPage(std::string_view text) {
    text = TrimLeft(text);
    while (!text.empty() && text.front() == kFullWidthBlankByte) text.remove_prefix(1);
    return text;
}

/// Bytes of the GBK character that `text` opens with: two for a pair of lead and trail byte, else one; 0 for an empty
/// text. A byte that opens no pair stands alone.
[[nodiscard]] constexpr std::size_t GbkCharacterLength(std::string_view text) {
    constexpr unsigned char kFirstLead = 0x81;
    constexpr unsigned char kLastLead = 0xFE;
    constexpr unsigned char kFirstTrail = 0x40;
    if (text.size() < 2) return text.size();
    const auto lead = static_cast<unsigned char>(text[0]);
    const auto trail = static_cast<unsigned char>(text[1]);
    return lead >= kFirstLead && lead <= kLastLead && trail >= kFirstTrail ? 2 : 1;
}

/// Cuts `text` at each `delimiter` (a whole string) into trimmed parts; `parts` is emptied first. Parts are never
/// empty: runs of the delimiter count as one, and cells of white space vanish. With an empty delimiter the trimmed text
/// is the only part. The parts point into `text`. Returns their number.
std::size_t SplitText(std::string_view text, std::string_view delimiter, std::vector<std::string_view>& parts);

}  // namespace tradebill
