#include "cli/imported_report.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day.h"
#include "cli/format_choice.h"
#include "cli/import_command.h"
#include "cli/import_files.h"
#include "cli/import_summary.h"
#include "cli/input_file.h"
#include "cli/out_folder.h"
#include "cli/report_command.h"
#include "cli/report_options.h"
#include "cli/unit_table.h"
#include "cli/usage_error.h"
#include "findings/finding.h"
#include "intake/bill_import.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/account_key.h"
#include "report/request_copy.h"
#include "report/statement_name.h"

namespace tradebill {
namespace {

constexpr std::string_view kUser = "imported";
constexpr std::string_view kLongestName = "/root/Users/imported/Data/Bill/DWP0123456789012345.20240102o.txt.part";

void CheckCommand(const ReportCommand& command) {
    const ReportOptions& options = command.options;
    if (!command.outFolder) {
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

/// Those of the files that the report is of: of the account that the options name, or of the only one.
std::vector<ImportedFile> FilesOfOneAccount(const std::vector<ImportedFile>& files, const ReportOptions& options) {
    std::vector<ImportedFile> chosen;
    std::set<AccountKey> accounts;
    for (const ImportedFile& file : files) {
        if (IsRefused(file) || (options.account && *options.account != file.account)) continue;
        if (options.kind && (KindNumber(options.kind) == kForeignKind) != file.layout.isForeign) continue;
        chosen.push_back(file);
        accounts.insert(AccountOf(file));
    }
    if (accounts.size() < 2) return chosen;
    std::string list;
    for (const AccountKey& account : accounts) {
        list.append(list.empty() ? "" : ", ")
            .append("--account ")
            .append(account.account)
            .append(" --kind ")
            .append(KindName(account.isForeign));
    }
    throw CUsageError("the files are of several accounts: expected one of " + list);
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

}  // namespace

ImportedReport ImportForReport(const ReportCommand& command) {
    const FoundFiles found = FindFiles(command.files);
    CheckCommand(command);
    const std::string root = FolderToWrite("--out", *command.outFolder, kLongestName) + "/root";
    CImportGuard guard(command.wait);
    CBillImport import({.root = root,
                        .user = std::string(kUser),
                        .account = ImportAccountOf(command.options.account),
                        .replaces = true,
                        .units = UnitTableText(),
                        .otherLayouts = LayoutsByTemplate(root),
                        .holdFolder = [&guard](const std::string& folder) { return guard.Hold(folder); }});
    const std::vector<ImportedFile> files = ImportAll(found, import);
    if (std::ranges::any_of(files, IsRefused)) PrintImported(files, ShownFiles::Refused, false, std::cerr);
    if (std::ranges::any_of(files, &ImportedFile::isUnwritten)) throw CNothingReadable("not all could be imported");
    const std::vector<ImportedFile> chosen = FilesOfOneAccount(files, command.options);
    if (chosen.empty()) {
        throw CNothingReadable("nothing was imported" +
                               (command.options.account ? " of account " + *command.options.account : std::string()));
    }
    std::set<std::string> kept;
    std::vector<Finding> findings;
    for (const ImportedFile& file : chosen) {
        kept.insert(file.to.begin(), file.to.end());
        std::ranges::copy(file.findings, std::back_inserter(findings));
    }
    RemoveOthers(import.Folder(), AccountOf(chosen.front()), kept);
    const std::string leftover = guard.Release(import.Folder());
    if (!leftover.empty()) throw CNothingReadable(leftover);
    ImportedReport result{
        .command = command, .findings = std::move(findings), .isWhole = std::ranges::none_of(files, IsRefused)};
    result.command.files.clear();
    result.command.options = OptionsFor(chosen, root, command.options);
    return result;
}

}  // namespace tradebill
