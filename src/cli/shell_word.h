// Words as shells write them: read without running anything, and written so that a shell reads them back as they are.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// A word of a command line, as far as it was typed.
struct ShellWord {
    std::string text;    ///< without quotes
    char openQuote = 0;  ///< ' or " that isn't closed yet
};

/// Reads what bash and zsh would make of `typed`, but for what they would fill in: `$`, backquotes and patterns are
/// letters here.
[[nodiscard]] ShellWord ReadShellWord(std::string_view typed);

/// `text` with `home` in the place of a ~ in front. As it is without a home.
[[nodiscard]] std::string WithHome(std::string text, const char* home);

/// Whether a line of words can bear `text`: control characters would break it.
[[nodiscard]] bool IsOneLine(std::string_view text);

/// How bash reads `text` and nothing else, behind an open quote or without. Nothing if that quote can't hold it.
[[nodiscard]] std::optional<std::string> BashWord(std::string_view text, char openQuote);

}  // namespace tradebill
