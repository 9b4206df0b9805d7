#include "driver/report_run.h"

#include <algorithm>
#include <memory>
#include <string>

#include "base/text.h"
#include "driver/bill_folders.h"
#include "images/report_images.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "paint/picture_file.h"
#include "platform/host_link.h"
#include "platform/local_time.h"
#include "readers/statement_loader.h"
#include "readers/statement_template.h"
#include "report/account_statistics.h"
#include "report/chain_table.h"
#include "report/report_document.h"
#include "report/request_copy.h"
#include "report/stores.h"
#include "report/trade_statistics.h"
#include "statistics/account_figures.h"

namespace tradebill {
namespace {

constexpr std::uint64_t kReportFinished = 4;  // the only wParam that is ever sent

/// The start date is checked in full before the end date is looked at, and neither counts without the other.
void SetReportDays() {
    ReportDays.first = ReportDays.last = PresentTime();
    const std::string_view start = FieldText(Request.StartDate);
    const std::string_view end = FieldText(Request.EndDate);
    if (!start.empty() && !end.empty()) {
        const std::time_t first = MidnightOf(ParseDashedDay(start));
        const std::time_t last = MidnightOf(ParseDashedDay(end));
        ReportDays = {first, last};
    }
    MoneyStore.StartDateText = DashedDayText(LocalDayOf(ReportDays.first));
    MoneyStore.EndDateText = DashedDayText(LocalDayOf(ReportDays.last));
}

bool StopSeen() {
    return AcknowledgeStop(Request.StopEvent, Request.AckEvent, [] {});
}

/// Reads the statements of all days. Returns false if the host's stop was seen.
bool ReadDays(const CalendarDay& today, RunResult& result, CRunWatcher* watcher) {
    const std::time_t span = ReportDays.last - ReportDays.first;
    const int days = span < 0 ? 0 : static_cast<int>(span / kSecondsPerDay) + 1;
    for (std::time_t cursor = ReportDays.first; cursor <= ReportDays.last; cursor += kSecondsPerDay) {
        if (StopSeen()) return false;
        const CalendarDay day = LocalDayOf(cursor);
        const std::string dayText = DayText(day);
        ++result.days;
        if (watcher != nullptr) watcher->OnDay(result.days, std::max(days, result.days), dayText);
        if (LoadStatement(dayText, StatementPath(day, day == today))) ++result.statementsRead;
    }
    return true;
}

std::unique_ptr<MoneyRecord> CopyOf(const MoneyRecord& money) {
    return std::make_unique<MoneyRecord>(money);
}

/// Adds the host's live figures as one more record. Those per currency go to the currency stores and nowhere else.
void MergeLiveFigures() {
    TradeStatistics.FeedDayMoney(&Request.BaseMoney);
    MoneyStore.Add(CopyOf(Request.BaseMoney), MoneySource::Live);
    if (!IsForeign()) return;
    CurrencyMoneyStore.Add(CopyOf(Request.BaseMoney), FieldText(Request.BaseMoney.CURRENCY), MoneySource::Live);
    for (std::int32_t i = 0; i < Request.CurrencyCount; ++i) {
        const MoneyRecord& money = Request.CurrencyMoney[i];
        CurrencyMoneyStore.Add(CopyOf(money), FieldText(money.CURRENCY), MoneySource::Live);
    }
}

void FinishStatistics() {
    if (!IsForeign() && Request.MarginOffsetFlag == 1) TradeStatistics.OffsetMargins();
    TradeStatistics.ComputeYields();
    ComputeAccountStatistics();
}

void Begin(const GenerateBillRequest& request) {
    ClearResults();
    ChainTable.Load();  // before the copy: the chain file follows the kind of the call before this one
    CopyRequest(request);
    SetReportDays();
}

/// From the first statement to the statistics. The run has ended if the host's stop was seen.
RunResult ReadAndCompute(CRunWatcher* watcher) {
    RunResult result;
    const CalendarDay today = LocalDayOf(PresentTime());
    if (!ReadDays(today, result, watcher)) {
        result.end = RunEnd::Stopped;
        return result;
    }
    if (LocalDayOf(ReportDays.last) == today) MergeLiveFigures();
    if (watcher != nullptr) watcher->OnStage("statistics");
    FinishStatistics();
    return result;
}

void WritePage(RunResult& result) {
    result.pagePath = PagePath();
    CHtmlBuilder page(result.pagePath);
    AddPageSections(page);
    result.pageWritten = !page.HasFailed();
}

void NotifyHost() {
    if (Request.HostWindow == nullptr) return;
    SendHostMessage(Request.HostWindow, Request.NotifyMessage, kReportFinished);
    static_cast<void>(StopSeen());  // the run is over: the host only wants its answer
}

}  // namespace

void ClearResults() {
    AccountStatistics.Clear();
    MoneyStore.Clear();
    CurrencyMoneyStore.Clear();
    MatchStore.Clear();
    OpiSumStore.Clear();
    OpiDetailStore.Clear();
    PingDetailStore.Clear();
    ReportDocument.ClearOffsets();
    TradeStatistics.Clear();
    ChainTable.Clear();
    ForgetRequestTemplate();
}

RunResult ReadAccount(const GenerateBillRequest& request, CRunWatcher* watcher) {
    Begin(request);
    RunResult result = ReadAndCompute(watcher);
    NoteChartSizes();
    return result;
}

RunResult RunReport(const GenerateBillRequest& request, CRunWatcher* watcher) {
    const CPictureWork pictures;
    Begin(request);
    PrepareBillFolders();
    RunResult result = ReadAndCompute(watcher);
    if (result.end == RunEnd::Stopped) return result;
    if (watcher != nullptr) watcher->OnStage("pictures");
    BuildReportImages();
    if (watcher != nullptr) watcher->OnStage("page");
    WritePage(result);
    NotifyHost();
    return result;
}

}  // namespace tradebill
