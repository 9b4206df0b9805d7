// The command `diff`: what differs between two runs, by their JSON.
#pragma once

#include <string>

#include "cli/command_table.h"

namespace tradebill {

struct DiffCommand {
    std::string left;  ///< files that `report --json` wrote
    std::string right;
    bool showsAll = false;  ///< more than the first differences of each block
    bool quiet = false;     ///< nothing but the exit code
};

[[nodiscard]] CommandRun DeclareDiff(CLI::App& app);

/// Prints what differs. Returns kExitDone if nothing does, kExitFindings if something does. Throws CUsageError for what
/// is no JSON of a report, and CUnreadableInput.
[[nodiscard]] int RunDiffCommand(const DiffCommand& command);

}  // namespace tradebill
