// A terminal that loads the module when a report is wanted: ten times in a row, and once for many reports. It counts
// what the module doesn't give back, and ends with 1 if that grows.
//
// Usage: load_host TRADEBILL.DLL ROOT REQUEST.INI
#include <tradebill/report_request.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

#include "host_event.h"
#include "host_window.h"
#include "loaded_module.h"
#include "request_file.h"
#include "resource_count.h"

namespace {

/// Whether the counts see what somebody doesn't give back.
bool CountsSeeLeaks() {
    const ResourceCount before = CountResources();
    const HGDIOBJ pen = ::CreatePen(PS_SOLID, 1, 0);
    const CHostEvent event;
    const DWORD slot = ::TlsAlloc();
    const std::unique_ptr<char, void (*)(void*)> memory(static_cast<char*>(std::calloc(1, 1 << 20)), std::free);
    const ResourceCount after = CountResources();
    ::TlsFree(slot);
    ::DeleteObject(pen);
    return after.gdiObjects == before.gdiObjects + 1 && after.handles == before.handles + 1 &&
           after.threadSlots == before.threadSlots + 1 && after.memory >= before.memory + (1 << 20);
}

class CReports {
public:
    CReports(const char* module, const char* root, const char* requestFile)
        : module_(module), root_(root), request_(ReadRequestFile(requestFile)), refused_(ReadRequestFile(requestFile)) {
        request_->HostWindow = window_.Handle();
        request_->NotifyMessage = CHostWindow::kReportMessage;
        SetDates(*refused_, "2024-1-32", "2024-2-1");
    }

    /// Loads the module, makes `count` reports, is refused two, unloads the module. What is held after every ten
    /// reports is added to `held`.
    bool Make(int count, std::vector<ResourceCount>* held) {
        const CLoadedModule module(module_);
        if (!module.IsUsable()) return false;
        module.setRootFolder(root_);
        for (int i = 0; i < count; ++i) {
            messages_ = 0;
            if (module.tryGenerateBill(request_.get()) != 0 || messages_ != 1) return false;
            if (held != nullptr && (i + 1) % 10 == 0) held->push_back(CountResources());
        }
        return IsRefused(module) && IsRefusedElsewhere(module);
    }

    [[nodiscard]] bool IsLoaded() const { return ::GetModuleHandleA(module_) != nullptr; }

private:
    [[nodiscard]] bool IsRefused(const CLoadedModule& module) const {
        return module.tryGenerateBill(refused_.get()) == 0x80004005;
    }

    /// An error leaves traces in the thread that meets it, which ends before the module does.
    [[nodiscard]] bool IsRefusedElsewhere(const CLoadedModule& module) const {
        bool isRefused = false;
        std::thread([&] { isRefused = IsRefused(module); }).join();
        return isRefused;
    }

    const char* module_;
    const char* root_;
    std::unique_ptr<GenerateBillRequest> request_;
    std::unique_ptr<GenerateBillRequest> refused_;
    int messages_ = 0;
    CHostWindow window_{[this](WPARAM, LPARAM) { ++messages_; }};
};

bool FailsOn(bool isBad, const char* what) {
    if (isBad) std::printf("%s\n", what);
    return isBad;
}

/// The first rounds fill what the system keeps for the whole process, such as its list of fonts.
bool LoadTenTimes(CReports& reports) {
    constexpr int kRounds = 10;
    constexpr std::size_t kWarm = 3;
    std::vector<ResourceCount> held;
    for (int round = 0; round < kRounds; ++round) {
        if (FailsOn(!reports.Make(1, nullptr), "no report")) return false;
        if (FailsOn(reports.IsLoaded(), "the module is still there")) return false;
        held.push_back(CountResources());
    }
    return IsSteady("loads 4 to 10", held[kWarm - 1], held.back());
}

bool ReportFiftyTimes(CReports& reports) {
    std::vector<ResourceCount> held;
    if (FailsOn(!reports.Make(50, &held), "no report")) return false;
    return IsSteady("reports 11 to 50", held.front(), held.back());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    if (FailsOn(!CountsSeeLeaks(), "the counts don't see leaks")) return 1;
    CReports reports(argv[1], argv[2], argv[3]);
    const bool isLoadingSteady = LoadTenTimes(reports);
    return ReportFiftyTimes(reports) && isLoadingSteady ? 0 : 1;
}
