#include "driver/report_run.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day.h"
#include "base/report_error.h"
#include "base/shortage.h"
#include "base/text.h"
#include "driver/bill_folders.h"
#include "driver/place_guard.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "driver/request_names.h"
#include "driver/run_files.h"
#include "driver/run_problems.h"
#include "images/report_images.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "paint/picture_file.h"
#include "platform/host_link.h"
#include "platform/local_time.h"
#include "platform/system_error.h"
#include "readers/statement_loader.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/product_source.h"
#include "report/product_unit.h"
#include "report/report.h"
#include "report/report_document.h"
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

/// Ends a run where its watcher wants it to.
struct WatcherStop {};

void BeginStage(CRunWatcher* watcher, std::string_view stage, bool canStop = true) {
    if (watcher == nullptr) return;
    watcher->OnStage(stage);
    if (canStop && watcher->WantsStop()) throw WatcherStop{};
}

/// Does `work`. The error that it ends with, if it does.
template <class Work>
std::optional<RunError> ErrorOf(Work work) {
    try {
        work();
    } catch (const CReportError& error) {
        return RunError{.code = error.Code(), .text = error.what(), .day = {}, .path = {}, .place = error.Place()};
    } catch (const std::bad_alloc& shortage) {
        return RunError{.code = kErrorOutOfMemory, .text = ShortageText(shortage), .day = {}, .path = {}, .place = {}};
    }
    return std::nullopt;
}

/// Where the statement of one day may lie.
struct DayFiles {
    std::string day;
    std::vector<std::string> paths;
};

enum class DayEnd { Read, NotRead, Failed };

/// Reads the first of the files that is there. An error ends the run.
DayEnd ReadDay(CStatementLoader& loader, const DayFiles& files, RunResult& result, CStatementListener* listener) {
    for (const std::string& path : files.paths) {
        StatementFile found;
        auto error = ErrorOf([&] { found = loader.Load(files.day, path, listener); });
        if (error) {
            error->day = files.day;
            error->path = path;
            result.problems.error = std::move(error);
            return DayEnd::Failed;
        }
        if (found.state == StatementState::Read) {
            ++result.statementsRead;
            return DayEnd::Read;
        }
        if (found.state != StatementState::Missing || !found.reason.empty()) {
            result.problems.statements.push_back({files.day, path, found.state, std::move(found.reason)});
            return DayEnd::NotRead;
        }
    }
    return DayEnd::NotRead;
}

/// Reads the statements of all days, up to where the run ends.
RunEnd ReadDays(CReport& report, RunResult& result, CRunWatcher* watcher, const RunOptions& options) {
    CStatementLoader loader(report, options.access, options.statementLimit);
    const int days = CountDays(report.ReportDays);
    const bool sawAll = WalkDays(report.ReportDays, [&](const CalendarDay& day) {
        if (StopSeen(report.Request)) return false;
        const std::string dayText = DayText(day);
        ++result.days;
        if (watcher != nullptr) {
            watcher->OnDay(result.days, std::max(days, result.days), dayText);
            if (watcher->WantsStop()) return false;
        }
        const DayFiles files{dayText, StatementPaths(report, day, options.present)};
        const DayEnd end = ReadDay(loader, files, result, options.listener);
        if (end == DayEnd::Read && day == options.present.day) result.readPresentDay = true;
        return end != DayEnd::Failed;
    });
    if (loader.TemplateProblem()) result.problems.inputs.push_back(*loader.TemplateProblem());
    if (sawAll) return RunEnd::Finished;
    return result.problems.error ? RunEnd::Failed : RunEnd::Stopped;
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

/// Returns false if the names in `request` end the run before it reads anything.
bool Begin(CReport& report, const GenerateBillRequest& request, const RunOptions& options, RunResult& result) {
    report.Clear();
    result.problems.names = WhyNamesFail(request);
    if (!result.problems.names.empty()) {
        report.Request = CopyRequest(request);
        result.end = RunEnd::NothingRead;
        return false;
    }
    // Before the copy: the chain file follows the kind of the call before.
    result.chainPath = ChainPath(report);
    if (auto unread = report.ChainTable.Load(result.chainPath)) result.problems.inputs.push_back(*std::move(unread));
    report.Request = CopyRequest(request);
    report.TemplatePath = TemplatePath(report);
    report.CarriedTemplate = options.carriedTemplate;
    const std::time_t now = PresentTime();
    report.ReportDocument.WorkFolder.clear();
    report.ReportDays = {now, now};  // which is what a refused date leaves behind
    report.ReportDays = ReportDaysOf(report.Request);
    report.MoneyStore.StartDateText = DashedDayText(LocalDayOf(report.ReportDays.first));
    report.MoneyStore.EndDateText = DashedDayText(LocalDayOf(report.ReportDays.last));
    return true;
}

/// From the first statement to the statistics, unless the run ends before.
void ReadAndCompute(CReport& report, RunResult& result, CRunWatcher* watcher, const RunOptions& options) {
    result.end = ReadDays(report, result, watcher, options);
    if (result.end == RunEnd::Finished && options.needsStatement && result.statementsRead == 0) {
        result.end = RunEnd::NothingRead;
    }
    if (result.end != RunEnd::Finished) return;
    const bool endsWithIt = LocalDayOf(report.ReportDays.last) == options.present.day;
    result.hasLiveRecord = endsWithIt && (options.present.hasLiveFigures || !result.readPresentDay);
    if (result.hasLiveRecord) MergeLiveFigures(report);
    BeginStage(watcher, "statistics");
    FinishStatistics(report);
}

BillFolders PrepareFolders(CReport& report, const RunOptions& options, RunResult& result) {
    BillFolders folders = PrepareBillFolders(report, options.outFolder);
    result.problems.folders = folders.failures;
    return folders;
}

/// An error leaves what is there by then to be seen.
void MakePictures(CReport& report, CRunFiles& files) {
    ReportImages& images = files.Images();
    try {
        BuildReportImages(report, images);
    } catch (const CReportError&) {
        files.FinishPictures();
        throw;
    }
    CReportDocument& document = report.ReportDocument;
    document.PageWidth = images.pageWidth.value_or(document.PageWidth);
    document.SavedPictures = images.saved;
    report.MoneyStore.ChartSizes = images.chartSizes;
}

/// An error leaves the page to be seen as far as it came.
void WritePage(const CReport& report, CPageSink* copy, CRunFiles& files) {
    CHtmlBuilder page(WholePath{files.WorkPage()}, copy, [&] {
        if (!page.HasFailed()) files.ShowPage();
    });
    const auto finish = [&] { files.Finish(page.HasFailed() ? std::optional(page.WhyFailed()) : std::nullopt); };
    try {
        AddPageSections(page, report);
    } catch (const CReportError&) {
        finish();
        throw;
    }
    finish();
}

std::vector<ProductUnit> UsedUnits(const CReport& report) {
    return report.Products == nullptr ? std::vector<ProductUnit>() : report.Products->UsedUnits();
}

void NotifyHost(const GenerateBillRequest& request) {
    if (request.HostWindow == nullptr) return;
    SendHostMessage(request.HostWindow, request.NotifyMessage, kReportFinished);
    static_cast<void>(StopSeen(request));  // the run is over: the host only wants its answer
}

/// Keeps other programs away from the page's folder, as long as what it returns lives. The run ends if one of them
/// doesn't leave it; a folder that can't be held can't be written to either.
std::optional<CPlaceGuard> GuardPlace(const CReport& report, BillFolders& folders, const RunOptions& options,
                                      RunResult& result) {
    if (!options.wait || !folders.forPage) return std::nullopt;
    const std::string& place = report.ReportDocument.BillFolder;
    std::optional<CPlaceGuard> guard(std::in_place, place, *options.wait);
    if (guard->IsHeld()) return guard;
    folders.forPage = false;
    if (!guard->Holder().empty()) {
        result.end = RunEnd::PlaceTaken;
        result.problems.taken = {place, guard->Holder()};
    } else {
        folders.reason = guard->Reason();
    }
    return std::nullopt;
}

void MakePageAndPictures(CReport& report, const BillFolders& folders, CRunWatcher* watcher, CPageSink* copy,
                         RunResult& result) {
    result.pagePath = PagePath(report);
    CRunFiles files(report, folders, result);
    try {
        BeginStage(watcher, "pictures");
        MakePictures(report, files);
        BeginStage(watcher, "page", !files.AreInPlace());
    } catch (const WatcherStop&) {
        files.GiveUp();
        throw;
    }
    WritePage(report, copy, files);
}

void MakeReport(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher, const RunOptions& options,
                RunResult& result) {
    if (!Begin(report, request, options, result)) return;
    BillFolders folders;
    if (!options.needsStatement)
        folders = PrepareFolders(report, options, result);  // hosts find them from the first day on
    ReadAndCompute(report, result, watcher, options);
    if (result.end != RunEnd::Finished) return;
    if (options.needsStatement) folders = PrepareFolders(report, options, result);
    auto guard = GuardPlace(report, folders, options, result);
    if (result.end != RunEnd::Finished) return;
    MakePageAndPictures(report, folders, watcher, options.copy, result);
    if (guard && !guard->Release()) result.problems.leftover = {guard->Path(), SystemErrorText(LastSystemError())};
    NotifyHost(report.Request);
}

/// What `work` left in its result, an error that it ended with included.
template <class Work>
RunResult ResultOf(const CReport& report, Work work) {
    RunResult result;
    try {
        if (auto error = ErrorOf([&] { work(result); })) {
            result.end = RunEnd::Failed;
            result.problems.error = std::move(error);
        }
    } catch (const WatcherStop&) {
        result.end = RunEnd::Stopped;
    }
    result.units = UsedUnits(report);
    return result;
}

}  // namespace

RunResult ReadAccount(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                      const RunOptions& options) {
    return ResultOf(report, [&](RunResult& result) {
        if (!Begin(report, request, options, result)) return;
        ReadAndCompute(report, result, watcher, options);
        report.MoneyStore.ChartSizes = MeasureCharts(report);
    });
}

RunResult ReadStatements(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                         const RunOptions& options) {
    return ResultOf(report, [&](RunResult& result) {
        if (!Begin(report, request, options, result)) return;
        ReadAndCompute(report, result, watcher, options);
    });
}

RunResult RunReport(CReport& report, const GenerateBillRequest& request, CRunWatcher* watcher,
                    const RunOptions& options) {
    const CPictureWork pictures;
    return ResultOf(report, [&](RunResult& result) { MakeReport(report, request, watcher, options, result); });
}

}  // namespace tradebill
