#include "findings/account_findings.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <tuple>
#include <vector>

#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/statement_facts.h"
#include "findings/statement_watch.h"
#include "report/printed_money.h"
#include "report/report.h"

namespace tradebill {

Finding FindingAbout(const StatementFacts& statement, FindingCode code) {
    return {.code = code, .severity = KindOf(code).severity, .day = statement.day, .file = statement.file};
}

std::span<const PrintedMoney> MoneyOf(const CReport& report, const StatementFacts& statement) {
    return std::span(report.PrintedMoney).subspan(statement.firstMoney, statement.moneyCount);
}

const PrintedMoney* FindMoney(const CReport& report, const StatementFacts& statement, std::string_view currency) {
    const auto all = MoneyOf(report, statement);
    const auto found = std::ranges::find(all, currency, &PrintedMoney::Currency);
    return found != all.end() ? &*found : nullptr;
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
    CheckSideTables(report, watch.Statements(), findings);
    CheckDays(report, watch.Statements(), findings);
    SortFindings(findings);
    return findings;
}

}  // namespace tradebill
