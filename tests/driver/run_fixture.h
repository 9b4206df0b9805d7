// A root folder of its own, a request that is ready to run in it, statements to put there, and a host that watches.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/report_error.h"
#include "base/text.h"
#include "driver/host_products.h"
#include "driver/report_run.h"
#include "platform/local_time.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"
#include "support/host_objects.h"
#include "support/store_fixture.h"
#include "support/temp_folder.h"

namespace tradebill {

struct DestroyEvent {
    void operator()(HostEventHandle event) const { DestroyHostEvent(event); }
};
using UniqueEvent = std::unique_ptr<std::remove_pointer_t<HostEventHandle>, DestroyEvent>;

struct DestroyWindow {
    void operator()(HostWindowHandle window) const { DestroyHostWindow(window); }
};
using UniqueWindow = std::unique_ptr<std::remove_pointer_t<HostWindowHandle>, DestroyWindow>;

inline constexpr std::int32_t kManualReset = 1;
inline constexpr std::int32_t kAutoReset = 0;

/// Whether the event is signalled; resets one that resets itself.
inline bool IsSignalled(const UniqueEvent& event) {
    return WaitForHostEvent(event.get(), 0) == 1;
}

/// Keeps what is sent to a window. `onMessage` runs while the message is handled.
class CMessageWindow {
public:
    struct Message {
        std::uint32_t message;
        std::uint64_t wParam;
        std::int64_t lParam;
        std::thread::id thread;
    };

    [[nodiscard]] HostWindowHandle Handle() const { return window_.get(); }

    std::vector<Message> messages;
    std::function<void()> onMessage;

private:
    static void Receive(void* context, std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
        auto* const self = static_cast<CMessageWindow*>(context);
        self->messages.push_back({message, wParam, lParam, std::this_thread::get_id()});
        if (self->onMessage) self->onMessage();
    }

    UniqueWindow window_{CreateHostWindow(Receive, this)};
};

class CRecordingWatcher : public CRunWatcher {
public:
    void OnDay(int day, int all, std::string_view dayText) override {
        days.emplace_back(dayText);
        counts.emplace_back(day, all);
        if (onDay) onDay(day);
    }
    void OnStage(std::string_view stage) override {
        stages.emplace_back(stage);
        if (onStage) onStage(stages.back());
    }

    std::vector<std::string> days;
    std::vector<std::pair<int, int>> counts;  // day n of m
    std::vector<std::string> stages;
    std::function<void(int)> onDay;
    std::function<void(const std::string&)> onStage;
};

/// A statement with a block of funds: nothing but these amounts.
inline std::string FundsOf(std::string_view day, std::string_view closing, std::string_view realised = "0.00") {
    return Gbk("结算单\r\n日  期:" + std::string(day) +
               "\r\n资金状况\r\n----------\r\n上日结存: 1000.00 当日结存: " + std::string(closing) +
               "\r\n平仓盈亏: " + std::string(realised) + " 客户权益: " + std::string(closing) + "\r\n----------\r\n");
}

/// A statement of two contracts, i2405 and rb2405: two trades, two closed positions and two open ones.
inline std::string FullStatement(const std::string& day) {
    return Statement({"结算单",
                      "日  期:" + day,
                      "资金状况",
                      "----------",
                      "上日结存: 100000.00 当日结存: 101500.00",
                      "平仓盈亏: 1500.00 客户权益: 101500.00",
                      "可用资金: 90000.00 保证金占用: 11500.00",
                      "----------",
                      "成交记录",
                      "----------",
                      "成交日期 交易所 品种 交割期 买卖 开平 成交价 手数 成交额 手续费 平仓盈亏 投保",
                      day + " 大商所 i 2405 卖 平 910.0 1 91000.00 7.00 1000.00 投",
                      day + " 上期所 rb 2405 卖 平 4050 1 40500.00 8.00 500.00 投",
                      "共 2条",
                      "平仓明细",
                      "----------",
                      "平仓日期 交易所 品种 交割期 成交编号 买卖 平仓价 开仓日期 开仓价 手数 昨结算价 平仓盈亏",
                      day + " 大商所 i 2405 00000001 卖 910.0 20231229 900.0 1 900.0 1000.00",
                      day + " 上期所 rb 2405 00000002 卖 4050 20231229 4000 1 4000 500.00",
                      "共 2条",
                      "持仓明细",
                      "----------",
                      "交易所 品种 交割期 开仓日期 买卖 投保 持仓量 开仓价 昨结算 结算价 浮动盈亏 盯市盈亏 保证金",
                      "大商所 i 2405 20231229 买 投 1 900.0 895.0 890.0 0.00 0.00 9000.00",
                      "上期所 rb 2405 20231229 卖 投 1 4000 4000 4000 0.00 0.00 2500.00",
                      "共 2条"});
}

/// The present day, `offset` days on. Waits if midnight is so near that a run might see the next one.
inline CalendarDay DayFromToday(int offset) {
    constexpr std::time_t kRunTime = 5;
    while (LocalDayOf(PresentTime()) != LocalDayOf(PresentTime() + kRunTime)) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
    }
    const std::time_t now = PresentTime();
    std::tm parts = *std::localtime(&now);
    parts.tm_hour = 12;  // no change of the clock moves noon into another day
    parts.tm_mday += offset;
    parts.tm_isdst = -1;
    return LocalDayOf(std::mktime(&parts));
}

/// Paths below `folder` with the content of the files; folders end in "/".
inline std::map<std::string, std::string> ContentOf(const std::string& folder) {
    std::map<std::string, std::string> content;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string path = std::filesystem::relative(entry.path(), folder).generic_string();
        if (entry.is_directory()) {
            content[path + "/"] = "";
        } else {
            content[path] = ReadFile(entry.path().string());
        }
    }
    return content;
}

[[nodiscard]] inline bool StoresAreEmpty(const CReport& report) {
    return report.MoneyStore.Records.empty() && report.CurrencyMoneyStore.Names.empty() &&
           report.MatchStore.Rows.empty() && report.OpiSumStore.Rows.empty() && report.OpiDetailStore.Rows.empty() &&
           report.PingDetailStore.Rows.empty() && report.ReportDocument.Offsets.empty() &&
           report.TradeStatistics.DayFigures.Days.empty() && report.TradeStatistics.DayUsages.Days.empty();
}

/// Days of the money records that a run made.
[[nodiscard]] inline std::vector<std::string> DaysWithMoney(const CReport& report) {
    std::vector<std::string> days;
    for (const auto& record : report.MoneyStore.Records) days.emplace_back(FieldText(record->BILL_DATE));
    return days;
}

class RunFixture : public StoreFixture {
protected:
    RunFixture() {
        std::filesystem::create_directories(root_.Path("Users/u"));
        report.RootFolder = root_.Path();
        report.Products = &products_;
        request_.StatementFormat = 1;
        request_.StatementKind = 1;
        request_.NotifyMessage = 1025;
        CopyField(request_.Account, "10086");
        CopyField(request_.UserFolder, "u");
        SetDates("2024-1-2", "2024-1-3");
        unitCalls = 0;
        onUnit = nullptr;
    }
    ~RunFixture() override { onUnit = nullptr; }

    void SetDates(std::string_view start, std::string_view end) {
        CopyField(request_.StartDate, start);
        CopyField(request_.EndDate, end);
    }
    void SetDates(const CalendarDay& start, const CalendarDay& end) {
        SetDates(DashedDayText(start), DashedDayText(end));
    }

    /// Puts a statement into the user's folder: `name` such as "D10086.20240102o.txt".
    void Put(const std::string& name, const std::string& text) { root_.Write("Users/u/Data/Bill/" + name, text); }
    /// The full statements of both days of the request.
    void PutBothDays() {
        Put("D10086.20240102o.txt", FullStatement("20240102"));
        Put("D10086.20240103o.txt", FullStatement("20240103"));
    }

    /// The run that a host would make. An error that ends it is thrown.
    RunResult Run() {
        RunResult result = RunReport(report, request_, &watcher_);
        if (result.problems.error) throw CReportError(result.problems.error->code);
        return result;
    }
    /// The run that the program would make.
    RunResult RunAlone(RunOptions options = {}) {
        options.access = StatementAccess::ReadAlone;
        return RunReport(report, request_, &watcher_, options);
    }

    [[nodiscard]] std::string PageFile() const { return root_.Path("Users/u/Data/Bill/Image/TradeBill.html"); }
    [[nodiscard]] std::string Page() const { return GbkToUtf8(ReadFile(PageFile())); }
    /// What stands between the anchors of the page from `name` on to the next one.
    [[nodiscard]] std::string Section(const std::string& name) const {
        const std::string page = Page();
        const std::size_t at = page.find("<a name = " + name + "></a>");
        if (at == std::string::npos) return "no such section";
        return page.substr(at, page.find("<a name = ", at + 1) - at);
    }

    /// A unit callback that counts its calls and runs `onUnit` with the number of the call.
    static std::int32_t CountUnit(const char* /*account*/, const char* /*contract*/, const char* /*delivery*/) {
        ++unitCalls;
        if (onUnit) onUnit(unitCalls);
        return 10;
    }
    static inline int unitCalls = 0;
    static inline std::function<void(int)> onUnit;

    CTempFolder root_;
    GenerateBillRequest request_ = ClearedRequest();
    CHostProducts products_{report.Request};  // asks the callbacks of the run's own copy
    CRecordingWatcher watcher_;
};

inline std::size_t CountOf(std::string_view word, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) ++count;
    return count;
}

}  // namespace tradebill
