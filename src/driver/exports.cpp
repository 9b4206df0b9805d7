// The functions that a host finds in the module.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "base/report_error.h"
#include "base/shortage.h"
#include "driver/host_module.h"
#include "driver/last_call.h"
#include "driver/repaint.h"
#include "driver/report_counts.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "driver/reset_page.h"
#include "driver/run_problems.h"
#include "images/chart_kinds.h"
#include "paint/picture_file.h"
#include "platform/host_link.h"
#include "platform/paths.h"
#include "platform/root_folder.h"
#include "readers/statement_loader.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostProblems = 20;  // that are told in full

/// A line for each problem; the error that ended the run comes first.
std::string TextOf(const RunProblems& problems) {
    std::vector<std::string> lines = ProblemTexts(problems);
    if (problems.error) lines.insert(lines.begin(), ErrorText(*problems.error));
    const std::size_t shown = std::min(lines.size(), kMostProblems);
    std::string text;
    for (std::size_t line = 0; line < shown; ++line) text += (line > 0 ? "\n" : "") + lines[line];
    if (lines.size() > shown) text += "\nand " + std::to_string(lines.size() - shown) + " more";
    return text;
}

/// Statements that could be read if they could be written aren't counted.
std::ptrdiff_t CountUnreadable(const RunProblems& problems) {
    return std::ranges::count_if(problems.statements, [](const UnreadStatement& statement) {
        return statement.state != StatementState::Missing;
    });
}

TradeBillCounts CountsOf(const RunResult& result, const CReport& report) {
    return {.Size = sizeof(TradeBillCounts),
            .Days = static_cast<std::uint32_t>(result.days),
            .Statements = static_cast<std::uint32_t>(result.statementsRead),
            .Unreadable = static_cast<std::uint32_t>(CountUnreadable(result.problems)),
            .Records = static_cast<std::uint32_t>(CountRecords(report)),
            .Pictures = static_cast<std::uint32_t>(result.picturesSaved)};
}

/// Keeps a call that has nothing to count.
void KeepCall(std::string_view error) noexcept {
    TheModule().lastCall.Keep(error, {});
}

std::uint32_t RunAndKeep(const GenerateBillRequest& request) {
    CReport& report = TheModule().ReportForRun();
    const RunResult result = RunReport(report, request, nullptr);
    TheModule().lastCall.Keep(TextOf(result.problems), CountsOf(result, report));
    return result.problems.error ? result.problems.error->code : 0;
}

/// 0, or the code of what went wrong. Lets no exception out.
std::uint32_t RunForHost(const GenerateBillRequest* request) {
    if (request == nullptr) {
        KeepCall("the request is null");
        return kErrorInvalidArgument;
    }
    try {
        return RunAndKeep(*request);
    } catch (const std::bad_alloc& shortage) {
        KeepCall(ShortageText(shortage));
        return kErrorOutOfMemory;
    } catch (...) {
        KeepCall("the report could not be made");
        return kErrorUnspecified;
    }
}

/// Writes the placeholder page. What keeps it from being written, a line; empty if nothing does.
std::string ResetForPath(const char* path, bool isFinished) {
    if (path == nullptr) return "the path is null";
    const std::string page = std::string(path).substr(0, kLongestPath);
    RunProblems problems;
    if (const auto failure = ResetPage(page, isFinished)) problems.page = {page, *failure};
    return TextOf(problems);
}

void ResetForHost(const char* path, bool isFinished) {
    try {
        KeepCall(ResetForPath(path, isFinished));
    } catch (const std::bad_alloc&) {
        KeepCall("out of memory");
    }
}

/// Without memory for it there is no root: a run in another's folders would be worse than none.
void SetRootForHost(const char* path) {
    HostModule& module = TheModule();
    try {
        module.rootFolder = RootFolderAt(path);
        module.hasLostRoot = false;
    } catch (const std::bad_alloc&) {
        module.hasLostRoot = true;
    }
}

void RepaintForHost(const AccountChart& chart, ChartTarget* target, const ChartRect* rect, const PictureSize& size) {
    Repaint(TheModule().ReportForChart(), chart, target, rect, size);
}

}  // namespace
}  // namespace tradebill

void GenerateBill(const GenerateBillRequest* request) {
    const std::uint32_t code = tradebill::RunForHost(request);
    if (code != 0) tradebill::RaiseInHost(code);
}

std::uint32_t TryGenerateBill(const GenerateBillRequest* request) {
    return tradebill::RunForHost(request);
}

const char* TradeBillLastError(void) {
    return tradebill::TheModule().lastCall.Error();
}

void TradeBillLastCounts(TradeBillCounts* counts) {
    tradebill::TheModule().lastCall.Tell(counts);
}

void SetRootFolder(const char* path) {
    if (path != nullptr) tradebill::SetRootForHost(path);
}

void ResetTradeBillFile(const char* path, int32_t finished) {
    tradebill::ResetForHost(path, finished != 0);
}

void StretchZjGraph(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height) {
    tradebill::RepaintForHost(tradebill::kEquityChart, target, rect, {width, height});
}

void StretchRiskAndProfit(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height) {
    tradebill::RepaintForHost(tradebill::kAccountYieldChart, target, rect, {width, height});
}

void StretchRisk(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height) {
    tradebill::RepaintForHost(tradebill::kTradeYieldChart, target, rect, {width, height});
}

void StretchOffsetGraph(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height) {
    tradebill::RepaintForHost(tradebill::kRealisedChart, target, rect, {width, height});
}
