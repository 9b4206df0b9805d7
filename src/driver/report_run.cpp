#include "driver/report_run.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/day.h"
#include "base/text.h"
#include "driver/bill_folders.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "images/report_images.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "paint/picture_file.h"
#include "platform/host_link.h"
#include "platform/local_time.h"
#include "readers/statement_loader.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/product_source.h"
#include "report/product_unit.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report/statement_format.h"
#include "statistics/account_figures.h"
#include "statistics/daily_series.h"
#include "statistics/money_identity.h"

namespace tradebill {
namespace {

constexpr std::uint64_t kReportFinished = 4;  // the only wParam that is ever sent

bool StopSeen(const GenerateBillRequest& request) {
    return AcknowledgeStop(request.StopEvent, request.AckEvent, [] {});
}

/// Reads the statements of all days. Returns false if the host's stop was seen.
bool ReadDays(CReport& report, const CalendarDay& today, RunResult& result, CRunWatcher* watcher,
              const RunOptions& options) {
    CStatementLoader loader(report, options.access);
    const int days = CountDays(report.ReportDays);
    return WalkDays(report.ReportDays, [&](const CalendarDay& day) {
        if (StopSeen(report.Request)) return false;
        const std::string dayText = DayText(day);
        ++result.days;
        if (watcher != nullptr) watcher->OnDay(result.days, std::max(days, result.days), dayText);
        const std::string path = StatementPath(report, day, day == today);
        if (loader.Load(dayText, path, options.listener) == StatementState::Read) ++result.statementsRead;
        return true;
    });
}

std::unique_ptr<MoneyRecord> CopyOf(const MoneyRecord& money) {
    return std::make_unique<MoneyRecord>(money);
}

/// Adds the host's live figures as one more record. Those per currency go to the currency stores and nowhere else.
void MergeLiveFigures(CReport& report) {
    const GenerateBillRequest& request = report.Request;
    const EquityRule equity = report.Format().equity;
    report.TradeStatistics.FeedDayMoney(&request.BaseMoney);
    report.MoneyStore.Add(CopyOf(request.BaseMoney), MoneySource::Live, equity);
    if (!report.IsForeign()) return;
    const auto addCurrency = [&](const MoneyRecord& money) {
        report.CurrencyMoneyStore.Add(CopyOf(money), FieldText(money.CURRENCY), MoneySource::Live, equity);
    };
    addCurrency(request.BaseMoney);
    for (std::int32_t i = 0; i < request.CurrencyCount; ++i) addCurrency(request.CurrencyMoney[i]);
}

void FinishStatistics(CReport& report) {
    if (!report.IsForeign() && report.Request.MarginOffsetFlag == 1) OffsetMargins(report);
    ComputeYields(report);
    ComputeAccountStatistics(report);
    if (!report.PrintedMoney.empty()) FindMoneyIdentity(report);
}

void Begin(CReport& report, const GenerateBillRequest& request) {
    report.Clear();
    report.ChainTable.Load(ChainPath(report));  // before the copy: the chain file follows the kind of the call before
    report.Request = CopyRequest(request);
    report.TemplatePath = TemplatePath(report);
    const std::time_t now = PresentTime();
    report.ReportDays = {now, now};  // which is what a refused date leaves behind
    report.ReportDays = ReportDaysOf(report.Request);
    report.MoneyStore.StartDateText = DashedDayText(LocalDayOf(report.ReportDays.first));
    report.MoneyStore.EndDateText = DashedDayText(LocalDayOf(report.ReportDays.last));
}

/// From the first statement to the statistics. The run has ended if the host's stop was seen.
RunResult ReadAndCompute(CReport& report, CRunWatcher* watcher, const RunOptions& options) {
    RunResult result;
    const CalendarDay today = LocalDayOf(PresentTime());
    if (!ReadDays(report, today, result, watcher, options)) {
        result.end = RunEnd::Stopped;
        return result;
    }
    if (LocalDayOf(report.ReportDays.last) == today) MergeLiveFigures(report);
    if (watcher != nullptr) watcher->OnStage("statistics");
    FinishStatistics(report);
    return result;
}

void MakePictures(CReport& report) {
    auto images = BuildReportImages(report);
    if (!images) return;
    report.ReportDocument.PageWidth = images->pageWidth;
    report.ReportDocument.SavedPictures = std::move(images->saved);
    report.MoneyStore.ChartSizes = images->chartSizes;
}

void WritePage(const CReport& report, CPageSink* copy, RunResult& result) {
    result.pagePath = PagePath(report);
    CHtmlBuilder page(result.pagePath, copy);
    AddPageSections(page, report);
    result.pageWritten = !page.HasFailed();
}

std::vector<ProductUnit> UsedUnits(const CReport& report) {
    return report.Products == nullptr ? std::vector<ProductUnit>() : report.Products->UsedUnits();
}

void NotifyHost(const GenerateBillRequest& request) {
    if (request.HostWindow == nullptr) return;
    SendHostMessage(request.HostWindow, request.NotifyMessage, kReportFinished);
    static_cast<void>(StopSeen(request));  // the run is over: the host only wants its answer
}

}  // namespace

RunResult ReadAccount(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                      const RunOptions& options) {
    Begin(report, request);
    RunResult result = ReadAndCompute(report, watcher, options);
    if (const auto sizes = MeasureCharts(report)) report.MoneyStore.ChartSizes = *sizes;
    result.units = UsedUnits(report);
    return result;
}

RunResult RunReport(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                    const RunOptions& options) {
    const CPictureWork pictures;
    Begin(report, request);
    PrepareBillFolders(report);
    RunResult result = ReadAndCompute(report, watcher, options);
    if (result.end == RunEnd::Stopped) return result;
    if (watcher != nullptr) watcher->OnStage("pictures");
    MakePictures(report);
    if (watcher != nullptr) watcher->OnStage("page");
    WritePage(report, options.copy, result);
    result.units = UsedUnits(report);
    NotifyHost(report.Request);
    return result;
}

}  // namespace tradebill
