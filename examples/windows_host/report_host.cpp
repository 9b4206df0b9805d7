// A terminal that makes reports: a window that is told of the end, both events, and all three callbacks. It prints what
// it receives.
//
// Usage: report_host REQUEST.INI
//
// The statements lie below the folder of this program, where the module looks for them by itself.
#include <tradebill/report_request.h>
#include <windows.h>

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <thread>

#include "guarded_call.h"
#include "host_event.h"
#include "host_window.h"
#include "request_file.h"

namespace {

struct Product {
    const char* name;  ///< as statements print it, in GBK: see the compiler's options in build.sh
    const char* code;
    std::int32_t unit;
};

// clang-format off
constexpr Product kProducts[] = {
    {"铁矿石", "i",  100},
    {"螺纹钢", "rb", 10},
    {"热卷",   "hc", 10},
    {"豆粕",   "m",  10},
    {"棕榈油", "p",  10},
    {"白糖",   "SR", 10},
    {"PTA",    "TA", 5},
    {"沪铜",   "cu", 5},
    {"沪金",   "au", 1000},
    {"股指",   "IF", 300},
};
// clang-format on

/// What the callbacks were asked in one run. They get no context, so this is where they find it.
struct Asked {
    int units;
    int products;
    int sizes;
};
Asked Received;

/// One asks by a contract's product code, or by its name where the statement has no code.
std::int32_t UnitOf(const char* account, const char* contract, const char* delivery) {
    if (Received.units++ == 0) std::printf("first unit: of %s, delivery %s, account %s\n", contract, delivery, account);
    for (const Product& product : kProducts) {
        if (std::strcmp(contract, product.code) == 0 || std::strcmp(contract, product.name) == 0) return product.unit;
    }
    return 1;
}

std::int32_t CodeOf(const char* name, char* code) {
    if (Received.products++ == 0) std::printf("first product: %s\n", name);
    for (const Product& product : kProducts) {
        if (std::strcmp(name, product.name) != 0) continue;
        std::strcpy(code, product.code);
        return 1;
    }
    return 0;
}

void TakeSizes(const ChartSizeReport* report) {
    ++Received.sizes;
    std::printf("charts: equity %d x %d, realised %d x %d, account yield %d x %d, trading yield %d x %d; %d days\n",
                report->EquityWidth, report->EquityHeight, report->RealisedWidth, report->RealisedHeight,
                report->AccountYieldWidth, report->AccountYieldHeight, report->TradeYieldWidth,
                report->TradeYieldHeight, report->MoneyRecordCount);
}

/// Whether the page ends as a page does, at this moment.
bool IsComplete(const std::string& page) {
    constexpr char kEnd[] = "</html>\r\n";
    constexpr std::size_t kEndSize = sizeof kEnd - 1;
    std::FILE* const file = std::fopen(page.c_str(), "rb");
    if (file == nullptr) return false;
    char end[kEndSize] = {};
    std::fseek(file, -static_cast<long>(kEndSize), SEEK_END);
    const std::size_t size = std::fread(end, 1, kEndSize, file);
    std::fclose(file);
    return size == kEndSize && std::memcmp(end, kEnd, kEndSize) == 0;
}

class CTerminal {
public:
    explicit CTerminal(const char* requestFile) : request_(ReadRequestFile(requestFile)) {
        page_ = PageOf(*request_, ProgramFolder());
        request_->HostWindow = window_.Handle();
        request_->NotifyMessage = CHostWindow::kReportMessage;
        request_->ContractUnitCallback = UnitOf;
        request_->ChartSizeCallback = TakeSizes;
        request_->ProductNameCallback = CodeOf;
        request_->StopEvent = stop_.Handle();
        request_->AckEvent = acknowledge_.Handle();
    }

    /// A simple host: the thread of the window waits until the report is made.
    void ReportHere() {
        Run();
        PrintReceived("on the thread of the window");
    }

    /// A smooth host: another thread waits, and the window goes on with its messages meanwhile.
    void ReportOnAnotherThread() {
        std::thread worker([this] {
            Run();
            ::PostThreadMessageA(windowThread_, WM_QUIT, 0, 0);
        });
        MSG message{};
        while (::GetMessageA(&message, nullptr, 0, 0) > 0) ::DispatchMessageA(&message);
        worker.join();
        PrintReceived("on a thread of its own");
    }

    /// A user who typed nonsense. The run ends before it makes anything, so that the last page stays.
    void ReportOfBadDates(const char* start, const char* end) {
        SetDates(*request_, start, end);
        messages_ = 0;
        const std::uint32_t code = CodeRaisedBy(GenerateBill, request_.get());
        std::printf("from %s to %s: structured exception 0x%08X, %d messages, %s page; TryGenerateBill says 0x%08X\n",
                    start, end, code, messages_, IsComplete(page_) ? "whole" : "no", TryGenerateBill(request_.get()));
    }

private:
    void Run() {
        messages_ = 0;
        Received = {};
        isRunning_ = true;
        const std::uint32_t code = CodeRaisedBy(GenerateBill, request_.get());
        isRunning_ = false;
        std::printf("returned 0x%08X\n", code);
    }

    void OnReport(WPARAM wParam, LPARAM lParam) {
        ++messages_;
        std::printf("message: wParam %d, lParam %d, %s, %s thread, page %s\n", static_cast<int>(wParam),
                    static_cast<int>(lParam), isRunning_ ? "before the return" : "after the return",
                    ::GetCurrentThreadId() == windowThread_ ? "the window's" : "another",
                    IsComplete(page_) ? "complete" : "not complete");
    }

    void PrintReceived(const char* where) const {
        std::printf("report %s: %d messages, %d units, %d products, %d sizes, stop acknowledged: %s\n", where,
                    messages_, Received.units, Received.products, Received.sizes,
                    acknowledge_.IsSignalled() ? "yes" : "no");
    }

    DWORD windowThread_ = ::GetCurrentThreadId();
    CHostWindow window_{[this](WPARAM wParam, LPARAM lParam) { OnReport(wParam, lParam); }};
    CHostEvent stop_;
    CHostEvent acknowledge_;
    std::unique_ptr<GenerateBillRequest> request_;
    std::string page_;
    int messages_ = 0;
    bool isRunning_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::printf("code page %u\n", ::GetACP());
    CTerminal terminal(argv[1]);
    terminal.ReportHere();
    terminal.ReportOnAnotherThread();
    terminal.ReportOfBadDates("1899-12-31", "2024-1-2");
    terminal.ReportOfBadDates("2024-1-2", "2024-13-1");
    terminal.ReportOfBadDates("2024-1-32", "2024-2-1");
    terminal.ReportOfBadDates("1969-6-1", "2024-1-2");
    return 0;
}
