// The command `layouts`: the table of layouts that can be read.
#pragma once

#include "cli/command_table.h"

namespace tradebill {

[[nodiscard]] CommandRun DeclareLayouts(CLI::App& app);

/// Prints the table.
void PrintLayouts();

}  // namespace tradebill
