// The findings of one run: of its statements, and of what it was asked.
#pragma once

#include <vector>

#include "findings/finding.h"
#include "findings/statement_watch.h"
#include "readers/statement_loader.h"
#include "requests/report_options.h"

namespace tradebill {

class CReport;
struct RunResult;

/// Listens to a run and gives what is wrong with it.
class CRunFindings {
public:
    /// REQUIRES: both outlive this, and `report` is the one of the run.
    CRunFindings(CReport& report, const PreparedRequest& prepared);

    /// Has the tables beside the page's own read as well, for exports and for who asks for all findings.
    void ReadSideRows() { watch_.ReadSideRows(); }

    [[nodiscard]] CStatementListener* Listener() { return &watch_; }

    /// All findings, the worst first. `result` is what the run gave.
    [[nodiscard]] std::vector<Finding> Collect(const RunResult& result);

    /// Whether all that Collect looks at could be read.
    [[nodiscard]] bool IsComplete() const { return isComplete_; }

private:
    const CReport& report_;
    const PreparedRequest& prepared_;
    CStatementWatch watch_;
    bool isComplete_ = true;
};

}  // namespace tradebill
