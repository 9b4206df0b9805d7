#include "requests/run_findings.h"

#include <vector>

#include "driver/report_run.h"
#include "findings/account_findings.h"
#include "findings/finding.h"
#include "findings/request_findings.h"
#include "findings/statement_watch.h"
#include "report/report.h"
#include "report/trade_units.h"
#include "requests/report_options.h"

namespace tradebill {

CRunFindings::CRunFindings(CReport& report, const PreparedRequest& prepared)
    : report_(report), prepared_(prepared), watch_(report) {
    if (prepared.products->GoesByFile()) watch_.TallyUnits();
}

std::vector<Finding> CRunFindings::Collect(const RunResult& result) {
    std::vector<Finding> findings = FindingsOf(report_, watch_);
    isComplete_ = CheckRequestTemplate(report_, findings);
    TellDoubtfulUnits(DoubtfulUnits(prepared_.products->UsedUnits(), watch_.Units()), findings);
    if (result.hasLiveRecord && !prepared_.present.hasLiveFigures) findings.push_back(LiveFinding());
    SortFindings(findings);
    return findings;
}

}  // namespace tradebill
