// The command `layouts`: the table of layouts that can be read, and what each would read of one statement.
#pragma once

#include <string>

#include "cli/command_table.h"

namespace tradebill {

[[nodiscard]] CommandRun DeclareLayouts(CLI::App& app);

/// Prints the table.
void PrintLayouts();

/// Prints what each layout reads of the statement `file`, "-" for standard input, one line a format. Returns 0 if one
/// of them finds a section, kExitNothingRecognised if none does. Throws as RunExplainCommand.
[[nodiscard]] int PrintReadings(const std::string& file);

}  // namespace tradebill
