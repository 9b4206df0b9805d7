// The command `chart`: one chart of an account at any size, as a host would repaint it.
#pragma once

#include <optional>
#include <string>

#include "cli/command_table.h"
#include "requests/report_options.h"

namespace tradebill {

struct ChartCommand {
    ReportOptions options;
    std::string chart;                ///< name of a row of the chart table
    std::optional<std::string> size;  ///< of the painting area, "WxH"; that of the report's chart if it isn't given
    std::optional<std::string> rect;  ///< "L,T,R,B" in the area; all of it if it isn't given
    std::string outputFile;
};

[[nodiscard]] CommandRun DeclareChart(CLI::App& app);

/// Reads the account, which leaves its folders as they are, and writes the chart as PNG or JPEG, by the name of its
/// file. Returns the program's exit code; throws CUsageError before anything is done.
[[nodiscard]] int RunChartCommand(const ChartCommand& command);

}  // namespace tradebill
