// A terminal that does what terminals shouldn't: no window, events that are closed, no request at all. The module goes
// on with what there is. It is found by LoadLibrary, as in load_host.
//
// Usage: odd_host TRADEBILL.DLL ROOT REQUEST.INI
#include <tradebill/report_request.h>
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

#include "guarded_call.h"
#include "host_event.h"
#include "host_window.h"
#include "loaded_module.h"
#include "request_file.h"

namespace {

int SizesTold = 0;

void TakeSizes(const ChartSizeReport* /*report*/) {
    ++SizesTold;
}

/// A handle that was an event's.
HANDLE ClosedEvent() {
    return CHostEvent().Handle();
}

class CTerminal {
public:
    CTerminal(const CLoadedModule& module, const char* root, const char* requestFile)
        : module_(module), requestFile_(requestFile), page_(PageOf(*ReadRequestFile(requestFile), root)) {}

    /// One run of a request that is in order but for what `spoil` does to it.
    void Run(const char* what, const std::function<void(GenerateBillRequest&)>& spoil) {
        const auto request = ReadRequestFile(requestFile_);
        request->HostWindow = window_.Handle();
        request->NotifyMessage = CHostWindow::kReportMessage;
        request->ChartSizeCallback = TakeSizes;
        request->StopEvent = stop_.Handle();
        request->AckEvent = acknowledge_.Handle();
        stop_.Reset();
        acknowledge_.Reset();
        messages_ = SizesTold = 0;
        ::DeleteFileA(page_.c_str());
        spoil(*request);
        const std::uint32_t code = module_.tryGenerateBill(request.get());
        std::printf("%s: 0x%08X, %d messages, sizes told %d times, %s, %s\n", what, code, messages_, SizesTold,
                    ::GetFileAttributesA(page_.c_str()) != INVALID_FILE_ATTRIBUTES ? "page" : "no page",
                    acknowledge_.IsSignalled() ? "acknowledged" : "not acknowledged");
    }

    void SignalStop() { stop_.Signal(); }

private:
    const CLoadedModule& module_;
    const char* requestFile_;
    std::string page_;
    int messages_ = 0;
    CHostWindow window_{[this](WPARAM, LPARAM) { ++messages_; }};
    CHostEvent stop_;
    CHostEvent acknowledge_;
};

void RunOddRequests(CTerminal& terminal) {
    terminal.Run("nothing odd", [](GenerateBillRequest&) {});
    terminal.Run("no window", [](GenerateBillRequest& request) { request.HostWindow = nullptr; });
    terminal.Run("a window that is gone", [](GenerateBillRequest& request) {
        request.HostWindow = CHostWindow([](WPARAM, LPARAM) {}).Handle();
    });
    terminal.Run("closed events", [](GenerateBillRequest& request) {
        request.StopEvent = ClosedEvent();
        request.AckEvent = ClosedEvent();
    });
    terminal.Run("stop without an event for the answer", [&](GenerateBillRequest& request) {
        request.AckEvent = nullptr;
        terminal.SignalStop();
    });
    terminal.Run("stop, and the event for the answer is closed", [&](GenerateBillRequest& request) {
        request.AckEvent = ClosedEvent();
        terminal.SignalStop();
    });
    terminal.Run("no events", [](GenerateBillRequest& request) { request.StopEvent = request.AckEvent = nullptr; });
    terminal.Run("an account without statements", [](GenerateBillRequest& request) { request.Account[0] = 'x'; });
    terminal.Run("a user without a folder", [](GenerateBillRequest& request) { request.UserFolder[0] = 'x'; });
    terminal.Run("nothing but zeros", [](GenerateBillRequest& request) { request = {}; });
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    const CLoadedModule module(argv[1]);
    if (!module.IsUsable()) return 1;
    module.setRootFolder(argv[2]);
    module.setRootFolder(nullptr);  // changes nothing
    CTerminal terminal(module, argv[2], argv[3]);
    RunOddRequests(terminal);
    std::printf("no request: structured exception 0x%08X, ", CodeRaisedBy(module.generateBill, nullptr));
    std::printf("TryGenerateBill says 0x%08X\n", module.tryGenerateBill(nullptr));
    terminal.Run("nothing odd again", [](GenerateBillRequest&) {});
    return 0;
}
