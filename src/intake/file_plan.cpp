#include "intake/file_plan.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "base/text.h"
#include "driver/report_request.h"
#include "findings/layout_hint.h"
#include "intake/decoded_text.h"
#include "intake/name_facts.h"
#include "intake/text_split.h"
#include "intake/workbook.h"
#include "intake/workbook_day.h"
#include "intake/workbook_text.h"
#include "platform/text_encoding.h"
#include "readers/layout_table.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

using namespace std::string_view_literals;

/// What begins like a file that is no text.
struct OtherFile {
    std::string_view start;
    const char* refusal;
};

// clang-format off
constexpr OtherFile kOtherFiles[] = {
    {"%PDF-"sv,  "it is a PDF, and no text"},
    {"{\\rtf"sv, "it is a document of a word processor, and no text"},
};
// clang-format on

bool IsOfAccountName(char byte) {
    return IsDigit(byte) || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte == '-' || byte == '_';
}

/// Fills what is known of the account, or why it can't be used.
void SetAccount(FilePlan& plan, const std::optional<std::string>& stated, const NameFacts& name,
                const std::optional<std::string>& given) {
    const std::optional<std::string>& account = stated ? stated : given ? given : name.account;
    if (!account) {
        plan.refusal = "neither the text nor its name says of which account it is: --account is needed";
    } else if (!IsAccountName(*account)) {
        plan.refusal = "the account \"" + GbkToUtf8(*account) +
                       "\" can't be used: one has at most 16 letters, digits, - and _" +
                       (stated ? "" : " (--account names another)");
    } else {
        plan.account = *account;
    }
}

/// The day of a statement. The name of a file with one statement knows better than the day on which it was made.
std::optional<std::string> DayOf(const StatementSplit& split, const SplitStatement& statement, const NameFacts& name) {
    const bool isAlone = split.statements.size() == 1;
    if (isAlone && name.day && (!statement.day || statement.isDayMade)) return name.day;
    return statement.day;
}

/// "the statement of 20240102: ", where a file has several.
std::string Of(const StatementSplit& split, const SplitStatement& statement) {
    if (split.statements.size() < 2 || !statement.day) return {};
    return "the statement of " + *statement.day + ": ";
}

/// What reads a statement. Texts without another help are known by their marks; the first of a file is tried, too.
std::optional<TextLayout> LayoutOf(const SplitStatement& statement, const std::string& day, bool isFirst,
                                   const LayoutFinder& otherLayouts) {
    const std::vector<const Layout*> fitting = FittingLayouts(statement.text);
    const bool mayBeOther = fitting.empty() || (isFirst && !fitting.front()->isForeign);
    if (mayBeOther && otherLayouts) {
        if (auto other = otherLayouts(statement.text, day)) return other;
    }
    if (fitting.empty()) return std::nullopt;
    const Layout* layout = fitting.front();
    if (!layout->isForeign && !layout->marks.needsTemplate) layout = FindLayout(layout->format, statement.text);
    return TextLayout{std::string(layout->name), layout->format, layout->isForeign};
}

/// Notes the layout of a statement. False if there is none, or one of the other family.
bool SetLayout(FilePlan& plan, const StatementSplit& split, const SplitStatement& statement, const std::string& day,
               const LayoutFinder& otherLayouts) {
    const bool isFirst = plan.layout.name.empty();
    auto layout = LayoutOf(statement, day, isFirst, otherLayouts);
    if (!layout) {
        plan.refusal = Of(split, statement) + "no layout knows it (tradebill layouts lists them)";
        return false;
    }
    if (!isFirst && layout->isForeign != plan.layout.isForeign) {
        plan.refusal = Of(split, statement) + "it is of the " + std::string(KindName(layout->isForeign)) +
                       " family, and others in the file are not";
        return false;
    }
    if (isFirst) plan.layout = *std::move(layout);
    return true;
}

/// Puts them in the order of their days, and keeps one of each day.
void SortStatements(FilePlan& plan) {
    std::vector<PlannedStatement>& statements = plan.statements;
    std::ranges::sort(statements, {}, [](const auto& statement) { return std::tie(statement.day, statement.text); });
    const auto other = std::ranges::adjacent_find(statements, [](const auto& left, const auto& right) {
        return left.day == right.day && left.text != right.text;
    });
    if (other != statements.end()) plan.refusal = "it has two statements of " + other->day + " that differ";
    const auto isSameDay = [](const auto& left, const auto& right) { return left.day == right.day; };
    statements.erase(std::unique(statements.begin(), statements.end(), isSameDay), statements.end());
}

std::string NoDayText(const std::string& account, std::string_view ending) {
    return "neither the text nor its name says of which day it is: a name such as " +
           (account.empty() ? "ACCOUNT" : account) + "_2024-01-31" + std::string(ending) +
           " says it, as --account says the account";
}

void AddStatements(FilePlan& plan, const StatementSplit& split, const NameFacts& name,
                   const LayoutFinder& otherLayouts) {
    for (const SplitStatement& statement : split.statements) {
        const auto day = DayOf(split, statement, name);
        if (!SetLayout(plan, split, statement, day.value_or(std::string()), otherLayouts)) return;
        if (!day) {
            plan.refusal = NoDayText(plan.account, ".txt");
            return;
        }
        if (!IsCalendarDay(*day)) {
            plan.refusal = "the day that it states, " + *day + ", is none of the calendar";
            return;
        }
        plan.statements.push_back({*day, std::string(statement.text)});
    }
    SortStatements(plan);
}

/// "its macros are left alone; nobody knows the exchange of xy2405"
std::string WorkbookNote(bool hasMacros, const std::vector<std::string>& unknown) {
    std::string note = hasMacros ? "its macros are left alone" : "";
    if (unknown.empty()) return note;
    const std::string more = unknown.size() > 1 ? " and " + std::to_string(unknown.size() - 1) + " more" : "";
    return note + (note.empty() ? "" : "; ") + "exchange and product of " + unknown.front() + more + " aren't known";
}

/// Prints a workbook as the text that it becomes, UTF-8; empty if it is refused.
std::string TextOfWorkbook(FilePlan& plan, std::string_view bytes, const NameFacts& name,
                           const std::optional<std::string>& account, const PlanHelp& help) {
    const Workbook workbook = ReadWorkbook(bytes);
    plan.encoding = workbook.form;
    plan.refusal = workbook.refusal;
    plan.isUnreadable = !CanReadWorkbooks();
    if (!plan.refusal.empty()) return {};
    const WorkbookDay day = ReadWorkbookDay(workbook);
    plan.refusal = day.refusal;
    if (!plan.refusal.empty()) return {};
    SetAccount(plan, day.account, name, account);
    const std::optional<std::string>& stated = day.day ? day.day : name.day;
    if (!stated && plan.refusal.empty()) plan.refusal = NoDayText(plan.account, ".xls");
    if (!plan.refusal.empty()) return {};
    WorkbookText printed = PrintWorkbookDay(
        day, {.account = plan.account, .day = *stated, .openings = help.openings, .units = help.units});
    plan.note = WorkbookNote(workbook.hasMacros, printed.unknown);
    plan.findings = std::move(printed.findings);
    return std::move(printed.text);
}

/// Decodes the text, or that which a workbook becomes.
std::string DecodedOf(FilePlan& plan, std::string_view bytes) {
    DecodedText decoded = DecodeText(bytes);
    if (plan.encoding.empty()) plan.encoding = decoded.encoding;
    if (!plan.note.empty() && !decoded.replaced.empty()) plan.note += "; ";
    plan.note += decoded.replaced;
    plan.refusal = std::move(decoded.refusal);
    return std::move(decoded.text);
}

void FillPlan(FilePlan& plan, std::string_view bytes, std::string_view name, const std::optional<std::string>& account,
              const PlanHelp& help) {
    for (const OtherFile& other : kOtherFiles) {
        if (!bytes.starts_with(other.start)) continue;
        plan.refusal = other.refusal;
        return;
    }
    const NameFacts facts = FactsOfName(name);
    std::string printed;
    if (BeginsLikeWorkbook(bytes)) {
        printed = TextOfWorkbook(plan, bytes, facts, account, help);
        if (!plan.refusal.empty()) return;
        bytes = printed;
    }
    const std::string text = DecodedOf(plan, bytes);
    if (!plan.refusal.empty()) return;
    if (Trim(text).empty()) {
        plan.refusal = "it is empty";
        return;
    }
    const StatementSplit split = SplitStatements(text);
    plan.refusal = split.refusal;
    if (!plan.refusal.empty()) return;
    AddStatements(plan, split, facts, help.otherLayouts);
    if (plan.refusal.empty()) SetAccount(plan, split.account, facts, account);
}

}  // namespace

FilePlan PlanFile(std::string_view bytes, std::string_view name, const std::optional<std::string>& account,
                  const PlanHelp& help) {
    FilePlan plan;
    FillPlan(plan, bytes, name, account, help);
    if (!plan.refusal.empty()) {
        plan.note.clear();
        plan.findings.clear();
    }
    return plan;
}

bool IsAccountName(std::string_view account) {
    constexpr std::size_t kMost = sizeof GenerateBillRequest::Account - 1;
    return !account.empty() && account.size() <= kMost && std::ranges::all_of(account, IsOfAccountName);
}

}  // namespace tradebill
