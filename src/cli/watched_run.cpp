#include "cli/watched_run.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/progress_line.h"
#include "cli/shown_text.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "images/missing_fonts.h"
#include "paint/font_search.h"
#include "platform/file.h"
#include "platform/terminal.h"
#include "report/report.h"
#include "requests/prepared_run.h"
#include "requests/report_options.h"
#include "requests/usage_error.h"

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

/// Beside the reading of many days; that of a few takes less than a thread does.
std::unique_ptr<CFontSearch> FindFontsMeanwhile(const GenerateBillRequest& request) {
    constexpr int kManyDays = 30;
    return CountDays(ReportDaysOf(request)) >= kManyDays ? std::make_unique<CFontSearch>() : nullptr;
}

/// Runs it with a progress line, if somebody sees it.
RunResult RunWithProgress(CReport& report, const PreparedRequest& prepared, bool quiet, RunFunction* run,
                          const RunOptions& options) {
    std::unique_ptr<CProgressLine> progress;
    if (!quiet && IsErrorOutputTerminal()) progress = std::make_unique<CProgressLine>();
    return RunPrepared(report, prepared, progress.get(), run, options);
}

}  // namespace

void Warn(const std::string& text) {
    std::cerr << "tradebill: warning: " << ShownText(text) << "\n";
}

int Fail(const std::string& text) {
    std::cerr << "tradebill: " << ShownText(text) << "\n";
    return kExitFailed;
}

int FinishPainting() {
    const std::string boxes = WhyTextsAreBoxes();
    return boxes.empty() ? kExitDone : Fail(boxes);
}

std::optional<RunResult> RunWatched(CReport& report, const PreparedRequest& prepared, bool quiet, RunFunction* run,
                                    const RunOptions& options) {
    for (const std::string& warning : prepared.warnings) Warn(warning);
    if (!quiet) {
        for (const std::string& note : prepared.notes) std::cerr << "tradebill: " << ShownText(note) << "\n";
    }
    const bool paints = run != ReadStatements;
    const auto fonts = paints ? FindFontsMeanwhile(prepared.request) : nullptr;
    RunResult result = RunWithProgress(report, prepared, quiet, run, options);
    if (paints) {
        for (const std::string& text : ProblemTexts(result.problems)) Fail(text);
    } else {
        for (const UnreadFile& file : result.problems.inputs) Fail(UnreadFileText(file));
    }
    if (result.problems.error) Fail(ErrorText(*result.problems.error));
    if (result.end == RunEnd::Failed) return std::nullopt;
    if (paints && result.end == RunEnd::Finished) WarnOfEmptyAccount(report, result);
    return result;
}

int FailWithoutStatement(const RunResult& result, const std::string& advice) {
    if (!result.problems.statements.empty()) return Fail("no statement could be read: " + advice);
    Fail("no statement was found in the whole range: " + advice);
    return kExitUsage;
}

}  // namespace tradebill
