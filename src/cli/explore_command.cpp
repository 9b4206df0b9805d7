#include "cli/explore_command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/analysis.h"
#include "cli/command_table.h"
#include "cli/file_address.h"
#include "cli/output_file.h"
#include "cli/report_options.h"
#include "cli/run_facts.h"
#include "cli/run_findings.h"
#include "cli/shown_text.h"
#include "cli/trading_days.h"
#include "cli/usage_error.h"
#include "cli/watched_run.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "explore/explore_page.h"
#include "explore/viewer_template.h"
#include "export/run_json.h"
#include "export/table.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "platform/file.h"
#include "report/report.h"

namespace tradebill {
namespace {

/// Whether the page is there; if it isn't, that is told.
bool SavePage(const COutputFile& output, const ExploredAccount& account, const std::vector<UnreadFile>& unread) {
    for (const UnreadFile& file : unread) Fail(UnreadFileText(file));
    const auto write = [&](std::ostream& out) { return WriteExplorePage(ViewerTemplate(), account, out); };
    if (unread.empty() && output.Save(write)) return true;
    Fail("can't write " + output.Name());
    return false;
}

}  // namespace

void RequireViewer(std::string_view viewer, const std::string& asked) {
    if (viewer.empty()) throw CUsageError(asked + ": this program was built without the viewer");
}

std::string PageOutputText(const COutputFile& output) {
    return output.IsFile() ? FileAddressOf(output.Name()) : ShownText(output.Name());
}

CommandRun DeclareExplore(CLI::App& app) {
    const auto command = std::make_shared<ExploreCommand>();
    DeclareReportOptions(app, command->options);
    app.add_option("-o,--output", command->outputFile, "Where to write the page; - for standard output")
        ->required()
        ->type_name("FILE");
    AddTradingDaysOption(app, command->tradingDays);
    app.add_flag("--force", command->force, "Write a page even without a single statement");
    app.add_flag("--strict", command->strict, "Exit with 3 if something is wrong or doubtful in the statements");
    app.add_flag("--quiet", command->quiet, "No progress line and no summary");
    return [command] { return RunExploreCommand(*command); };
}

int RunExploreCommand(const ExploreCommand& command) {
    RequireViewer(ViewerTemplate(), "explore");
    const std::optional<COutputFile> output = FindOutput("--output", command.outputFile);
    if (!output) throw CUsageError("--output is missing: expected a file");
    const PreparedRequest prepared = PrepareRequest(command.options);
    RequireTemplate(prepared);
    CReport report;
    CRunFindings faults(report, prepared);
    faults.ReadSideRows();
    CStatementLog log(*faults.Listener());
    const RunOptions options{.listener = &log, .needsStatement = !command.force};
    const auto result = RunWatched(report, prepared, command.quiet, ReadStatements, options);
    if (!result) return kExitFailed;
    for (const UnreadStatement& statement : result->problems.statements) Fail(UnreadStatementText(statement));
    if (result->end == RunEnd::NothingRead) {
        return FailWithoutStatement(*result, "nothing is written (--force writes a page all the same)");
    }
    const std::vector<Finding> findings = faults.Collect(*result);
    const Analysis analysis = Analyse(report, {.tradingDays = command.tradingDays});
    std::vector<UnreadFile> unread;
    const RunFacts facts = FactsOf(report, prepared, *result, log, unread);
    const ExportSource source{.report = report, .analysis = analysis, .findings = findings};
    const bool isDone = SavePage(*output, {.source = source, .run = facts}, unread);
    if (isDone && !command.quiet) {
        SummaryStream({output}) << "Read " << result->statementsRead << " statements\n"
                                << "  page              " << PageOutputText(*output) << "\n";
    }
    ShowFindings(findings, command.options);
    const bool isWhole = result->problems.IsEmpty() && faults.IsComplete();
    if (!isDone || !isWhole || result->statementsRead == 0) return kExitFailed;
    return command.strict && HasWarnings(findings) ? kExitFindings : kExitDone;
}

}  // namespace tradebill
