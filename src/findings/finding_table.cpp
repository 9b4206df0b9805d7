#include "findings/finding_table.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "findings/finding.h"

namespace tradebill {
namespace {

using enum FindingCode;
using enum Severity;

// clang-format off
constexpr FindingKind kKinds[] = {
    {Unreadable,     "unreadable",      Error,
     "A statement is there and can't be opened, or not be read to its end.",
     "Give the user who makes the report the right to read it, or copy it anew."},
    {Empty,          "empty",           Error,
     "A statement holds nothing.",
     "Fetch it again from the broker."},
    {NotAFile,       "not-a-file",      Error,
     "What bears a statement's name is a folder, a pipe or a device.",
     "Put the statement in its place."},
    {Encoding,       "encoding",        Error,
     "A statement isn't GBK text: it is UTF-8 or UTF-16, begins with a mark, or has bytes that are no characters.",
     "Save it as GBK (code page 936), as the broker sends it."},
    {Unrecognised,   "unrecognised",    Error,
     "Nothing of the layout stands in a statement, or the marks of another layout do.",
     "Name the layout that fits; tradebill explain shows what is seen in the file."},
    {CutOff,         "cut-off",         Error,
     "A section begins and doesn't end, or the file ends inside a row.",
     "Fetch the statement again: its end is missing."},
    {SectionMissing, "section-missing", Error,
     "A section is missing that a statement must have, or that its figures and the account's other statements call for.",
     "Fetch the statement again, or see with tradebill explain what is read of it."},
    {RowSkipped,     "row-skipped",     Error,
     "A row inside a section made no record, and is no rule, heading or total.",
     "Look at the row; tradebill explain shows what its layout expects."},
    {Shifted,        "shifted",         Error,
     "A row has fewer or more columns than its section, or a text where the layout has an amount: an empty cell moves all later columns.",
     "Look at the row, and put a value such as 0 or - into the empty cell."},
    {Totals,         "totals",          Error,
     "The section's own row of totals doesn't agree with its rows.",
     "Fetch the statement again: rows are missing or changed."},
    {Identity,       "identity",        Error,
     "The closing balance isn't what opening balance, cash flow, profit and loss, fees and premium add up to.",
     "Compare the money figures with the broker's."},
    {Available,      "available",       Error,
     "The available funds aren't equity less margin.",
     "Compare the money figures with the broker's."},
    {MoneyRows,      "money-rows",      Warning,
     "The rows of deposits and withdrawals, of exercises or of deliveries don't add up to what the money figures say.",
     "Compare both with the broker's: rows are missing or changed, or the money figure is."},
    {Currency,       "currency",        Warning,
     "A statement has money figures of a second currency. The report is made of the first section's alone.",
     "Take the balances of the other currency from the statement; trades and positions of both are in the report."},
    {Continuity,     "continuity",      Error,
     "A day doesn't open with the balance that the day before closed with.",
     "Compare both statements with the broker's: one of them is wrong or of another account."},
    {Gap,            "gap",             Error,
     "Weekdays have no statement, and the balance changed over them. A note if it didn't, as over holidays.",
     "Fetch the missing statements."},
    {Lots,           "lots",            Warning,
     "The open lots of a contract aren't those of the day before and what was opened and closed.",
     "Compare trades and positions with the broker's; deliveries and exercises may explain it."},
    {WrongAccount,   "wrong-account",   Error,
     "A statement states another account than its file's name.",
     "Put the statement of this account in its place."},
    {WrongDay,       "wrong-day",       Error,
     "A statement states another day than its file's name.",
     "Put the statement of this day in its place."},
    {Repeated,       "repeated",        Error,
     "Two days have the same statement.",
     "Fetch the statement of the day that has the other's."},
    {Unit,           "unit",            Warning,
     "The unit of a contract isn't known, or contradicts what the account's own trades say.",
     "Give the right unit in a file for --units."},
    {Template,       "template",        Error,
     "The template isn't there or can't be read, or what it says can't be understood.",
     "Mend the template; tradebill template check tells its lines."},
    {Live,           "live",            Warning,
     "The report ends today without live figures: its last record is empty.",
     "Give the figures with --live, or end the report yesterday."},
    {Opening,        "opening",         Warning,
     "A row of an imported workbook names the trade that opened it, and no imported statement has that trade: its opening date is --.",
     "Import the day of that trade, and then this workbook again with --force."},
};
// clang-format on

consteval bool StandsInOrder() {
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        if (kKinds[i].code != static_cast<FindingCode>(i)) return false;
    }
    return std::size(kKinds) == static_cast<std::size_t>(Opening) + 1;
}
static_assert(StandsInOrder());

}  // namespace

std::span<const FindingKind> FindingKinds() {
    return kKinds;
}

const FindingKind& KindOf(FindingCode code) {
    return kKinds[static_cast<std::size_t>(code)];
}

std::string SentencesOf(const Finding& finding) {
    std::string text = finding.text;
    if (finding.severity != Note) text.append(" ").append(KindOf(finding.code).advice);
    return text;
}

std::int32_t CountOf(std::span<const Finding> findings, FindingCode code) {
    return static_cast<std::int32_t>(std::ranges::count(findings, code, &Finding::code));
}

bool HasWarnings(std::span<const Finding> findings) {
    return std::ranges::any_of(findings, [](const Finding& finding) { return finding.severity != Note; });
}

std::string_view SeverityName(Severity severity) {
    constexpr std::string_view kNames[] = {"error", "warning", "note"};
    return kNames[static_cast<std::size_t>(severity)];
}

}  // namespace tradebill
