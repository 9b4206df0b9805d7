// Any bytes as texts: what is done to them by words and vectors comes to the same as byte by byte.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/byte_mask.h"
#include "base/text.h"
#include "base/utf8.h"
#include "fuzz_target.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

using Parts = std::vector<std::string_view>;

/// SplitText, the long way round. An empty delimiter cuts nothing.
Parts PlainParts(std::string_view text, std::string_view delimiter) {
    Parts parts;
    for (;;) {
        const std::size_t at = delimiter.empty() ? std::string_view::npos : text.find(delimiter);
        const std::string_view part = Trim(text.substr(0, at));
        if (!part.empty()) parts.push_back(part);
        if (at == std::string_view::npos) return parts;
        text.remove_prefix(at + delimiter.size());
    }
}

void RequireParts(std::string_view text, std::string_view delimiter) {
    Parts parts = {"what was there before"};
    Require(SplitText(text, delimiter, parts) == parts.size(), "the parts are counted");
    Require(std::ranges::all_of(parts, [](std::string_view part) { return !part.empty() && Trim(part) == part; }),
            "parts are trimmed and never empty");
    // A delimiter with white space in it may lose some to the trimming of what stands before.
    if (delimiter != " " && std::ranges::any_of(delimiter, IsWhiteSpace)) return;
    Require(parts == PlainParts(text, delimiter), "parts are those between the delimiters");
}

void RequireMasks(std::string_view text, char byte) {
    for (std::size_t at = 0; at < text.size(); at += kMaskedBytes) {
        const std::size_t size = std::min(kMaskedBytes, text.size() - at);
        const std::uint64_t counted = size < kMaskedBytes ? (std::uint64_t{1} << size) - 1 : ~std::uint64_t{0};
        Require((EqualMask(text, at, byte) & counted) == plain::EqualMask(text, at, byte), "equal bytes are marked");
        Require((WhiteSpaceMask(text, at) & counted) == plain::WhiteSpaceMask(text, at), "white space is marked");
        Require((WideMask(text, at) & counted) == plain::WideMask(text, at), "wide bytes are marked");
    }
    Require(CountByte(text, byte) == static_cast<std::size_t>(std::ranges::count(text, byte)), "bytes are counted");
}

void RequireSearch(std::string_view text, std::string_view word) {
    Require(FindText(text, word) == text.find(word), "a word is found where it first stands");
    Require(Contains(text, word) == (text.find(word) != std::string_view::npos), "a text contains its words");
}

/// A text of one character is a character of GBK if it comes back.
void RequireEncoding(std::string_view text) {
    const std::string utf8 = GbkToUtf8(text);
    Require(IsUtf8(utf8), "decoded texts are UTF-8");
    if (utf8.find("\xEF\xBF\xBD") == std::string::npos) {
        const std::optional<std::string> gbk = Utf8ToGbk(utf8);
        Require(gbk && GbkToUtf8(*gbk) == utf8, "a text of characters alone comes back");
    }
    const std::optional<std::string> gbk = Utf8ToGbk(text);
    Require(!gbk || IsUtf8(text), "only UTF-8 is encoded");
    Require(!gbk || GbkToUtf8(*gbk) == text, "an encoded text is decoded to itself");
}

void RequireFields(std::string_view text) {
    std::array<char, 17> guarded;
    guarded.fill('#');
    char field[16];
    CopyField(field, text);
    const std::string_view kept = text.substr(0, sizeof field - 1);
    Require(FieldText(field) == kept.substr(0, kept.find('\0')), "a field keeps what it has room for");
    CopyText(guarded.data(), kept);
    Require(guarded[kept.size()] == '\0' && guarded.back() == '#', "a copy ends with its zero");
}

}  // namespace

void FuzzText(std::string_view bytes) {
    CFuzzInput input(bytes);
    const auto byte = static_cast<char>(input.Byte());
    const std::string_view word = input.Text();
    const std::string_view text = input.Rest();
    RequireMasks(text, byte);
    RequireParts(text, word);
    RequireParts(text, {&byte, 1});
    RequireSearch(text, word);
    RequireEncoding(text);
    RequireFields(text);
}

}  // namespace tradebill
