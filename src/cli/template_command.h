// The command `template check`: what a statement template says that no reader will understand as it was meant.
#pragma once

#include <string>

#include "cli/command_table.h"

namespace tradebill {

[[nodiscard]] CommandRun DeclareTemplateCheck(CLI::App& app);

/// Prints the findings. Returns the program's exit code: 1 if there are errors. Throws CUsageError for a file that
/// can't be read.
[[nodiscard]] int RunTemplateCheck(const std::string& path);

}  // namespace tradebill
