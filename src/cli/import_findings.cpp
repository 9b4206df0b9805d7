#include "cli/import_findings.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "base/day.h"
#include "cli/awaited_work.h"
#include "cli/watched_run.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "findings/account_findings.h"
#include "intake/bill_import.h"
#include "platform/file.h"
#include "report/account_key.h"
#include "report/report.h"
#include "requests/report_options.h"
#include "requests/run_findings.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// The days of one account, and the format that they are read by.
struct ImportedDays {
    std::string first;
    std::string last;
    std::int32_t format = 0;
};

std::map<AccountKey, ImportedDays> DaysByAccount(std::span<const ImportedFile> files, const std::string& user) {
    std::map<AccountKey, ImportedDays> accounts;
    for (const ImportedFile& file : files) {
        if (file.outcome == ImportOutcome::Refused || file.days.empty()) continue;
        const std::string& first = file.days.front();
        const std::string& last = file.days.back();
        const auto [entry, isNew] = accounts.try_emplace({user, file.account, file.layout.isForeign},
                                                         ImportedDays{first, last, file.layout.format});
        ImportedDays& days = entry->second;
        if (first < days.first) days.format = file.layout.format;
        days.first = std::min(days.first, first);
        days.last = std::max(days.last, last);
    }
    return accounts;
}

std::string Dashed(const std::string& day) {
    return DashedDayText(ParsePackedDay(day));
}

ReportOptions OptionsFor(const AccountKey& account, const ImportedDays& days, const std::string& root) {
    ReportOptions options;
    options.root = root;
    options.user = account.user;
    options.account = account.account;
    options.from = Dashed(days.first);
    options.to = Dashed(days.last);
    options.kind = std::string(KindName(account.isForeign));
    return options;
}

PreparedRequest PreparedByAnyLayout(ReportOptions options, std::int32_t imported) {
    try {
        return PrepareRequest(options);
    } catch (const CUsageError&) {
        options.format = std::to_string(imported);
        return PrepareRequest(options);
    }
}

/// By the layout that the program finds; where it may be of several, by the import's. The table of files says which.
PreparedRequest PreparedFor(const AccountKey& account, const ImportedDays& days, const std::string& root) {
    PreparedRequest prepared = PreparedByAnyLayout(OptionsFor(account, days, root), days.format);
    prepared.notes.clear();
    return prepared;
}

/// Whether nothing hid what there may be to find.
bool IsAllRead(const RunProblems& problems) {
    const auto isUnreadable = [](const UnreadStatement& statement) { return statement.state == FileState::Unreadable; };
    return problems.inputs.empty() && std::ranges::none_of(problems.statements, isUnreadable);
}

}  // namespace

ImportFindings FindingsOfImport(std::span<const ImportedFile> files, const std::string& root, const std::string& user,
                                CAwaitedWork& work) {
    ImportFindings result;
    for (const auto& [account, days] : DaysByAccount(files, user)) {
        const PreparedRequest prepared = PreparedFor(account, days, root);
        CReport report;
        CRunFindings faults(report, prepared);
        faults.ReadSideRows();
        const auto run = RunWatched(report, prepared, &work, ReadStatements, {.listener = faults.Listener()});
        if (!run) {
            result.isComplete = false;
            continue;
        }
        std::ranges::move(faults.Collect(*run), std::back_inserter(result.findings));
        result.isComplete &= IsAllRead(run->problems) && faults.IsComplete();
    }
    for (const ImportedFile& file : files) std::ranges::copy(file.findings, std::back_inserter(result.findings));
    SortFindings(result.findings);
    return result;
}

}  // namespace tradebill
