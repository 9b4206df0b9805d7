// The findings of a report as the program shows them beside it.
#pragma once

#include <span>
#include <string>

#include "findings/finding.h"
#include "requests/report_options.h"

namespace tradebill {

/// Shows the ten worst on stderr, and by which command all are shown: those above a note, but for statements that
/// can't be read, which a run tells of itself.
void ShowFindings(std::span<const Finding> findings, const ReportOptions& options);

/// The command that shows all findings of a report with these options, as a shell takes it.
[[nodiscard]] std::string CheckCommandLine(const ReportOptions& options);

}  // namespace tradebill
