// The functions that a host finds in the module.
#include <new>

#include "base/report_error.h"
#include "driver/repaint.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "images/account_charts.h"
#include "page/page_sections.h"
#include "platform/root_folder.h"
#include "platform/screen.h"

namespace tradebill {
namespace {

/// Only CReportError leaves the module.
void RunForHost(const GenerateBillRequest* request) {
    if (request == nullptr) throw CReportError(kErrorInvalidArgument);
    try {
        RunReport(*request, nullptr);
    } catch (const CReportError&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw CReportError(kErrorOutOfMemory);
    } catch (...) {
        throw CReportError(kErrorUnspecified);
    }
}

}  // namespace
}  // namespace tradebill

void GenerateBill(const GenerateBillRequest* request) {
    tradebill::RunForHost(request);
}

std::uint32_t TryGenerateBill(const GenerateBillRequest* request) {
    try {
        tradebill::RunForHost(request);
    } catch (const tradebill::CReportError& error) {
        return error.Code();
    }
    return 0;
}

void SetRootFolder(const char* path) {
    if (path != nullptr) tradebill::SetRootFolderPath(path);
}

void SetScreenWidth(std::int32_t width) {
    tradebill::SetScreenWidthPixels(width);
}

void ResetTradeBillFile(const char* path, int32_t finished) {
    if (path != nullptr) tradebill::WritePlaceholderPage(path, finished != 0);
}

void StretchZjGraph(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height) {
    tradebill::Repaint(target, rect, {width, height}, tradebill::StretchEquityChart);
}

void StretchRiskAndProfit(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height) {
    tradebill::Repaint(target, rect, {width, height}, tradebill::StretchAccountYieldChart);
}

void StretchRisk(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height) {
    tradebill::Repaint(target, rect, {width, height}, tradebill::StretchTradeYieldChart);
}

void StretchOffsetGraph(ChartTarget* target, const ChartRect* rect, int32_t width, int32_t height) {
    tradebill::Repaint(target, rect, {width, height}, tradebill::StretchOffsetChart);
}
