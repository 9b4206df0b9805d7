#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/section_facts.h"
#include "findings/statement_facts.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "report/printed_money.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::string_view kNoLabels = "The money section has none of the labels of its layout.";

constexpr SectionKind kTables[] = {SectionKind::Trades, SectionKind::Closed, SectionKind::Open, SectionKind::Summary};

bool IsFound(const StatementFacts& statement, SectionKind kind) {
    const SectionFacts* const section = statement.Section(kind);
    return section != nullptr && section->IsFound();
}

bool States(const CReport& report, const StatementFacts& statement, PrintedFigure figure) {
    return std::ranges::any_of(MoneyOf(report, statement),
                               [&](const PrintedMoney& money) { return money.Amount(figure) != 0; });
}

/// Whether its fees are more than those of exercises and deliveries, which counters may count among them.
bool StatesTradeFees(const CReport& report, const StatementFacts& statement) {
    for (const PrintedMoney& money : MoneyOf(report, statement)) {
        const std::int64_t fees = money.Amount(PrintedFigure::Fees);
        const std::int64_t exercise = money.Amount(PrintedFigure::ExerciseFees);
        const std::int64_t delivery = money.Amount(PrintedFigure::DeliveryFees);
        if (fees != 0 && fees != exercise && fees != delivery && fees != exercise + delivery) return true;
    }
    return false;
}

/// Why a statement must have rows in a table that it lacks; nothing if it needn't.
std::optional<std::string_view> ReasonFor(const CReport& report, const StatementFacts& statement, SectionKind kind) {
    switch (kind) {
        case SectionKind::Trades:
            if (StatesTradeFees(report, statement)) return "its money figures state fees";
            if (!statement.lots.empty()) return "the open lots changed";
            break;
        case SectionKind::Closed:
            if (States(report, statement, PrintedFigure::ClosedPL)) return "its money figures state realised P/L";
            if (statement.hasClosingTrades) return "trades closed positions";
            break;
        case SectionKind::Open:
        case SectionKind::Summary:
            if (States(report, statement, PrintedFigure::Margin)) return "its money figures state margin";
            if (statement.expectsLots) return "there were open lots, and no trade closed them";
            break;
        case SectionKind::Money:
        case SectionKind::Cash:
        case SectionKind::Exercises:
        case SectionKind::Deliveries:
            break;
    }
    return std::nullopt;
}

/// How many of an account's statements have a section.
class CUsualSections {
public:
    explicit CUsualSections(const StatementList& statements) {
        for (const StatementFacts& statement : statements) {
            if (!statement.isUsable) continue;
            ++statements_;
            for (const SectionKind kind : kTables) having_[kind] += IsFound(statement, kind) ? 1 : 0;
        }
    }
    /// Whether at least nine of ten others have what one statement lacks.
    [[nodiscard]] bool Has(SectionKind kind) const {
        const int others = statements_ - 1;
        return others > 0 && having_.at(kind) * 10 >= others * 9;
    }

private:
    int statements_ = 0;
    std::map<SectionKind, int> having_;
};

void TellMissing(const StatementFacts& statement, SectionKind kind, std::string text, std::vector<Finding>& findings) {
    const SectionFacts* const section = statement.Section(kind);
    Finding finding = FindingAbout(statement, FindingCode::SectionMissing);
    finding.section = kind;
    finding.expected = section != nullptr ? GbkToUtf8(section->titleWord) : std::string(SectionName(kind));
    finding.found = section != nullptr && section->hasTitle ? "its title alone" : "none";
    if (section != nullptr && section->hasTitle) finding.row = section->titleRow;
    finding.text = std::move(text);
    findings.push_back(std::move(finding));
}

bool HasToldRow(const StatementFacts& statement, SectionKind kind) {
    const SectionFacts* const section = statement.Section(kind);
    return section != nullptr && !section->faults.empty();
}

void CheckMoneySection(const CReport& report, const StatementFacts& statement, std::vector<Finding>& findings) {
    if (HasToldRow(statement, SectionKind::Money)) return;
    if (!statement.hasMoney) {
        TellMissing(statement, SectionKind::Money, "The statement has no money figures that the layout finds.",
                    findings);
        return;
    }
    if (statement.lacksLabels) {
        const std::string& options = statement.otherOptions;
        const std::string hint = options.empty() ? "" : " This looks like " + options + ".";
        TellMissing(statement, SectionKind::Money, std::string(kNoLabels) + hint, findings);
        findings.back().expected = "its labels";
        findings.back().found = "others";
        return;
    }
    if (statement.lacksEquity) {
        TellMissing(statement, SectionKind::Money, "The money section states an equity that its layout doesn't find.",
                    findings);
        findings.back().expected = "the label of the equity";
        findings.back().found = "another";
        return;
    }
    const bool statesBalance = States(report, statement, PrintedFigure::Opening) ||
                               States(report, statement, PrintedFigure::Closing) ||
                               States(report, statement, PrintedFigure::Equity);
    const auto isPrinted = [&](PrintedFigure figure) {
        return statement.moneyCount > 0 && MoneyOf(report, statement).front()[figure].has_value();
    };
    if (statesBalance || isPrinted(PrintedFigure::Opening) || isPrinted(PrintedFigure::Closing)) return;
    TellMissing(statement, SectionKind::Money, std::string(kNoLabels), findings);
}

void CheckTables(const CReport& report, const CUsualSections& usual, const StatementFacts& statement,
                 std::vector<Finding>& findings) {
    for (const SectionKind kind : kTables) {
        if (statement.Section(kind) == nullptr || IsFound(statement, kind)) continue;
        const auto reason = ReasonFor(report, statement, kind);
        if (!reason || !usual.Has(kind)) continue;
        TellMissing(statement, kind, "The section is missing, though " + std::string(*reason) + ".", findings);
    }
}

/// A foreign account's later currencies stand in blocks of their own: one that had a balance the day before is missed.
void CheckCurrencies(const CReport& report, const StatementFacts& before, const StatementFacts& statement,
                     std::vector<Finding>& findings) {
    if (!report.IsForeign() || !before.isUsable || statement.moneyCount == 0) return;
    for (const PrintedMoney& money : MoneyOf(report, before)) {
        if (money.Amount(PrintedFigure::Equity) == 0 || FindMoney(report, statement, money.Currency) != nullptr)
            continue;
        const std::string currency = GbkToUtf8(money.Currency);
        Finding finding = FindingAbout(statement, FindingCode::SectionMissing);
        finding.section = SectionKind::Money;
        finding.expected = currency;
        finding.found = "none";
        finding.text = "The statement has no figures of " + currency + ", though the one before states a balance.";
        findings.push_back(std::move(finding));
    }
}

/// The amounts that rows of totals usually have, by layout and section.
class CUsualTotals {
public:
    explicit CUsualTotals(const StatementList& statements) {
        for (const StatementFacts& statement : statements) {
            for (const SectionFacts& section : statement.sections) {
                int& most = most_[{statement.layout, section.kind}];
                most = std::max(most, section.totalColumns);
            }
        }
    }
    [[nodiscard]] int Of(const StatementFacts& statement, const SectionFacts& section) const {
        return most_.at({statement.layout, section.kind});
    }

private:
    std::map<std::pair<std::string, SectionKind>, int> most_;
};

/// A missing line end says nothing by itself, a row of totals that lacks amounts at the end of the file does.
void CheckLastTotals(const CUsualTotals& usual, const StatementFacts& statement, std::vector<Finding>& findings) {
    if (!statement.endsInLine) return;
    for (const SectionFacts& section : statement.sections) {
        if (section.totalRow == 0 || section.totalRow != statement.lastRow) continue;
        const int amounts = usual.Of(statement, section);
        if (section.totalColumns >= amounts) continue;
        Finding finding = FindingAbout(statement, FindingCode::CutOff);
        finding.row = section.totalRow;
        finding.section = section.kind;
        finding.expected = std::to_string(amounts) + " amounts";
        finding.found = std::to_string(section.totalColumns) + " amounts";
        finding.text = "The file ends inside the section's row of totals.";
        findings.push_back(std::move(finding));
    }
}

/// Whether the account's statements end with a line end, so that one without may lack its end.
bool EndsInLineAlone(const StatementList& statements, const StatementFacts& statement) {
    if (!statement.endsInLine) return false;
    return std::ranges::none_of(statements, [&](const StatementFacts& other) {
        return other.isUsable && &other != &statement && other.endsInLine;
    });
}

/// Sections that are missing at the end of a file that ends inside a row are cut off.
void TellCut(const StatementFacts& statement, std::vector<Finding>& findings) {
    Finding finding = FindingAbout(statement, FindingCode::CutOff);
    finding.row = statement.lastRow;
    finding.expected = "a whole last row, and the sections behind it";
    finding.found = "the end of the file";
    finding.text = "The file ends inside a row, and sections are missing.";
    findings.push_back(std::move(finding));
}

}  // namespace

void CheckSections(const CReport& report, const StatementList& statements, std::vector<Finding>& findings) {
    const CUsualTotals totals(statements);
    const CUsualSections sections(statements);
    for (const StatementFacts& statement : statements) {
        const bool isPassedOver = statement.sections.empty() && !statement.hasMoney;
        if (!statement.isUsable || !statement.isEnded || isPassedOver) continue;
        CheckLastTotals(totals, statement, findings);
        if (statement.isCutOff) continue;
        std::vector<Finding> missing;
        CheckMoneySection(report, statement, missing);
        if (&statement != &statements.front()) CheckCurrencies(report, *(&statement - 1), statement, missing);
        CheckTables(report, sections, statement, missing);
        if (!missing.empty() && EndsInLineAlone(statements, statement)) {
            TellCut(statement, findings);
        } else {
            findings.insert(findings.end(), missing.begin(), missing.end());
        }
    }
}

}  // namespace tradebill
