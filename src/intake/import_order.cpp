#include "intake/import_order.h"

#include <algorithm>
#include <compare>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "intake/bill_import.h"
#include "intake/file_plan.h"
#include "intake/name_facts.h"
#include "intake/workbook.h"
#include "intake/workbook_day.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "readers/statement_limit.h"

namespace tradebill {
namespace {

/// A look that fails is taken again, at the whole file, so that only what can't be read at all counts as a text.
bool IsWorkbook(const std::string& path, CFileBuffer& buffer) {
    char start[8];
    const CFile file(path, FileMode::Read);
    if (file.IsOpen() && file.SizeOnDisk()) {
        const auto size = file.ReadAt(0, start, sizeof start);
        if (size) return BeginsLikeWorkbook({start, *size});
    }
    const FileContent content = ReadWholeFile(path, buffer);
    return content.state == FileState::Read && BeginsLikeWorkbook(content.bytes);
}

/// What a statement is known by.
struct AccountDay {
    std::string day;
    std::string account;

    auto operator<=>(const AccountDay&) const = default;
};

/// Looks for the day of a workbook, which stays empty if it has none, and for its account.
void FindDay(const std::string& path, const std::optional<std::string>& account, CFileBuffer& buffer, ImportStep& step,
             AccountDay& found) {
    if (WhyTooLarge(path, {.mostBytes = CBillImport::kMostBytes})) return;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state != FileState::Read) {
        step.refusal = WhyUnread(content);
        return;
    }
    if (!BeginsLikeWorkbook(content.bytes)) return;
    const Workbook workbook = ReadWorkbook(content.bytes);
    step.form = workbook.form;
    step.refusal = workbook.refusal;
    if (!step.refusal.empty()) return;
    const WorkbookDay read = ReadWorkbookDay(workbook);
    const NameFacts name = FactsOfName(FileNameOf(path));
    found.day = read.day ? *read.day : name.day.value_or("");
    found.account = read.account ? *read.account : account ? *account : name.account.value_or("");
}

/// The first of the workbooks that have a day.
using FirstWorkbooks = std::map<AccountDay, std::size_t>;

/// Whether a text has a day of a workbook that stands before it.
bool ComesSecond(std::size_t place, const std::string& path, const std::optional<std::string>& account,
                 const FirstWorkbooks& workbooks, CFileBuffer& buffer) {
    const auto isBefore = [&](const auto& entry) { return entry.second < place; };
    if (std::ranges::none_of(workbooks, isBefore) || WhyTooLarge(path, {.mostBytes = CBillImport::kMostBytes}))
        return false;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state != FileState::Read) return false;
    const FilePlan plan = PlanFile(content.bytes, FileNameOf(path), account);
    return std::ranges::any_of(plan.statements, [&](const PlannedStatement& statement) {
        const auto found = workbooks.find({statement.day, plan.account});
        return found != workbooks.end() && isBefore(*found);
    });
}

}  // namespace

std::vector<ImportStep> ImportOrder(const std::vector<std::string>& files, const std::optional<std::string>& account) {
    CFileBuffer buffer;
    std::vector<ImportStep> steps;
    steps.reserve(files.size());
    for (std::size_t i = 0; i < files.size(); ++i) steps.push_back({.file = i});
    const auto firstWorkbook = std::stable_partition(
        steps.begin(), steps.end(), [&](const ImportStep& step) { return !IsWorkbook(files[step.file], buffer); });
    if (files.size() < 2 || firstWorkbook == steps.end()) return steps;
    std::vector<AccountDay> days(files.size());
    FirstWorkbooks workbooks;
    std::for_each(firstWorkbook, steps.end(), [&](ImportStep& step) {
        FindDay(files[step.file], account, buffer, step, days[step.file]);
        if (step.refusal.empty()) workbooks.try_emplace(days[step.file], step.file);
    });
    std::stable_sort(firstWorkbook, steps.end(), [&](const ImportStep& left, const ImportStep& right) {
        return days[left.file].day < days[right.file].day;
    });
    const auto firstSecond = std::stable_partition(steps.begin(), firstWorkbook, [&](const ImportStep& step) {
        return !ComesSecond(step.file, files[step.file], account, workbooks, buffer);
    });
    std::rotate(firstSecond, firstWorkbook, steps.end());
    return steps;
}

}  // namespace tradebill
