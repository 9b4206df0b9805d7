#include "cli/watched_run.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "cli/progress_line.h"
#include "cli/report_options.h"
#include "cli/usage_error.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "driver/unit_pass.h"
#include "driver/run_problems.h"
#include "paint/font.h"
#include "paint/font_search.h"
#include "platform/screen.h"
#include "platform/terminal.h"
#include "readers/statement_loader.h"
#include "report/report.h"

namespace tradebill {
namespace {

void WarnOfEmptyAccount(const CReport& report, const RunResult& result) {
    if (result.statementsRead == 0) {
        if (!result.problems.statements.empty()) return;  // which are told
        Warn("no statement was found in the whole range");
    } else if (report.MoneyStore.Count() + report.MatchStore.Count() + report.OpiDetailStore.Count() == 0) {
        Warn("nothing was recognised in " + std::to_string(result.statementsRead) +
             " statements: is --format right? tradebill explain shows what is seen in one of them");
    }
}

/// What the run passed over, and the error that ended it.
void TellProblems(const RunProblems& problems) {
    for (const std::string& text : ProblemTexts(problems)) Fail(text);
    if (problems.error) Fail(ErrorText(*problems.error));
}

/// Beside the reading of many days; that of a few takes less than a thread does.
std::unique_ptr<CFontSearch> FindFontsMeanwhile(const GenerateBillRequest& request) {
    constexpr int kManyDays = 30;
    return CountDays(ReportDaysOf(request)) >= kManyDays ? std::make_unique<CFontSearch>() : nullptr;
}

}  // namespace

void Warn(const std::string& text) {
    std::cerr << "tradebill: warning: " << text << "\n";
}

void WarnWithoutFonts() {
    if (HasFonts()) return;
    std::cerr << "tradebill: no font is installed; texts in pictures are boxes (README.md names the packages)\n";
}

int Fail(const std::string& text) {
    std::cerr << "tradebill: " << text << "\n";
    return kExitFailed;
}

std::optional<RunResult> RunWatched(CReport& report, const PreparedRequest& prepared, bool quiet, RunFunction* run,
                                    RunOptions options) {
    options.access = StatementAccess::ReadAlone;
    report.RootFolder = prepared.rootFolder;
    report.ScreenWidth = DisplayWidth();
    report.Products = prepared.products.get();
    for (const std::string& warning : prepared.warnings) Warn(warning);
    if (!quiet) {
        for (const std::string& note : prepared.notes) std::cerr << "tradebill: " << note << "\n";
    }
    const auto fonts = FindFontsMeanwhile(prepared.request);
    std::unique_ptr<CProgressLine> progress;
    if (!quiet && IsErrorOutputTerminal()) progress = std::make_unique<CProgressLine>();
    if (prepared.products->WantsTrades()) {
        if (progress) progress->OnStage("contract units");
        prepared.products->UseTrades(TallyTrades(prepared.request, prepared.rootFolder));
    }
    RunResult result = run(report, prepared.request, progress.get(), options);
    progress.reset();
    TellProblems(result.problems);
    if (result.end == RunEnd::Failed) return std::nullopt;
    WarnWithoutFonts();
    if (result.end == RunEnd::Finished) WarnOfEmptyAccount(report, result);
    return result;
}

int FailWithoutStatement(const RunResult& result, const std::string& advice) {
    if (!result.problems.statements.empty()) return Fail("no statement could be read: " + advice);
    Fail("no statement was found in the whole range: " + advice);
    return kExitUsage;
}

}  // namespace tradebill
