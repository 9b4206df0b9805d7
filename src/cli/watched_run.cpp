#include "cli/watched_run.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/awaited_work.h"
#include "cli/voice.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "images/missing_fonts.h"
#include "paint/font_search.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "report/report.h"
#include "requests/prepared_run.h"
#include "requests/report_options.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// Warns of a run, by its account where there is somebody who may have asked for several.
class CRunWarnings {
public:
    CRunWarnings(const PreparedRequest& prepared, const CAwaitedWork* work)
        : whose_(work == nullptr ? "" : "account " + Utf8Path(prepared.request.Account) + ": ") {}

    void Warn(const std::string& text) const { tradebill::Warn(whose_ + text); }

    void WarnOfEmptyAccount(const CReport& report, const RunResult& result) const {
        if (result.statementsRead == 0) {
            if (!result.problems.statements.empty()) return;  // which are told
            Warn("no statement was found in the whole range");
        } else if (report.MoneyStore.Count() + report.MatchStore.Count() + report.OpiDetailStore.Count() == 0) {
            Warn("nothing was recognised in " + std::to_string(result.statementsRead) +
                 " statements: is --format right? tradebill explain shows what is seen in one of them");
        }
    }

private:
    std::string whose_;
};

/// Beside the reading of many days; that of a few takes less than a thread does.
std::unique_ptr<CFontSearch> FindFontsMeanwhile(const GenerateBillRequest& request) {
    constexpr int kManyDays = 30;
    return CountDays(ReportDaysOf(request)) >= kManyDays ? std::make_unique<CFontSearch>() : nullptr;
}

}  // namespace

int FinishPainting() {
    const std::string boxes = WhyTextsAreBoxes();
    return boxes.empty() ? kExitDone : Fail(boxes);
}

std::optional<RunResult> RunWatched(CReport& report, const PreparedRequest& prepared, CAwaitedWork* work,
                                    RunFunction* run, const RunOptions& options) {
    const CRunWarnings warnings(prepared, work);
    for (const std::string& warning : prepared.warnings) warnings.Warn(warning);
    if (work != nullptr && !work->IsQuiet()) {
        for (const std::string& note : prepared.notes) Say(note);
    }
    const bool paints = run != ReadStatements;
    const auto fonts = paints ? FindFontsMeanwhile(prepared.request) : nullptr;
    RunResult result = RunPrepared(report, prepared, work, run, options);
    if (work != nullptr) work->Rest();
    if (result.end == RunEnd::Stopped) throw CStoppedWork("nothing is written");
    if (paints) {
        for (const std::string& text : ProblemTexts(result.problems)) Fail(text);
    } else {
        for (const UnreadFile& file : result.problems.inputs) Fail(UnreadFileText(file));
    }
    if (result.problems.error) Fail(ErrorText(*result.problems.error));
    if (result.end == RunEnd::Failed) return std::nullopt;
    if (paints && result.end == RunEnd::Finished) warnings.WarnOfEmptyAccount(report, result);
    return result;
}

int FailWithoutStatement(const RunResult& result, const std::string& advice) {
    if (!result.problems.statements.empty()) return Fail("no statement could be read: " + advice);
    Fail("no statement was found in the whole range: " + advice);
    return kExitUsage;
}

}  // namespace tradebill
