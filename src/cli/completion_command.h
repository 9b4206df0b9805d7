// The command `completion`, which prints what a shell is told, and `.complete`, which the shell then asks as somebody
// types.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/command_table.h"

namespace tradebill {

inline constexpr const char* kCompleteCommand = ".complete";

/// What completes, and how it is had.
inline constexpr std::string_view kCompletionNotes =
    "Commands, options and what they take are completed in bash, zsh and fish: files and folders, and the users, "
    "accounts and templates below the folder that --root names.\n"
    "An installed program has the scripts at hand. Where it hasn't, one of these lines in the shell's own file of "
    "settings brings them, behind compinit in that of zsh:\n"
    "  source <(tradebill completion bash)\n"
    "  source <(tradebill completion zsh)\n"
    "  tradebill completion fish | source";

[[nodiscard]] CommandRun DeclareCompletion(CLI::App& app);
[[nodiscard]] CommandRun DeclareComplete(CLI::App& app);

/// Prints what may stand in the place of the last of `words`, which are a shell's name and its words behind that of the
/// program: "words", "files" or "folders" on the first line, then a word a line, with its help behind a tabulator.
/// bash gets those that begin as the last one does, as it writes them. Returns the program's exit code, and never
/// throws or complains: who is typing can't be told.
[[nodiscard]] int RunComplete(const std::vector<std::string>& words) noexcept;

}  // namespace tradebill
