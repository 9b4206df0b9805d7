#include "findings/account_findings.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <vector>

#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/statement_facts.h"
#include "findings/statement_watch.h"

namespace tradebill {

Finding FindingAbout(const StatementFacts& statement, FindingCode code) {
    return {.code = code, .severity = KindOf(code).severity, .day = statement.day, .file = statement.file};
}

void SortFindings(std::vector<Finding>& findings) {
    std::ranges::stable_sort(findings, [](const Finding& left, const Finding& right) {
        const auto key = [](const Finding& finding) {
            return std::tuple(finding.severity, finding.code, std::string_view(finding.day), finding.row.value_or(0));
        };
        return key(left) < key(right);
    });
}

std::vector<Finding> FindingsOf(const CReport& report, const CStatementWatch& watch) {
    std::vector<Finding> findings;
    for (const StatementFacts& statement : watch.Statements()) {
        findings.insert(findings.end(), statement.findings.begin(), statement.findings.end());
    }
    CheckRows(watch.Statements(), findings);
    CheckSections(report, watch.Statements(), findings);
    CheckMoney(report, watch.Statements(), findings);
    CheckDays(report, watch.Statements(), findings);
    SortFindings(findings);
    return findings;
}

}  // namespace tradebill
