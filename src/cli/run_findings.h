// The findings of one run of the program: of its statements, and of what it was asked.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/report_options.h"
#include "findings/finding.h"
#include "findings/statement_watch.h"
#include "readers/statement_loader.h"

namespace tradebill {

class CReport;

/// Listens to a run of the program and gives what is wrong with it.
class CRunFindings {
public:
    /// REQUIRES: both outlive this, and `report` is the one of the run.
    CRunFindings(CReport& report, const PreparedRequest& prepared);

    [[nodiscard]] CStatementListener* Listener() { return &watch_; }

    /// All findings, the worst first.
    ///
    /// REQUIRES: the run is over.
    [[nodiscard]] std::vector<Finding> Collect();

    /// Whether all that Collect looks at could be read.
    [[nodiscard]] bool IsComplete() const { return isComplete_; }

private:
    const CReport& report_;
    const PreparedRequest& prepared_;
    CStatementWatch watch_;
    bool isComplete_ = true;
};

/// Shows the ten worst on stderr, and by which command all are shown: those above a note, but for statements that
/// can't be read, which a run tells of itself.
void ShowFindings(std::span<const Finding> findings, const ReportOptions& options);

/// The command that shows all findings of a report with these options, as a shell takes it.
[[nodiscard]] std::string CheckCommandLine(const ReportOptions& options);

}  // namespace tradebill
