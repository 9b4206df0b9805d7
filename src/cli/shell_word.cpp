#include "cli/shell_word.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {
namespace {

/// What a backslash takes the meaning of, between double quotes.
constexpr std::string_view kEscapedInQuotes = "$`\"\\";

/// Letters that no place of a command line gives a meaning.
bool IsPlain(char letter) {
    constexpr std::string_view kPlainMarks = "_-./,+@%";
    const auto code = static_cast<unsigned char>(letter);
    return code >= 0x80 || (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
           (code >= 'a' && code <= 'z') || kPlainMarks.find(letter) != std::string_view::npos;
}

bool IsControl(char letter) {
    const auto code = static_cast<unsigned char>(letter);
    return code < 0x20 || code == 0x7F;
}

/// Whether a backslash at `at` makes a letter of what follows it.
bool Escapes(std::string_view typed, std::size_t at, char openQuote) {
    if (typed[at] != '\\' || at + 1 >= typed.size() || openQuote == '\'') return false;
    return openQuote == 0 || kEscapedInQuotes.find(typed[at + 1]) != std::string_view::npos;
}

}  // namespace

ShellWord ReadShellWord(std::string_view typed) {
    ShellWord word;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const char letter = typed[i];
        if (Escapes(typed, i, word.openQuote)) {
            word.text += typed[++i];
        } else if (letter == word.openQuote) {
            word.openQuote = 0;
        } else if (word.openQuote == 0 && (letter == '\'' || letter == '"')) {
            word.openQuote = letter;
        } else {
            word.text += letter;
        }
    }
    return word;
}

std::string WithHome(std::string text, const char* home) {
    if (home == nullptr || !text.starts_with('~') || (text.size() > 1 && text[1] != '/')) return text;
    return home + text.substr(1);
}

bool IsOneLine(std::string_view text) {
    return std::ranges::none_of(text, IsControl);
}

std::optional<std::string> BashWord(std::string_view text, char openQuote) {
    if (openQuote == '\'') {
        if (text.find('\'') != std::string_view::npos) return std::nullopt;
        return std::string(text);
    }
    if (openQuote == '"' && text.find('!') != std::string_view::npos)
        return std::nullopt;  // history, not to be escaped
    std::string word;
    for (const char letter : text) {
        const bool isEscaped =
            openQuote == '"' ? kEscapedInQuotes.find(letter) != std::string_view::npos : !IsPlain(letter);
        if (isEscaped) word += '\\';
        word += letter;
    }
    return word;
}

}  // namespace tradebill
