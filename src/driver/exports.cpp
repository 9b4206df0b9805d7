// The functions that a host finds in the module.
#include <new>

#include "base/report_error.h"
#include "driver/repaint.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "images/account_charts.h"
#include "page/page_sections.h"
#include "platform/host_link.h"
#include "platform/root_folder.h"

namespace tradebill {
namespace {

/// 0, or the code of what went wrong. Lets no exception out.
std::uint32_t RunForHost(const GenerateBillRequest* request) {
    if (request == nullptr) return kErrorInvalidArgument;
    try {
        RunReport(*request, nullptr);
    } catch (const CReportError& error) {
        return error.Code();
    } catch (const std::bad_alloc&) {
        return kErrorOutOfMemory;
    } catch (...) {
        return kErrorUnspecified;
    }
    return 0;
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
    if (path != nullptr) tradebill::SetRootFolderPath(path);
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
