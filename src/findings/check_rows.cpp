#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/section_facts.h"
#include "findings/statement_facts.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

/// How many columns more than their heading the rows of a section have, by layout and section. A heading may have a
/// blank in a word, and then all rows have one column less than it seems.
class CUsualShapes {
public:
    explicit CUsualShapes(const StatementList& statements) {
        for (const StatementFacts& statement : statements) {
            if (!statement.isUsable) continue;
            for (const SectionFacts& section : statement.sections) {
                auto& counts = counts_[{statement.layout, section.kind}];
                for (const RowRun& run : section.runs) counts[run.columnsBeyond] += run.rows.size();
            }
        }
    }

    /// Nothing if no row of such a section was read. The section is one of those that were counted.
    [[nodiscard]] std::optional<int> Of(const StatementFacts& statement, const SectionFacts& section) const {
        const auto& counts = counts_.at({statement.layout, section.kind});
        if (counts.empty()) return std::nullopt;
        const auto likelier = [](const auto& left, const auto& right) {
            return std::pair(left.second, left.first == 0) < std::pair(right.second, right.first == 0);
        };
        return std::ranges::max_element(counts, likelier)->first;
    }

private:
    std::map<std::pair<std::string, SectionKind>, std::map<int, std::size_t>> counts_;
};

std::string Columns(int count) {
    return std::to_string(count) + (count == 1 ? " column" : " columns");
}

class CRowCheck {
public:
    CRowCheck(const StatementFacts& statement, const SectionFacts& section, std::optional<int> usual,
              std::vector<Finding>& findings)
        : statement_(statement), section_(section), usual_(usual), findings_(findings) {}

    void Run() {
        for (const RowFault& fault : section_.faults) TellFault(fault);
        for (const RowRun& run : section_.runs) {
            if (usual_ && run.columnsBeyond != *usual_) TellRun(run);
        }
    }

private:
    Finding& Add(FindingCode code, int row) {
        Finding finding = FindingAbout(statement_, code);
        finding.row = row;
        finding.section = section_.kind;
        rows_.push_back(row);
        findings_.push_back(std::move(finding));
        return findings_.back();
    }

    /// A row of the section's own that lacks cells, or has some too many; what has less than half of them is no such
    /// row.
    [[nodiscard]] bool IsShifted(const RowFault& fault) const {
        if (fault.kind == RowFault::Kind::NoAmount) return true;
        if (!usual_ || fault.columnsBeyond == *usual_) return false;
        return fault.columns * 2 >= fault.columns - fault.columnsBeyond + *usual_;
    }

    void TellFault(const RowFault& fault) {
        const bool isShifted = IsShifted(fault);
        rows_.push_back(fault.row);
        findings_.push_back(FindingOfRow(statement_, section_.kind, fault, isShifted));
    }

    void TellRun(const RowRun& run) {
        for (const int row : run.rows) {
            if (std::ranges::find(rows_, row) != rows_.end()) continue;
            Finding& finding = Add(FindingCode::Shifted, row);
            finding.expected = Columns(run.columns - run.columnsBeyond + *usual_);
            finding.found = Columns(run.columns);
            finding.text = "The row has another number of columns than its section.";
        }
    }

    const StatementFacts& statement_;
    const SectionFacts& section_;
    std::optional<int> usual_;
    std::vector<Finding>& findings_;
    std::vector<int> rows_;  // that are told
};

}  // namespace

Finding FindingOfRow(const StatementFacts& statement, SectionKind section, const RowFault& fault, bool isShifted) {
    Finding finding = FindingAbout(statement, isShifted ? FindingCode::Shifted : FindingCode::RowSkipped);
    finding.row = fault.row;
    finding.section = section;
    finding.expected = fault.expected;
    finding.found = fault.found;
    finding.text = fault.kind == RowFault::Kind::NoAmount ? "A text stands where the layout has an amount."
                   : isShifted ? "The row has another number of columns than its section, and made no record."
                               : "The row made no record, and is no rule, heading or total.";
    return finding;
}

void TellTotals(const StatementFacts& statement, const SectionFacts& section, std::vector<Finding>& findings) {
    for (const TotalFault& fault : section.totals) {
        if (fault.isWithinRounding) continue;
        Finding finding = FindingAbout(statement, FindingCode::Totals);
        finding.row = fault.row;
        finding.section = section.kind;
        finding.expected = fault.expected;
        finding.found = fault.found;
        finding.text = "The row of totals doesn't agree with the rows of its section.";
        findings.push_back(std::move(finding));
    }
}

void CheckRows(const StatementList& statements, std::vector<Finding>& findings) {
    const CUsualShapes shapes(statements);
    for (const StatementFacts& statement : statements) {
        if (!statement.isUsable) continue;
        for (const SectionFacts& section : statement.sections) {
            CRowCheck(statement, section, shapes.Of(statement, section), findings).Run();
            TellTotals(statement, section, findings);
        }
    }
}

}  // namespace tradebill
