// The functions that a host finds in the module.
#include <cstdint>
#include <new>

#include "base/report_error.h"
#include "driver/host_module.h"
#include "driver/repaint.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "images/chart_kinds.h"
#include "page/page_sections.h"
#include "paint/picture_file.h"
#include "platform/host_link.h"
#include "platform/root_folder.h"

namespace tradebill {
namespace {

/// 0, or the code of what went wrong. Lets no exception out.
std::uint32_t RunForHost(const GenerateBillRequest* request) {
    if (request == nullptr) return kErrorInvalidArgument;
    try {
        const RunResult result = RunReport(TheModule().ReportForRun(), *request, nullptr);
        return result.problems.error ? result.problems.error->code : 0;
    } catch (const std::bad_alloc&) {
        return kErrorOutOfMemory;
    } catch (...) {
        return kErrorUnspecified;
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

void SetRootFolder(const char* path) {
    if (path != nullptr) tradebill::TheModule().rootFolder = tradebill::RootFolderAt(path);
}

void ResetTradeBillFile(const char* path, int32_t finished) {
    if (path != nullptr) tradebill::WritePlaceholderPage(path, finished != 0);
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
