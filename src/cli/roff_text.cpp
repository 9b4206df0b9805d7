#include "cli/roff_text.h"

#include <string>
#include <string_view>

namespace tradebill {
namespace {

/// Letters that roff has another form of, which stands for something else in a shell.
struct RoffLetter {
    char letter;
    std::string_view escaped;
};

// clang-format off
constexpr RoffLetter kLetters[] = {
    {'\\', "\\e"}, {'-', "\\-"}, {'\'', "\\(aq"}, {'`', "\\(ga"}, {'^', "\\(ha"}, {'~', "\\(ti"}, {'"', "\\(dq"},
    {'\n', " "}, {'\r', " "}, {'\t', " "},
};
// clang-format on

std::string_view EscapedForm(const char& letter) {
    for (const RoffLetter& known : kLetters) {
        if (known.letter == letter) return known.escaped;
    }
    return {&letter, 1};
}

}  // namespace

std::string RoffText(std::string_view text) {
    std::string escaped;
    if (text.starts_with('.')) escaped = "\\&";  // a quote in front isn't one any more by then
    for (const char& letter : text) escaped += EscapedForm(letter);
    return escaped;
}

std::string RoffArgument(std::string_view text) {
    return '"' + RoffText(text) + '"';
}

}  // namespace tradebill
