// All commands of the program on one App: what the command line is parsed by, and what pages and completions are made
// of.
#pragma once

#include <vector>

#include "cli/command_table.h"

namespace tradebill {

inline constexpr const char* kProgramName = "tradebill";
inline constexpr const char* kProgramHelp =
    "Makes a report page from the daily settlement statements of a futures account.";

// Words in the place of a command that are listed with them.
inline constexpr const char* kHelpWord = "help";
inline constexpr const char* kVersionWord = "version";

inline constexpr const char* kNoColoursOption = "--no-color";

/// A command as the command line knows it.
struct DeclaredCommand {
    const Command* row;
    CLI::App* app;  ///< part of the App that it was declared on
    CommandRun run;
};

/// Declares everything on `app`, which must outlive what is returned: the commands in the order of their table.
[[nodiscard]] std::vector<DeclaredCommand> DeclareCommands(CLI::App& app);

}  // namespace tradebill
