// Texts for manual pages: what roff would take for an instruction is text.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

/// `text`, UTF-8 on one line, as roff shows it letter by letter: hyphens are those that can be copied into a shell, and
/// neither a dot nor a quote in front begins a request. Line breaks become blanks.
[[nodiscard]] std::string RoffText(std::string_view text);

/// The same as one argument of a request, in quotes.
[[nodiscard]] std::string RoffArgument(std::string_view text);

}  // namespace tradebill
