// A terminal whose user changes his mind: a second thread stops the run at every stage, and waits for the answer. It
// prints what each stop leaves behind.
//
// Usage: stop_host REQUEST.INI
//
// The statements lie below the folder of this program, where the module looks for them by itself.
#include <tradebill/report_request.h>
#include <windows.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "host_event.h"
#include "host_window.h"
#include "request_file.h"

namespace {

/// Callbacks get no context, so this is where they find what to do. Empty: nothing.
std::function<void()> OnFirstUnit;
std::function<void()> OnSizes;

std::int32_t UnitOf(const char* /*account*/, const char* /*contract*/, const char* /*delivery*/) {
    if (const auto action = std::exchange(OnFirstUnit, nullptr)) action();
    return 10;
}

void TakeSizes(const ChartSizeReport* /*report*/) {
    if (const auto action = std::exchange(OnSizes, nullptr)) action();
}

/// What is in the page by now. It may be read while it grows.
std::string ContentOf(const std::string& page) {
    std::ifstream file(page, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Whether a folder of this name, which may have wildcards, has a picture in it.
bool HasPicture(const std::string& place, const std::string& name) {
    WIN32_FIND_DATAA found{};
    const HANDLE search = ::FindFirstFileA((place + "\\" + name).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    ::FindClose(search);
    const std::string picture = place + "\\" + &found.cFileName[0] + "\\BillShrink.png";
    return ::GetFileAttributesA(picture.c_str()) != INVALID_FILE_ATTRIBUTES;
}

int CountOf(std::string_view word, std::string_view text) {
    int count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) ++count;
    return count;
}

/// The thread behind the stop button.
class CStopThread {
public:
    CStopThread(CHostEvent& stop, const CHostEvent& acknowledge) : stop_(stop), acknowledge_(acknowledge) {}
    CStopThread(const CStopThread&) = delete;
    CStopThread& operator=(const CStopThread&) = delete;

    /// Once `isTime` says so, signals the stop. Then it has the answer, or the run came to its end without one; it may
    /// come to its end before it is time.
    void Start(std::function<bool()> isTime) {
        thread_ = std::thread([this, isTime = std::move(isTime)] {
            while (!isTime()) {
                if (::WaitForSingleObject(runOver_.Handle(), 1) == WAIT_OBJECT_0) return;
            }
            stop_.Signal();
            signalled_.Signal();
            const HANDLE ends[] = {acknowledge_.Handle(), runOver_.Handle()};
            wasAnswered_ = ::WaitForMultipleObjects(2, ends, FALSE, INFINITE) == WAIT_OBJECT_0;
        });
    }

    /// From a callback: stops, and keeps the run waiting until the stop is signalled.
    void StopNow() {
        Start([] { return true; });
        signalled_.Wait();
    }

    /// After the run. Whether the stop was answered.
    [[nodiscard]] bool HasAnswer() {
        runOver_.Signal();
        if (thread_.joinable()) thread_.join();
        return wasAnswered_;
    }

private:
    CHostEvent& stop_;
    const CHostEvent& acknowledge_;
    CHostEvent signalled_;
    CHostEvent runOver_;
    bool wasAnswered_ = false;
    std::thread thread_;
};

class CTerminal {
public:
    explicit CTerminal(const char* requestFile) : request_(ReadRequestFile(requestFile)) {
        page_ = PageOf(*request_, ProgramFolder());
        request_->HostWindow = window_.Handle();
        request_->NotifyMessage = CHostWindow::kReportMessage;
        request_->ContractUnitCallback = UnitOf;
        request_->ChartSizeCallback = TakeSizes;
        request_->StopEvent = stop_.Handle();
        request_->AckEvent = acknowledge_.Handle();
    }

    void StopBeforeTheRun() {
        Run("stop before the run", [](CStopThread& thread) { thread.StopNow(); });
    }
    void StopNever() {
        Run("no stop", [](CStopThread& /*thread*/) {});
        wholePage_ = ContentOf(page_);
    }
    void StopInTheFirstDay() {
        Run("stop in the first day", [](CStopThread& thread) { OnFirstUnit = [&] { thread.StopNow(); }; });
    }
    /// A picture appears in the run's own folder. Pictures have no stop point: the page sees it.
    void StopWhilePicturesArePainted() {
        const std::string folder = page_.substr(0, page_.rfind('\\'));
        Run("stop while pictures are painted",
            [&](CStopThread& thread) { thread.Start([folder] { return HasPicture(folder, ".tradebill-*"); }); });
    }
    void StopBeforeTheFirstRow() {
        Run("stop before the page's first row", [](CStopThread& thread) { OnSizes = [&] { thread.StopNow(); }; });
    }
    void StopInTheMessage() {
        Run("stop while the message is handled",
            [this](CStopThread& thread) { onMessage_ = [&] { thread.StopNow(); }; });
    }
    /// Nobody is there to answer until the next call, which ends at once.
    void StopAfterTheReturn() {
        Run("stop after the return", [](CStopThread& /*thread*/) {});
        stop_.Signal();
        std::printf("  acknowledged before the next call: %s\n", acknowledge_.IsSignalled() ? "yes" : "no");
        Run("the next call", [](CStopThread& thread) { thread.StopNow(); });
    }
    void StopWithoutAnswer() {
        request_->AckEvent = nullptr;
        Run("stop without an event for the answer", [](CStopThread& thread) { thread.StopNow(); });
    }

private:
    /// One run; `prepare` arranges who stops it and when.
    void Run(const char* what, const std::function<void(CStopThread&)>& prepare) {
        messages_ = 0;
        const std::string before = ContentOf(page_);
        CStopThread thread(stop_, acknowledge_);
        prepare(thread);
        GenerateBill(request_.get());
        const bool wasAnswered = thread.HasAnswer();
        std::printf("%s: acknowledged %s, %d messages, %s\n", what, wasAnswered ? "yes" : "no", messages_,
                    PageState(before).c_str());
        stop_.Reset();
        acknowledge_.Reset();
    }

    [[nodiscard]] std::string PageState(const std::string& before) const {
        const std::string page = ContentOf(page_);
        if (page.empty()) return "no page";
        const bool isWhole = page == wholePage_ || wholePage_.empty();
        if (messages_ == 0) return page == before ? "page of the last run" : "page has changed";
        if (isWhole) return "whole page";
        const bool hasEnd = page.ends_with("</body>\r\n</html>\r\n");
        const bool hasAllAnchors = CountOf("<a name =", page) == CountOf("<a name =", wholePage_);
        return std::string(hasEnd && hasAllAnchors ? "cut page with all anchors, " : "broken page, ") +
               std::to_string(CountOf("</table>", page)) + " of " + std::to_string(CountOf("</table>", wholePage_)) +
               " tables closed";
    }

    CHostWindow window_{[this](WPARAM, LPARAM) {
        ++messages_;
        if (const auto action = std::exchange(onMessage_, nullptr)) action();
    }};
    CHostEvent stop_;
    CHostEvent acknowledge_;
    std::unique_ptr<GenerateBillRequest> request_;
    std::string page_;
    std::string wholePage_;
    std::function<void()> onMessage_;
    int messages_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    CTerminal terminal(argv[1]);
    terminal.StopBeforeTheRun();
    terminal.StopNever();
    terminal.StopInTheFirstDay();
    terminal.StopWhilePicturesArePainted();
    terminal.StopBeforeTheFirstRow();
    terminal.StopInTheMessage();
    terminal.StopAfterTheReturn();
    terminal.StopWithoutAnswer();
    return 0;
}
