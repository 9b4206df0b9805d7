// The command `explore`: reads accounts and writes the page on which a browser shows and sorts what was read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/analysis.h"
#include "cli/command_table.h"
#include "cli/output_file.h"
#include "cli/wait_option.h"
#include "requests/report_options.h"

namespace tradebill {

struct ExploreCommand {
    std::vector<std::string> files;  ///< statements to import first, and folders of them; none: they are below the root
    ReportOptions options;           ///< but for the account
    std::vector<std::string> accounts;     ///< several are added up
    bool takesAll = false;                 ///< all accounts that there are
    std::optional<std::string> outFolder;  ///< for what is imported
    std::optional<std::string> outputFile;
    int wait = kUsualWait;                         ///< seconds, for another import
    std::int64_t tradingDays = kUsualTradingDays;  ///< of a year
    bool force = false;                            ///< write a page even without a single statement
    bool strict = false;                           ///< findings above a note make the exit code 3
    bool quiet = false;                            ///< no progress line and no summary; warnings are shown all the same
};

/// Throws CUsageError, which names what was `asked`, where the program was built without the viewer: it is empty then.
void RequireViewer(std::string_view viewer, const std::string& asked);

/// A page's line of a summary: its address, or its name if it is no file.
[[nodiscard]] std::string PageOutputText(const COutputFile& output);

[[nodiscard]] CommandRun DeclareExplore(CLI::App& app);

/// Reads the statements and writes the page. Returns the program's exit code; throws CUsageError before anything is
/// done.
[[nodiscard]] int RunExploreCommand(const ExploreCommand& command);

}  // namespace tradebill
