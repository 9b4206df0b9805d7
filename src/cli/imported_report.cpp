#include "cli/imported_report.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day.h"
#include "cli/awaited_work.h"
#include "cli/import_command.h"
#include "cli/import_files.h"
#include "cli/import_summary.h"
#include "cli/several_accounts.h"
#include "intake/bill_import.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/account_key.h"
#include "report/request_copy.h"
#include "report/statement_name.h"
#include "requests/format_choice.h"
#include "requests/input_file.h"
#include "requests/out_folder.h"
#include "requests/report_options.h"
#include "requests/unit_table.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kUser = "imported";
constexpr std::string_view kLongestName = "/root/Users/imported/Data/Bill/DWP0123456789012345.20240102o.txt.part";

void CheckOrder(const ImportOrder& order) {
    const ReportOptions& options = order.options;
    if (!order.outFolder) {
        throw CUsageError(
            "--out is missing: expected a folder for the report and for the statements that are imported");
    }
    if (options.root || options.requestFile || options.user) {
        throw CUsageError(std::string(options.root          ? "--root"
                                      : options.requestFile ? "--request"
                                                            : "--user") +
                          ": expected none with files, which get a root and a user of their own below --out");
    }
}

bool IsRefused(const ImportedFile& file) {
    return file.outcome == ImportOutcome::Refused;
}

AccountKey AccountOf(const ImportedFile& file) {
    return {.user = std::string(kUser), .account = file.account, .isForeign = file.layout.isForeign};
}

using FilesByAccount = std::map<AccountKey, std::vector<ImportedFile>>;

std::string Listed(const FilesByAccount& accounts) {
    std::string list;
    for (const auto& [account, files] : accounts) {
        list.append(list.empty() ? "" : ", ")
            .append("--account ")
            .append(account.account)
            .append(" --kind ")
            .append(KindName(account.isForeign));
    }
    return list;
}

/// Those of the files that the report is of.
FilesByAccount WantedFiles(const std::vector<ImportedFile>& files, const ImportOrder& order) {
    const std::optional<std::string>& kind = order.options.kind;
    FilesByAccount wanted;
    for (const ImportedFile& file : files) {
        const bool isNamed =
            order.accounts.empty() || std::ranges::find(order.accounts, file.account) != order.accounts.end();
        if (IsRefused(file) || !isNamed) continue;
        if (kind && (KindNumber(kind) == kForeignKind) != file.layout.isForeign) continue;
        wanted[AccountOf(file)].push_back(file);
    }
    if (wanted.size() > 1 && !order.takesSeveral) {
        throw CUsageError("the files are of several accounts: expected one of " + Listed(wanted));
    }
    for (const std::string& name : order.accounts) {
        const auto isOf = [&](const auto& account) { return account.first.account == name; };
        if (std::ranges::none_of(wanted, isOf)) throw CNothingReadable("nothing was imported of account " + name);
    }
    if (wanted.empty()) throw CNothingReadable("nothing was imported");
    std::vector<AccountKey> keys;
    for (const auto& [account, ofAccount] : wanted) keys.push_back(account);
    CheckOneKind(keys);
    return wanted;
}

/// Removes what an earlier report left of the account.
void RemoveOthers(const std::string& folder, const AccountKey& account, const std::set<std::string>& kept) {
    ForgetSystemError();
    const auto names = NamesIn(folder);
    if (!names) throw CUnreadableInput(folder, SystemErrorText(LastSystemError()));
    for (const std::string& name : *names) {
        const auto parts = PartsOfStatementName(name);
        if (!parts || parts->account != account.account || parts->isForeign != account.isForeign) continue;
        const std::string path = std::string(folder).append("/").append(name);
        if (kept.contains(path) || RemoveFile(path)) continue;
        throw CNothingReadable("can't remove " + Utf8Path(path) + ": " + SystemErrorText(LastSystemError()));
    }
}

std::string Dashed(const std::string& day) {
    return DashedDayText(ParsePackedDay(day));
}

/// The options of a report of `files`, which are of one account; what is given stays.
ReportOptions OptionsFor(const std::vector<ImportedFile>& files, const std::string& root, ReportOptions options) {
    const ImportedFile& first =
        *std::ranges::min_element(files, {}, [](const ImportedFile& file) { return file.days.front(); });
    const ImportedFile& last =
        *std::ranges::max_element(files, {}, [](const ImportedFile& file) { return file.days.back(); });
    options.root = root;
    options.user = std::string(kUser);
    options.account = first.account;
    options.kind = std::string(KindName(first.layout.isForeign));
    if (!options.from) options.from = Dashed(first.days.front());
    if (!options.to) options.to = Dashed(last.days.back());
    return options;
}

/// The account's part of the report, once what an earlier one left of it is gone.
ImportedAccount ImportedAccountOf(const AccountKey& account, const std::vector<ImportedFile>& files,
                                  const std::string& folder, const ReportOptions& options) {
    ImportedAccount result{.options = options};
    std::set<std::string> kept;
    for (const ImportedFile& file : files) {
        kept.insert(file.to.begin(), file.to.end());
        std::ranges::copy(file.findings, std::back_inserter(result.findings));
    }
    RemoveOthers(folder, account, kept);
    return result;
}

}  // namespace

ImportedReport ImportForReport(const ImportOrder& order, CAwaitedWork& work) {
    const FoundFiles found = FindFiles(order.files);
    CheckOrder(order);
    const std::string root = FolderToWrite("--out", *order.outFolder, kLongestName) + "/root";
    CImportGuard guard(order.wait);
    const bool isOfOne = order.accounts.size() == 1;
    CBillImport import({.root = root,
                        .user = std::string(kUser),
                        .account = ImportAccountOf(isOfOne ? std::optional(order.accounts.front()) : std::nullopt),
                        .replaces = true,
                        .units = UnitTableText(),
                        .otherLayouts = LayoutsByTemplate(root),
                        .holdFolder = [&guard](const std::string& folder) { return guard.Hold(folder); }});
    const std::vector<ImportedFile> files = ImportAll(found, import, work);
    if (std::ranges::any_of(files, IsRefused)) PrintImported(files, ShownFiles::Refused, false, std::cerr);
    if (std::ranges::any_of(files, &ImportedFile::isUnwritten)) throw CNothingReadable("not all could be imported");
    ImportedReport report{.accounts = {}, .isWhole = std::ranges::none_of(files, IsRefused)};
    for (const auto& [account, ofAccount] : WantedFiles(files, order)) {
        report.accounts.push_back(
            ImportedAccountOf(account, ofAccount, import.Folder(), OptionsFor(ofAccount, root, order.options)));
    }
    const std::string leftover = guard.Release(import.Folder());
    if (!leftover.empty()) throw CNothingReadable(leftover);
    return report;
}

}  // namespace tradebill
