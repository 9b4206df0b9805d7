// The command `reset`: the page that stands for a report until it is there.
#pragma once

#include "cli/command_table.h"

namespace tradebill {

[[nodiscard]] CommandRun DeclareReset(CLI::App& app);

}  // namespace tradebill
