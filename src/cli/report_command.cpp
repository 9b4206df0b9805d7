#include "cli/report_command.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "analysis/analysis.h"
#include "base/number.h"
#include "cli/awaited_work.h"
#include "cli/command_table.h"
#include "cli/explore_command.h"
#include "cli/file_address.h"
#include "cli/imported_report.h"
#include "cli/output_file.h"
#include "cli/page_relay.h"
#include "cli/report_arguments.h"
#include "cli/shown_findings.h"
#include "cli/shown_text.h"
#include "cli/trading_days.h"
#include "cli/voice.h"
#include "cli/wait_option.h"
#include "cli/watched_run.h"
#include "driver/bill_folders.h"
#include "driver/report_counts.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "explore/explore_page.h"
#include "explore/viewer_template.h"
#include "export/json_writer.h"
#include "export/run_json.h"
#include "export/table.h"
#include "findings/account_findings.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "page/standalone_page.h"
#include "platform/desktop.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "report/money_store.h"
#include "report/report.h"
#include "requests/out_folder.h"
#include "requests/report_options.h"
#include "requests/run_facts.h"
#include "requests/run_findings.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

std::string CurrencyText(const CReport& report) {
    const std::size_t currencies = report.CurrencyMoneyStore.Names.size();
    return currencies == 0 ? std::string() : ", " + std::to_string(currencies) + " currencies";
}

std::string DaysText(int days) {
    return std::to_string(days) + (days == 1 ? " day" : " days");
}

std::string DaysWithoutText(const RunResult& result) {
    const int unread = static_cast<int>(result.problems.statements.size());
    return DaysText(result.days - result.statementsRead - unread) + " without a file" +
           (unread == 0 ? "" : ", " + std::to_string(unread) + " unreadable");
}

/// Where a report goes beside its page.
struct ReportOutputs {
    std::optional<COutputFile> json;
    std::optional<COutputFile> standalone;
    std::optional<COutputFile> explore;
    bool isPageOfBefore = false;  ///< standard output, to which one of them goes, is the file that the page replaces
};

void ShowSummary(const CReport& report, const RunResult& result, const ReportOutputs& outputs) {
    std::ostream& out = SummaryStream({outputs.json, outputs.standalone, outputs.explore});
    const CMoneyStore& money = report.MoneyStore;
    out << "Report from " << money.StartDateText << " to " << money.EndDateText << "\n"
        << "  statements read   " << result.statementsRead << " (" << DaysWithoutText(result) << ")\n"
        << "  records           " << money.Count() << " money, " << report.MatchStore.Count() << " trades, "
        << CountClosedRows(report) << " closed, " << report.OpiDetailStore.Count() << " positions, "
        << report.OpiSumStore.Count() << " position sums" << CurrencyText(report) << "\n"
        << "  closing equity    " << CNumberText(money.ClosingEquity).View() << "\n"
        << "  page              " << FileAddressOf(result.pagePath) << "\n"
        << "  its pictures      " << result.picturesSaved << " in "
        << ShownText(NativePath(FolderOf(result.pagePath) + "/" + report.ReportDocument.ImageFolderName)) << "\n";
    if (outputs.standalone) out << "  standalone        " << PageOutputText(*outputs.standalone) << "\n";
    if (outputs.explore) out << "  explore           " << PageOutputText(*outputs.explore) << "\n";
    if (outputs.json) out << "  JSON              " << ShownText(NativePath(outputs.json->Name())) << "\n";
}

/// Seen before the run: behind it no path leads to the file of before any more.
bool IsPageOfBefore(const std::optional<COutputFile>& output, const std::string& page) {
    return output && output->IsStandardOutput() && output->LeadsTo(page);
}

/// Never in the place of the page.
bool IsOnPage(const COutputFile& output, const ReportOutputs& outputs, const std::string& page) {
    return output.LeadsTo(page) || (output.IsStandardOutput() && outputs.isPageOfBefore);
}

/// A report, and its page as one file too.
struct MadeReport {
    std::optional<RunResult> result;  ///< nothing if the run failed, which is told
    bool isFileSaved = false;
    std::string whyNotSaved = {};  ///< in words; empty if nobody knows
};

MadeReport MakeReportAndFile(CReport& report, const PreparedRequest& prepared, CAwaitedWork& work, RunOptions options,
                             const ReportOutputs& outputs) {
    MadeReport made;
    const COutputFile& output = *outputs.standalone;
    made.isFileSaved = output.Save([&](std::ostream& file) {
        CStandalonePage page(file);
        CPageRelay relay(page);
        options.copy = &relay;
        made.result = RunWatched(report, prepared, &work, RunReport, options);
        relay.Finish();
        page.Finish();
        if (const auto& lost = page.LostPicture()) made.whyNotSaved = UnreadFileText(*lost);
        if (!made.whyNotSaved.empty()) return false;
        return made.result && made.result->end == RunEnd::Finished && !IsOnPage(output, outputs, made.result->pagePath);
    });
    return made;
}

/// A run that is over, and all that its JSON tells of it.
struct FinishedRun {
    const CReport& report;
    const PreparedRequest& prepared;
    const MadeReport& made;
    const CStatementLog& log;
    std::span<const Finding> findings;
    std::int64_t tradingDays;
    CAwaitedWork& work;
};

/// Whether it is there; if it isn't, that is told.
bool SaveData(const COutputFile& output, const ReportOutputs& outputs, const FinishedRun& run,
              const std::function<bool(std::ostream&)>& write) {
    run.work.BeginFile(output.Name());
    if (!IsOnPage(output, outputs, run.made.result->pagePath) && output.Save(write)) return true;
    Fail("can't write " + output.Name());
    return false;
}

/// JSON and second page, both of one analysis.
bool SaveAllData(const ReportOutputs& outputs, const FinishedRun& run, const RunFacts& facts) {
    const Analysis analysis = Analyse(run.report, {.tradingDays = run.tradingDays});
    const auto writeJson = [&](std::ostream& out) {
        WriteJson(run.report, {.run = facts, .analysis = analysis, .findings = run.findings}, out);
        return true;
    };
    const ExportSource source{.report = run.report, .analysis = analysis, .findings = run.findings};
    const auto writePage = [&](std::ostream& out) {
        return WriteExplorePage(ViewerTemplate(), {.source = source, .run = facts}, out);
    };
    const bool isJsonSaved = !outputs.json || SaveData(*outputs.json, outputs, run, writeJson);
    const bool isPageSaved = !outputs.explore || SaveData(*outputs.explore, outputs, run, writePage);
    return isJsonSaved && isPageSaved;
}

/// Whether they are there; what isn't is told.
bool FinishData(const ReportOutputs& outputs, const FinishedRun& run) {
    std::vector<UnreadFile> unread;
    const RunFacts facts = FactsOf(run.report, run.prepared, *run.made.result, run.log, unread);
    if (unread.empty()) return SaveAllData(outputs, run, facts);
    for (const UnreadFile& file : unread) Fail(UnreadFileText(file));
    for (const auto* const output : {&outputs.json, &outputs.explore}) {
        if (*output) Fail("can't write " + (*output)->Name());
    }
    return false;
}

/// Whether all that was asked for is there; what isn't is told.
bool FinishOutputs(const ReportOutputs& outputs, const FinishedRun& run) {
    const MadeReport& made = run.made;
    if ((outputs.json || outputs.explore) && !FinishData(outputs, run)) return false;
    if (!made.result->pageWritten) return false;
    if (made.isFileSaved) return true;
    Fail("can't write " + outputs.standalone->Name() + (made.whyNotSaved.empty() ? "" : ": " + made.whyNotSaved));
    return false;
}

/// False for what is told by this.
bool OpenPage(const ReportOutputs& outputs, const RunResult& result) {
    const bool showsFile = outputs.standalone && outputs.standalone->IsFile();
    if (OpenOnDesktop(showsFile ? outputs.standalone->Name() : result.pagePath)) return true;
    Fail("--open: this desktop has no xdg-open to show the page with");
    return false;
}

}  // namespace

CommandRun DeclareReport(CLI::App& app) {
    const auto command = std::make_shared<ReportCommand>();
    app.add_option(
           "FILE", command->files,
           "Statements of any name, and folders of them, to import into a root below --out; none: the report is "
           "of those below --root")
        ->type_name("");
    DeclareReportOptions(app, command->options);
    app.add_option("--json", command->jsonFile,
                   "Write everything that was read and worked out as JSON; - for standard output")
        ->type_name("FILE");
    app.add_option("--standalone", command->standaloneFile,
                   "Write the page and its pictures as one file too; - for standard output")
        ->type_name("FILE");
    app.add_option("--explore", command->exploreFile,
                   "Write a page on which a browser shows and sorts everything too; - for standard output")
        ->type_name("FILE");
    app.add_option("--out", command->outFolder, "Folder for page and pictures (default: beside the statements)")
        ->type_name("DIR");
    AddTradingDaysOption(app, command->tradingDays);
    AddWaitOption(app, command->wait);
    app.add_flag("--force", command->force, "Write a page even without a single statement");
    app.add_flag("--open", command->opensPage, "Show the page on the desktop");
    app.add_flag("--strict", command->strict, "Exit with 3 if something is wrong or doubtful in the statements");
    app.add_flag("--quiet", command->quiet, "No progress line and no summary");
    return [command] { return RunReportCommand(*command); };
}

namespace {

/// A report of what is below the root already. `imported`: what was found as it came there.
int RunReportOfRoot(const ReportCommand& command, std::span<const Finding> imported, CAwaitedWork& work) {
    if (command.exploreFile) RequireViewer(ViewerTemplate(), "--explore");
    ReportOutputs outputs{.json = FindOutput("--json", command.jsonFile),
                          .standalone = FindOutput("--standalone", command.standaloneFile),
                          .explore = FindOutput("--explore", command.exploreFile)};
    CheckOutputs({outputs.json, outputs.standalone, outputs.explore});
    RunOptions options{
        .outFolder = OutFolderOf(command.outFolder), .needsStatement = !command.force, .wait = command.wait};
    const PreparedRequest prepared = PrepareRequest(command.options);
    RequireTemplate(prepared);
    const std::string page = FuturePagePath(prepared.rootFolder, prepared.request, options.outFolder);
    outputs.isPageOfBefore = IsPageOfBefore(outputs.json, page) || IsPageOfBefore(outputs.standalone, page) ||
                             IsPageOfBefore(outputs.explore, page);
    CReport report;
    CRunFindings faults(report, prepared);
    const bool hasData = outputs.json || outputs.explore;
    if (hasData || command.strict) faults.ReadSideRows();
    CStatementLog log(*faults.Listener());
    options.listener = hasData ? &log : faults.Listener();
    const MadeReport made =
        outputs.standalone
            ? MakeReportAndFile(report, prepared, work, options, outputs)
            : MadeReport{.result = RunWatched(report, prepared, &work, RunReport, options), .isFileSaved = true};
    if (!made.result) return kExitFailed;
    if (made.result->end == RunEnd::NothingRead) {
        return FailWithoutStatement(*made.result, "nothing is written (--force writes a page all the same)");
    }
    if (made.result->end == RunEnd::PlaceTaken) return Fail("--wait SECONDS waits longer for the other run");
    std::vector<Finding> findings = faults.Collect(*made.result);
    findings.insert(findings.end(), imported.begin(), imported.end());
    SortFindings(findings);
    bool isDone = FinishOutputs(outputs, {report, prepared, made, log, findings, command.tradingDays, work});
    work.Rest();
    if (isDone && !command.quiet) ShowSummary(report, *made.result, outputs);
    ShowFindings(findings, command.options);
    if (isDone && command.opensPage) isDone = OpenPage(outputs, *made.result);
    const bool isWhole = made.result->problems.IsEmpty() && faults.IsComplete();
    if (!isDone || !isWhole || made.result->statementsRead == 0) return kExitFailed;
    return command.strict && HasWarnings(findings) ? kExitFindings : kExitDone;
}

}  // namespace

int RunReportCommand(const ReportCommand& command) {
    CAwaitedWork work(command.quiet);
    if (command.files.empty()) return RunReportOfRoot(command, {}, work);
    ImportOrder order{
        .files = command.files, .options = command.options, .outFolder = command.outFolder, .wait = command.wait};
    if (command.options.account) order.accounts = {*command.options.account};
    const ImportedReport imported = ImportForReport(order, work);
    ReportCommand ofRoot = command;
    ofRoot.options = imported.accounts.front().options;
    const int exit = RunReportOfRoot(ofRoot, imported.accounts.front().findings, work);
    return exit == kExitDone && !imported.isWhole ? kExitFindings : exit;
}

}  // namespace tradebill
