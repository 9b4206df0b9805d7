#include "cli/import_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/awaited_work.h"
#include "cli/command_table.h"
#include "cli/findings_text.h"
#include "cli/import_files.h"
#include "cli/import_findings.h"
#include "cli/import_summary.h"
#include "cli/output_file.h"
#include "cli/report_arguments.h"
#include "cli/voice.h"
#include "cli/wait_option.h"
#include "driver/place_guard.h"
#include "driver/report_request.h"
#include "driver/request_names.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "intake/bill_import.h"
#include "intake/file_plan.h"
#include "intake/import_order.h"
#include "intake/workbook.h"
#include "platform/paths.h"
#include "platform/root_folder.h"
#include "requests/layout_readings.h"
#include "requests/report_options.h"
#include "requests/unit_table.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostPerCode = 20;

std::string UserOf(const std::string& user) {
    const std::string_view why = user.empty() ? "is empty" : WhyNoName(Utf8Path(user));
    if (!why.empty()) {
        throw CUsageError("--user: expected the name of one folder, found \"" + user + "\", which " + std::string(why));
    }
    constexpr std::size_t kMost = sizeof GenerateBillRequest::UserFolder - 1;
    if (user.size() > kMost) {
        throw CUsageError("--user: expected at most " + std::to_string(kMost) + " bytes, found " +
                          std::to_string(user.size()));
    }
    return user;
}

const std::string& Required(const std::optional<std::string>& value, const char* option, const char* expected) {
    if (value) return *value;
    throw CUsageError(std::string(option) + " is missing: expected " + expected);
}

/// The root, which needn't be there yet.
std::string RootOf(const std::string& given, const std::string& user) {
    constexpr std::string_view kLongestName = "/Data/Bill/DWP0123456789012345.20240102o.txt.part";
    if (given.empty()) throw CUsageError("--root: expected a folder, found \"\"");
    if ((given + "/Users/" + user).size() + kLongestName.size() > kLongestPath) {
        throw CUsageError("--root: expected paths of at most " + std::to_string(kLongestPath) +
                          " bytes, but the statements' are longer");
    }
    std::string root = RootFolderAt(given);
    if (!IsFolder(root) && (IsPlainFile(root) || IsOtherThanFile(root))) {
        throw CUsageError("--root: expected a folder, found a file at \"" + given + "\"");
    }
    return root;
}

ImportSettings SettingsOf(const ImportCommand& command, CImportGuard& guard) {
    ImportSettings settings;
    const ReportOptions* const configured = command.configured.get();
    const bool isConfiguredRoot = !command.root && configured != nullptr;
    const std::string root = Required(isConfiguredRoot ? configured->root : command.root, "--root", "a folder");
    const bool isConfiguredUser = !command.user && isConfiguredRoot;  // a user belongs to a root
    settings.user = UserOf(Required(isConfiguredUser ? configured->user : command.user, "--user", "a name"));
    settings.root = RootOf(root, settings.user);
    settings.account = ImportAccountOf(command.account);
    settings.isDryRun = command.isDryRun;
    settings.replaces = command.force;
    settings.units = UnitTableText();
    settings.otherLayouts = LayoutsByTemplate(settings.root);
    settings.holdFolder = [&guard](const std::string& folder) { return guard.Hold(folder); };
    return settings;
}

void PrintSummary(const ImportCommand& command, const std::vector<ImportedFile>& files,
                  const std::vector<Finding>& findings, std::ostream& out) {
    const auto isRefused = [](const ImportedFile& file) { return file.outcome == ImportOutcome::Refused; };
    const bool showsFiles = !command.quiet || std::ranges::any_of(files, isRefused);
    const bool showsFindings = command.quiet ? HasWarnings(findings) : !std::ranges::all_of(files, isRefused);
    if (showsFiles) PrintImported(files, command.quiet ? ShownFiles::Refused : ShownFiles::All, command.isDryRun, out);
    if (command.isDryRun || !showsFindings) return;
    if (showsFiles) out << "\n";
    PrintFindings(findings, kMostPerCode, out);
}

int ExitFor(const std::vector<ImportedFile>& files, bool isComplete) {
    if (!isComplete || std::ranges::any_of(files, &ImportedFile::isUnwritten)) return kExitFailed;
    if (std::ranges::any_of(files, &ImportedFile::isUnreadable)) return kExitUsage;
    const bool isRefused = std::ranges::find(files, ImportOutcome::Refused, &ImportedFile::outcome) != files.end();
    return isRefused ? kExitFindings : kExitDone;
}

}  // namespace

std::optional<std::string> ImportAccountOf(const std::optional<std::string>& given) {
    if (given && (!IsAccountName(*given) || !WhyNoName(*given).empty())) {
        throw CUsageError("--account: expected at most 16 letters, digits, - and _, found \"" + *given + "\"");
    }
    return given;
}

std::string CImportGuard::Hold(const std::string& folder) {
    guard_.emplace(folder, wait_);
    if (guard_->IsHeld()) return {};
    const std::string why =
        guard_->Holder().empty() ? guard_->Reason() : guard_->Holder() + " is using it (--wait SECONDS waits longer)";
    guard_.reset();
    wait_ = 0;  // for the next file, which is asked for as well
    return "can't write " + Utf8Path(folder) + (why.empty() ? "" : ": " + why);
}

std::string CImportGuard::Release(const std::string& folder) {
    if (!guard_) guard_.emplace(folder, 0);
    const std::string path = guard_->Path();
    const bool isReleased = !guard_->IsHeld() || guard_->Release();
    guard_.reset();
    return isReleased ? std::string() : "can't remove " + Utf8Path(path) + ", which the next import does";
}

LayoutFinder LayoutsByTemplate(const std::string& root) {
    return [root](std::string_view text, const std::string& day) -> std::optional<TextLayout> {
        auto reading = ReadByFittingTemplate(root, text, day);
        if (!reading) return std::nullopt;
        return TextLayout{.name = std::move(reading->name), .format = reading->format};
    };
}

std::vector<ImportedFile> ImportAll(const FoundFiles& found, CBillImport& import, CAwaitedWork& work) {
    std::vector<ImportedFile> files(found.files.size());
    std::size_t begun = 0;
    for (const ImportStep& step : ImportOrder(found.files, import.Account())) {
        work.BeginStep("files", ++begun, files.size());
        const std::string& path = found.files[step.file];
        files[step.file] =
            step.refusal.empty()
                ? import.Import(path)
                : ImportedFile{
                      .file = path, .encoding = step.form, .text = step.refusal, .isUnreadable = !CanReadWorkbooks()};
    }
    for (const UnreadFolder& folder : found.unread) {
        files.push_back({.file = folder.path,
                         .text = "it can't be looked into" + (folder.reason.empty() ? "" : ": " + folder.reason)});
    }
    work.Rest();
    return files;
}

CommandRun DeclareImport(CLI::App& app) {
    const auto command = std::make_shared<ImportCommand>();
    app.add_option(
           "FILE", command->paths,
           "Statements of any name: texts of one day or of several, in GBK, UTF-8 or UTF-16, and daily workbooks "
           "of the monitoring centre, .xls or .xlsx; of a folder all in it but hidden ones")
        ->required()
        ->type_name("");
    app.add_option("--root", command->root, "Root folder, which is made if it is missing: gets Users/NAME/Data/Bill")
        ->type_name("DIR");
    app.add_option("--user", command->user, "Folder of the user below Users")->type_name("NAME");
    app.add_option("--account", command->account, "Account number of texts that state none")->type_name("NO");
    app.add_flag("--dry-run", command->isDryRun, "Tell what would become of each file, and write nothing");
    app.add_flag("--force", command->force, "Replace days that are there already with other content");
    app.add_option("--json", command->jsonFile, "Write files and findings as JSON; - for standard output")
        ->type_name("FILE");
    AddWaitOption(app, command->wait);
    DeclareConfiguration(app, command->configured);
    app.add_flag("--quiet", command->quiet, "No progress line, and no word if nothing is wrong");
    return [command] { return RunImportCommand(*command); };
}

int RunImportCommand(const ImportCommand& command) {
    const auto json = FindOutput("--json", command.jsonFile);
    CAwaitedWork work(command.quiet);
    CImportGuard guard(command.wait);
    const ImportSettings settings = SettingsOf(command, guard);
    const FoundFiles found = FindFiles(command.paths);
    if (found.files.empty() && found.unread.empty()) return Fail("there is no file to import");
    CBillImport import(settings);
    const std::vector<ImportedFile> files = ImportAll(found, import, work);
    const std::string leftover = command.isDryRun ? std::string() : guard.Release(import.Folder());
    if (!leftover.empty()) Fail(leftover);
    const ImportFindings result =
        command.isDryRun ? ImportFindings() : FindingsOfImport(files, settings.root, settings.user, work);
    const auto writeJson = [&](std::ostream& out) {
        WriteImportJson(files, result.findings, out);
        return true;
    };
    if (json && !json->Save(writeJson)) return Fail("can't write " + json->Name());
    PrintSummary(command, files, result.findings, SummaryStream({json}));
    return ExitFor(files, result.isComplete && leftover.empty());
}

}  // namespace tradebill
