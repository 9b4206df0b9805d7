#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/day.h"
#include "base/decimal.h"
#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/lots_book.h"
#include "findings/section_facts.h"
#include "findings/statement_facts.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "report/printed_money.h"
#include "report/report.h"

namespace tradebill {
namespace {

using enum PrintedFigure;

constexpr std::int64_t kCent = kDecimalSteps / 100;

/// The weekdays between two days.
struct MissingDays {
    std::string first;
    std::string last;
    int days = 0;
};

std::chrono::sys_days SystemDay(const std::string& packed) {
    const CalendarDay day = ParsePackedDay(packed);
    return std::chrono::year(day.year) / day.month / day.day;
}

std::string PackedText(std::chrono::sys_days day) {
    const std::chrono::year_month_day date(day);
    return DayText({static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                    static_cast<int>(static_cast<unsigned>(date.day()))});
}

MissingDays WeekdaysBetween(const std::string& before, const std::string& after) {
    constexpr unsigned kFriday = 5;
    MissingDays missing;
    const std::chrono::sys_days end = SystemDay(after);
    for (std::chrono::sys_days day = SystemDay(before) + std::chrono::days(1); day < end; day += std::chrono::days(1)) {
        if (std::chrono::weekday(day).iso_encoding() > kFriday) continue;
        missing.last = PackedText(day);
        if (missing.days++ == 0) missing.first = missing.last;
    }
    return missing;
}

/// Balances that two days share: what one closed with and the other opens with.
struct Handover {
    const PrintedMoney* later;
    std::int64_t closed;
    std::int64_t opened;
    std::int64_t rounding;

    [[nodiscard]] bool Agrees() const { return DistanceOf(closed, opened) <= static_cast<std::uint64_t>(rounding); }
};

class CDayPair {
public:
    CDayPair(const CReport& report, const StatementFacts& before, const StatementFacts& after)
        : report_(report), before_(before), after_(after) {}

    /// One for each currency that both days have.
    [[nodiscard]] std::vector<Handover> Handovers() const {
        std::vector<Handover> handovers;
        if (!before_.isUsable || !after_.isUsable) return handovers;
        for (const PrintedMoney& later : MoneyOf(report_, after_)) {
            const PrintedMoney* const earlier = FindMoney(report_, before_, later.Currency);
            if (earlier == nullptr || !later[Opening]) continue;
            if (const auto closed = ClosedWith(*earlier)) {
                const std::int64_t rounding = !report_.IsForeign() ? kCent / 2 : later.IsBase ? 4 * kCent : kCent;
                handovers.push_back({&later, *closed, *later[Opening], rounding});
            }
        }
        return handovers;
    }

private:
    /// A foreign account hands its balance over, without the floating profit of its positions.
    [[nodiscard]] std::optional<std::int64_t> ClosedWith(const PrintedMoney& money) const {
        if (!report_.IsForeign()) return money[Closing];
        if (!money[Equity]) return std::nullopt;
        return *money[Equity] - money.Amount(FloatingPL);
    }

    const CReport& report_;
    const StatementFacts& before_;
    const StatementFacts& after_;
};

void TellContinuity(const StatementFacts& statement, const Handover& handover, std::vector<Finding>& findings) {
    Finding finding = FindingAbout(statement, FindingCode::Continuity);
    if (handover.later->Row > 0) finding.row = handover.later->Row;
    finding.section = SectionKind::Money;
    finding.expected = DecimalText(handover.closed);
    finding.found = DecimalText(handover.opened);
    const std::string currency = handover.later->Currency.empty() ? "" : GbkToUtf8(handover.later->Currency) + ": ";
    finding.text = currency + "The day doesn't open with the balance that the statement before closed with.";
    findings.push_back(std::move(finding));
}

void TellGap(const MissingDays& missing, Severity severity, std::vector<Finding>& findings) {
    const std::string days = missing.days == 1 ? missing.first : missing.first + " to " + missing.last;
    findings.push_back({.code = FindingCode::Gap,
                        .severity = severity,
                        .day = missing.first,
                        .expected = missing.days == 1 ? "a statement" : std::to_string(missing.days) + " statements",
                        .found = "none",
                        .text = severity == Severity::Note
                                    ? "No statement of " + days + "; the balance didn't change, as over holidays."
                                    : "No statement of " + days + ", and the balance changed meanwhile."});
}

void TellLots(const StatementFacts& statement, const LotsFault& fault, std::vector<Finding>& findings) {
    Finding finding = FindingAbout(statement, FindingCode::Lots);
    if (fault.isVanishedOption) finding.severity = Severity::Note;
    finding.section = SectionKind::Open;
    finding.expected = std::to_string(fault.expected) + " lots";
    finding.found = std::to_string(fault.found) + " lots";
    finding.text = GbkToUtf8(fault.contract) + (fault.side == LotSide::Long ? ", long: " : ", short: ") +
                   (fault.isVanishedOption ? "the option's lots are gone without a trade, as when it expires."
                                           : "the open lots aren't those of the day before and what was traded.");
    findings.push_back(std::move(finding));
}

/// Whether a statement's open positions weren't found, and this was told.
bool LacksPositions(const StatementFacts& statement, const std::vector<Finding>& findings) {
    const SectionFacts* const open = statement.Section(SectionKind::Open);
    if (open != nullptr && open->IsFound()) return false;
    return std::ranges::any_of(findings, [&](const Finding& finding) {
        const bool isOfEnd = finding.code == FindingCode::CutOff;
        const bool isOfOpen = finding.code == FindingCode::SectionMissing && finding.section == SectionKind::Open;
        return finding.day == statement.day && (isOfEnd || isOfOpen);
    });
}

/// Compares two files that stand next to each other.
void CheckPair(const CReport& report, const StatementFacts& before, const StatementFacts& after,
               std::vector<Finding>& findings) {
    const std::vector<Handover> handovers = CDayPair(report, before, after).Handovers();
    const bool isBroken = std::ranges::any_of(handovers, [](const Handover& handover) { return !handover.Agrees(); });
    const MissingDays missing = WeekdaysBetween(before.day, after.day);
    if (missing.days > 0) {
        TellGap(missing, isBroken ? KindOf(FindingCode::Gap).severity : Severity::Note, findings);
        if (isBroken) return;
    }
    for (const Handover& handover : handovers) {
        if (!handover.Agrees()) TellContinuity(after, handover, findings);
    }
    // Lots that weren't read say nothing: their section is told of as a whole.
    if (LacksPositions(before, findings) || LacksPositions(after, findings)) return;
    for (const LotsFault& fault : after.lots) TellLots(after, fault, findings);
}

/// A statement that states no day and no trade may well be the same on two quiet days.
void CheckRepeated(const StatementList& statements, std::vector<Finding>& findings) {
    std::map<std::pair<std::uint64_t, std::size_t>, const StatementFacts*> seen;
    for (const StatementFacts& statement : statements) {
        if (!statement.isUsable || (!statement.statesDay && !statement.hasTrades)) continue;
        const auto [first, isNew] = seen.emplace(std::pair(statement.hash, statement.size), &statement);
        if (isNew) continue;
        Finding finding = FindingAbout(statement, FindingCode::Repeated);
        finding.expected = "a statement of its own";
        finding.found = first->second->file;
        finding.text = "The statement is the same as that of " + first->second->day + ".";
        findings.push_back(std::move(finding));
    }
}

}  // namespace

void CheckDays(const CReport& report, const StatementList& statements, std::vector<Finding>& findings) {
    for (std::size_t i = 1; i < statements.size(); ++i) CheckPair(report, statements[i - 1], statements[i], findings);
    CheckRepeated(statements, findings);
}

}  // namespace tradebill
