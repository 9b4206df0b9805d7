// The findings of one run of the program: of its statements, and of what it was asked.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/report_options.h"
#include "findings/finding.h"

namespace tradebill {

class CReport;
class CStatementWatch;

/// All findings, the worst first.
///
/// REQUIRES: `watch` has listened to the run of `prepared` in `report`.
[[nodiscard]] std::vector<Finding> FindingsOfRun(const CReport& report, const CStatementWatch& watch,
                                                 const PreparedRequest& prepared);

/// Shows the ten worst on stderr, and by which command all are shown. Nothing if there is nothing above a note.
void ShowFindings(std::span<const Finding> findings, const ReportOptions& options);

/// The command that shows all findings of a report with these options, as a shell takes it.
[[nodiscard]] std::string CheckCommandLine(const ReportOptions& options);

}  // namespace tradebill
