// The command `check`: reads the statements of a range as a report does, and tells what is wrong in them.
#pragma once

#include <optional>
#include <string>

#include "cli/command_table.h"
#include "requests/report_options.h"

namespace tradebill {

struct CheckCommand {
    ReportOptions options;
    std::optional<std::string> jsonFile;
    bool quiet = false;
    bool listsCodes = false;
};

[[nodiscard]] CommandRun DeclareCheck(CLI::App& app);

/// Prints the findings, and writes them as JSON. Returns 0 if there is none above a note, 3 if there is, 2 if there is
/// no statement, 1 if the reading or the writing failed. Throws CUsageError before anything is done.
[[nodiscard]] int RunCheckCommand(const CheckCommand& command);

}  // namespace tradebill
