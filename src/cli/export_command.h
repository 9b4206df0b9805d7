// The command `export`: what a report reads and works out, as tables for other programs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "analysis/analysis.h"
#include "cli/command_table.h"
#include "cli/wait_option.h"
#include "requests/report_options.h"

namespace tradebill {

struct ExportCommand {
    ReportOptions options;
    std::optional<std::string> csvFolder;
    std::optional<std::string> sqliteFile;
    std::int64_t tradingDays = kUsualTradingDays;  ///< of a year
    int wait = kUsualWait;                         ///< seconds
    bool force = false;                            ///< write tables even without a single statement
    bool strict = false;                           ///< findings above a note make the exit code 3
    bool quiet = false;                            ///< no progress line and no summary; warnings are shown all the same
};

[[nodiscard]] CommandRun DeclareExport(CLI::App& app);

/// Reads the statements and writes the tables. Returns the program's exit code; throws CUsageError before anything is
/// done.
[[nodiscard]] int RunExportCommand(const ExportCommand& command);

}  // namespace tradebill
