#include "cli/explore_command.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/account_sum.h"
#include "analysis/analysis.h"
#include "cli/awaited_work.h"
#include "cli/command_table.h"
#include "cli/file_address.h"
#include "cli/imported_report.h"
#include "cli/output_file.h"
#include "cli/report_arguments.h"
#include "cli/several_accounts.h"
#include "cli/shown_findings.h"
#include "cli/shown_text.h"
#include "cli/trading_days.h"
#include "cli/voice.h"
#include "cli/wait_option.h"
#include "cli/watched_run.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "explore/explore_page.h"
#include "explore/viewer_template.h"
#include "export/run_json.h"
#include "export/table.h"
#include "findings/account_findings.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "platform/file.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "requests/report_options.h"
#include "requests/run_facts.h"
#include "requests/run_findings.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// The accounts of a call.
struct ChosenAccounts {
    std::vector<ImportedAccount> accounts;  ///< with what was found as they were imported
    bool isWhole = true;                    ///< no file was refused
};

ChosenAccounts ChooseImported(const ExploreCommand& command, CAwaitedWork& work) {
    ImportedReport imported = ImportForReport({.files = command.files,
                                               .options = command.options,
                                               .outFolder = command.outFolder,
                                               .accounts = command.accounts,
                                               .takesSeveral = command.takesAll || command.accounts.size() > 1,
                                               .wait = command.wait},
                                              work);
    return {.accounts = std::move(imported.accounts), .isWhole = imported.isWhole};
}

ChosenAccounts ChooseBelowRoot(const ExploreCommand& command) {
    if (command.outFolder) throw CUsageError("--out: expected none without files to import");
    ChosenAccounts chosen;
    if (command.takesAll || command.accounts.size() > 1) {
        for (ReportOptions& options : OptionsOfAccounts(command.options, command.accounts)) {
            chosen.accounts.push_back({.options = std::move(options)});
        }
        return chosen;
    }
    ReportOptions options = command.options;
    if (!command.accounts.empty()) options.account = command.accounts.front();
    chosen.accounts.push_back({.options = std::move(options)});
    return chosen;
}

ChosenAccounts ChooseAccounts(const ExploreCommand& command, CAwaitedWork& work) {
    if (command.takesAll && !command.accounts.empty()) {
        throw CUsageError("--all-accounts: expected no --account beside it");
    }
    return command.files.empty() ? ChooseBelowRoot(command) : ChooseImported(command, work);
}

/// Reads accounts one after the other and puts each on the page; none is in memory with another.
class CExploration {
public:
    /// REQUIRES: all of them outlive this.
    CExploration(const ExploreCommand& command, const std::vector<ImportedAccount>& accounts, CAwaitedWork& work)
        : command_(command), accounts_(accounts), work_(work) {
        for (const ImportedAccount& account : accounts) prepared_.push_back(Prepare(account.options));
    }

    /// Whether the whole page was written; if that is an account's fault, it is told.
    bool Write(std::ostream& out) {
        CExplorePage page(ViewerTemplate(), out);
        CAccountSum sum;
        for (std::size_t i = 0; i < prepared_.size(); ++i) {
            if (!Read(prepared_[i], accounts_[i], page, sum)) return false;
        }
        if (prepared_.size() > 1) {
            const bool isForeign = prepared_.front().request.StatementKind == kForeignKind;
            page.AddSum(sum.Finish({.tradingDays = command_.tradingDays}), isForeign);
        }
        return page.Finish();
    }

    /// The exit code of the account that kept the page from being written.
    [[nodiscard]] std::optional<int> Failure() const { return failure_; }
    /// The exit code of a page that is there.
    [[nodiscard]] int Exit() const {
        if (!isWhole_) return kExitFailed;
        return command_.strict && hasWarnings_ ? kExitFindings : kExitDone;
    }
    [[nodiscard]] int StatementsRead() const { return statementsRead_; }
    [[nodiscard]] std::size_t Accounts() const { return prepared_.size(); }

    void ShowAllFindings() const {
        for (std::size_t i = 0; i < findings_.size(); ++i) ShowFindings(findings_[i], accounts_[i].options);
    }

private:
    [[nodiscard]] PreparedRequest Prepare(const ReportOptions& options) const {
        try {
            PreparedRequest prepared = PrepareRequest(options);
            RequireTemplate(prepared);
            return prepared;
        } catch (const CUsageError& error) {
            if (accounts_.size() == 1) throw;
            throw CUsageError("--account " + options.account.value_or("") + ": " + error.what());
        }
    }

    /// False if it can't be on the page, which is told.
    bool Read(const PreparedRequest& prepared, const ImportedAccount& account, CExplorePage& page, CAccountSum& sum) {
        CReport report;
        CRunFindings faults(report, prepared);
        faults.ReadSideRows();
        CStatementLog log(*faults.Listener());
        const RunOptions options{.listener = &log, .needsStatement = !command_.force};
        const auto result = RunWatched(report, prepared, &work_, ReadStatements, options);
        if (!result) return Fails(kExitFailed);
        work_.BeginFile(command_.outputFile.value_or(""));
        for (const UnreadStatement& statement : result->problems.statements) Fail(UnreadStatementText(statement));
        if (result->end == RunEnd::NothingRead) {
            return Fails(FailWithoutStatement(*result, "nothing is written (--force writes a page all the same)"));
        }
        std::vector<Finding> findings = faults.Collect(*result);
        findings.insert(findings.end(), account.findings.begin(), account.findings.end());
        SortFindings(findings);
        const Analysis analysis = Analyse(report, {.tradingDays = command_.tradingDays});
        std::vector<UnreadFile> unread;
        const RunFacts facts = FactsOf(report, prepared, *result, log, unread);
        for (const UnreadFile& file : unread) Fail(UnreadFileText(file));
        if (!unread.empty()) return false;
        const ExportSource source{.report = report, .analysis = analysis, .findings = findings};
        page.Add({.source = source, .run = facts});
        if (prepared_.size() > 1) sum.Add(report);
        statementsRead_ += result->statementsRead;
        isWhole_ &= result->problems.IsEmpty() && faults.IsComplete() && result->statementsRead > 0;
        hasWarnings_ |= HasWarnings(findings);
        findings_.push_back(std::move(findings));
        return true;
    }

    bool Fails(int exit) {
        failure_ = exit;
        return false;
    }

    const ExploreCommand& command_;
    const std::vector<ImportedAccount>& accounts_;
    CAwaitedWork& work_;
    std::vector<PreparedRequest> prepared_;
    std::vector<std::vector<Finding>> findings_;  // account by account
    std::optional<int> failure_;
    int statementsRead_ = 0;
    bool isWhole_ = true;
    bool hasWarnings_ = false;
};

void ShowSummary(const COutputFile& output, const CExploration& read) {
    std::ostream& out = SummaryStream({output});
    out << "Read " << read.StatementsRead() << " statements";
    if (read.Accounts() > 1) out << " of " << read.Accounts() << " accounts";
    out << "\n  page              " << PageOutputText(output) << "\n";
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
    app.add_option("FILE", command->files,
                   "Statements of any name, and folders of them, to import into a root below --out; none: the page is "
                   "of those below --root")
        ->type_name("");
    DeclareReportOptions(app, command->options, &command->accounts);
    app.add_flag("--all-accounts", command->takesAll, "All accounts that are there, added up");
    app.add_option("-o,--output", command->outputFile, "Where to write the page; - for standard output")
        ->required()
        ->type_name("FILE");
    app.add_option("--out", command->outFolder, "Folder for what is imported")->type_name("DIR");
    AddTradingDaysOption(app, command->tradingDays);
    AddWaitOption(app, command->wait);
    app.add_flag("--force", command->force, "Write a page even without a single statement");
    app.add_flag("--strict", command->strict, "Exit with 3 if something is wrong or doubtful in the statements");
    app.add_flag("--quiet", command->quiet, "No progress line and no summary");
    return [command] { return RunExploreCommand(*command); };
}

int RunExploreCommand(const ExploreCommand& command) {
    CAwaitedWork work(command.quiet);
    RequireViewer(ViewerTemplate(), "explore");
    const std::optional<COutputFile> output = FindOutput("--output", command.outputFile);
    if (!output) throw CUsageError("--output is missing: expected a file");
    const ChosenAccounts chosen = ChooseAccounts(command, work);
    CExploration exploration(command, chosen.accounts, work);
    const bool isSaved = output->Save([&](std::ostream& out) { return exploration.Write(out); });
    work.Rest();
    if (!isSaved && !exploration.Failure()) Fail("can't write " + output->Name());
    if (isSaved && !command.quiet) ShowSummary(*output, exploration);
    exploration.ShowAllFindings();
    if (!isSaved) return exploration.Failure().value_or(kExitFailed);
    const int exit = exploration.Exit();
    return exit == kExitDone && !chosen.isWhole ? kExitFindings : exit;
}

}  // namespace tradebill
