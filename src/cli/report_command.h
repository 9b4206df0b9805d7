// The command `report`: one run of the module, watched and summed up.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/analysis.h"
#include "cli/command_table.h"
#include "cli/wait_option.h"
#include "requests/report_options.h"

namespace tradebill {

struct ReportCommand {
    std::vector<std::string> files;  ///< statements to import first, and folders of them; none: they are below the root
    ReportOptions options;
    std::optional<std::string> jsonFile;        ///< where everything that the run left in memory goes
    std::optional<std::string> standaloneFile;  ///< the page with its pictures inside
    std::optional<std::string> exploreFile;     ///< the second page
    std::optional<std::string> outFolder;       ///< for page and pictures; nothing: beside the statements
    bool opensPage = false;
    std::int64_t tradingDays = kUsualTradingDays;  ///< of a year
    int wait = 10;                                 ///< seconds
    bool force = false;                            ///< write a page even without a single statement
    bool strict = false;                           ///< findings above a note make the exit code 3
    bool quiet = false;                            ///< no progress line and no summary; warnings are shown all the same
};

[[nodiscard]] CommandRun DeclareReport(CLI::App& app);

/// Makes the report. Returns the program's exit code; throws CUsageError before anything is done.
[[nodiscard]] int RunReportCommand(const ReportCommand& command);

}  // namespace tradebill
