#include "cli/wrapped_text.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "base/utf8.h"

namespace tradebill {
namespace {

/// Those of East Asia, roughly: all that stand here are as wide as two letters.
bool IsWide(const Utf8Character& character) {
    constexpr char32_t kFirst = 0x2E80;  // radicals
    constexpr char32_t kLast = 0xFFE6;   // full-width signs
    return character.point && *character.point >= kFirst && *character.point <= kLast;
}

/// The blank or the characters up to the next place where a line may end.
std::string_view NextPiece(std::string_view text) {
    if (text.front() == ' ') return text.substr(0, 1);
    std::size_t size = 0;
    while (size < text.size() && text[size] != ' ') {
        const Utf8Character character = FirstUtf8Character(text.substr(size));
        if (IsWide(character)) return text.substr(0, size == 0 ? character.size : size);
        size += character.size;
    }
    return text.substr(0, size);
}

}  // namespace

std::size_t ColumnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        const Utf8Character character = FirstUtf8Character(text);
        columns += IsWide(character) ? 2 : 1;
        text.remove_prefix(character.size);
    }
    return columns;
}

std::string WrappedText(std::string_view text, std::size_t columns, std::size_t indent) {
    std::string wrapped;
    std::size_t used = indent;
    bool isBegun = false;  // of the line, something but blanks
    while (!text.empty()) {
        const std::string_view piece = NextPiece(text);
        const std::size_t size = ColumnsOf(piece);
        text.remove_prefix(piece.size());
        if (piece != " " && isBegun && used + size > columns) {
            wrapped.erase(wrapped.find_last_not_of(' ') + 1);
            wrapped.append("\n").append(indent, ' ');
            used = indent;
        }
        wrapped += piece;
        used += size;
        isBegun = isBegun || piece != " ";
    }
    return wrapped;
}

}  // namespace tradebill
