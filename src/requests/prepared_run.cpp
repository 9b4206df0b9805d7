#include "requests/prepared_run.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "driver/unit_pass.h"
#include "platform/file.h"
#include "platform/screen.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "requests/report_options.h"

namespace tradebill {
namespace {

/// Adds what only the look at the trades couldn't read: what was worked out of them may be wrong.
void AddUntold(const std::vector<UnreadFile>& unread, RunProblems& problems) {
    for (const UnreadFile& file : unread) {
        const bool isTold =
            std::ranges::find(problems.statements, file.path, &UnreadStatement::path) != problems.statements.end() ||
            std::ranges::find(problems.inputs, file.path, &UnreadFile::path) != problems.inputs.end();
        if (!isTold) problems.inputs.push_back(file);
    }
}

RunResult Stopped() {
    RunResult result;
    result.end = RunEnd::Stopped;
    return result;
}

}  // namespace

RunResult RunPrepared(CReport& report, const PreparedRequest& prepared, CRunWatcher* watcher, RunFunction* run,
                      RunOptions options) {
    options.access = StatementAccess::ReadAlone;
    options.statementLimit = prepared.statementLimit;
    options.present = prepared.present;
    options.carriedTemplate = prepared.carriedTemplate;
    report.RootFolder = prepared.rootFolder;
    report.ScreenWidth = DisplayWidth();
    report.Products = prepared.products.get();
    TradeTally tally;
    if (prepared.products->WantsTrades()) {
        if (watcher != nullptr) {
            watcher->OnStage("contract units");
            if (watcher->WantsStop()) return Stopped();
        }
        tally = TallyTrades(prepared.request, prepared.rootFolder, options);
        prepared.products->UseTrades(std::move(tally.units));
    }
    RunResult result = run(report, prepared.request, watcher, options);
    AddUntold(tally.unread, result.problems);
    return result;
}

}  // namespace tradebill
