#include "cli/export_command.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "analysis/analysis.h"
#include "cli/awaited_work.h"
#include "cli/command_table.h"
#include "cli/export_places.h"
#include "cli/report_arguments.h"
#include "cli/shown_findings.h"
#include "cli/shown_text.h"
#include "cli/trading_days.h"
#include "cli/voice.h"
#include "cli/wait_option.h"
#include "cli/watched_run.h"
#include "driver/place_guard.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "export/csv_set.h"
#include "export/sqlite_export.h"
#include "export/table.h"
#include "export/table_list.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/account_key.h"
#include "report/report.h"
#include "requests/report_options.h"
#include "requests/run_findings.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// False for what is told by this.
bool FailToWrite(const std::string& path, const std::string& reason) {
    Fail("can't write " + NativePath(path) + (reason.empty() ? "" : ": " + reason));
    return false;
}

bool FailToWait(const std::string& path, const std::string& holder) {
    return FailToWrite(path, holder + " is using it (--wait SECONDS waits longer)");
}

void FailToRemove(const std::string& path) {
    Fail("can't remove " + NativePath(path) + ", which the next run does");
}

bool SaveCsv(const std::string& folder, const ExportSource& source, int wait) {
    if (!MakeFolder(folder)) return FailToWrite(folder, SystemErrorText(LastSystemError()));
    CPlaceGuard guard(folder, wait);
    if (!guard.IsHeld()) {
        return guard.Holder().empty() ? FailToWrite(folder, guard.Reason()) : FailToWait(folder, guard.Holder());
    }
    const CsvProblems problems = SaveCsvSet(folder, source);
    if (problems.unwritten) FailToWrite(problems.unwritten->path, problems.unwritten->reason);
    if (problems.leftover) FailToRemove(problems.leftover->path);
    const bool isReleased = guard.Release();
    if (!isReleased) FailToRemove(guard.Path());
    return problems.IsEmpty() && isReleased;
}

bool SaveSqlite(const DatabasePlace& place, const AccountKey& account, const ExportSource& source, int wait) {
    const DatabaseResult result = SaveToDatabase(place.path, account, source, wait);
    if (result.end == DatabaseEnd::Done) return true;
    return result.end == DatabaseEnd::Taken ? FailToWait(place.given, "another program")
                                            : FailToWrite(place.given, result.reason);
}

/// Whether all is there that was asked for; what isn't is told.
bool SaveTables(const ExportPlaces& places, const AccountKey& account, const ExportSource& source, int wait) {
    const bool isCsvSaved = !places.csvFolder || SaveCsv(*places.csvFolder, source, wait);
    const bool isSqliteSaved = !places.database || SaveSqlite(*places.database, account, source, wait);
    return isCsvSaved && isSqliteSaved;
}

/// Counts the rows that go by.
class CRowCount final : public CRowSink {
public:
    void OnRow(std::span<const ExportCell>) override { ++rows; }

    std::size_t rows = 0;
};

void ShowSummary(const ExportPlaces& places, const ExportSource& source) {
    for (const ExportTable& table : Tables()) {
        CRowCount count;
        table.walk(source, count);
        std::cout << "  " << table.name << std::string(18 - table.name.size(), ' ') << count.rows << " rows\n";
    }
    if (places.csvFolder) std::cout << "  in " << ShownText(NativePath(*places.csvFolder)) << "\n";
    if (places.database) std::cout << "  in " << ShownText(NativePath(places.database->given)) << "\n";
}

}  // namespace

CommandRun DeclareExport(CLI::App& app) {
    const auto command = std::make_shared<ExportCommand>();
    DeclareReportOptions(app, command->options);
    app.add_option("--csv", command->csvFolder, "Folder for one CSV file a table; made if missing")->type_name("DIR");
    CLI::Option* const sqlite = app.add_option("--sqlite", command->sqliteFile,
                                               "SQLite database for all tables: this account's rows are replaced");
    sqlite->type_name("FILE");
    if (!HasSqlite()) sqlite->group("");  // not in the help
    AddTradingDaysOption(app, command->tradingDays);
    AddWaitOption(app, command->wait);
    app.add_flag("--force", command->force, "Write the tables even without a single statement");
    app.add_flag("--strict", command->strict, "Exit with 3 if something is wrong or doubtful in the statements");
    app.add_flag("--quiet", command->quiet, "No progress line and no summary");
    return [command] { return RunExportCommand(*command); };
}

int RunExportCommand(const ExportCommand& command) {
    CAwaitedWork work(command.quiet);
    const ExportPlaces places = FindExportPlaces(command.csvFolder, command.sqliteFile);
    const PreparedRequest prepared = PrepareRequest(command.options);
    RequireTemplate(prepared);
    CReport report;
    CRunFindings faults(report, prepared);
    faults.ReadSideRows();
    const RunOptions options{.listener = faults.Listener(), .needsStatement = !command.force};
    const auto result = RunWatched(report, prepared, &work, ReadStatements, options);
    if (!result) return kExitFailed;
    for (const UnreadStatement& statement : result->problems.statements) Fail(UnreadStatementText(statement));
    if (result->end == RunEnd::NothingRead) {
        return FailWithoutStatement(*result, "nothing is written (--force writes tables all the same)");
    }
    const std::vector<Finding> findings = faults.Collect(*result);
    const Analysis analysis = Analyse(report, {.tradingDays = command.tradingDays});
    const ExportSource source{.report = report, .analysis = analysis, .findings = findings};
    work.BeginFile("tables");
    const bool isDone = SaveTables(places, AccountOf(prepared.request), source, command.wait);
    work.Rest();
    if (isDone && !command.quiet) ShowSummary(places, source);
    ShowFindings(findings, command.options);
    const bool isWhole = result->problems.IsEmpty() && faults.IsComplete();
    if (!isDone || !isWhole || result->statementsRead == 0) return kExitFailed;
    return command.strict && HasWarnings(findings) ? kExitFindings : kExitDone;
}

}  // namespace tradebill
