#include "platform/stop_signal.h"

#include <windows.h>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace tradebill {
namespace {

// What the system's own thread may touch.
std::atomic<const std::function<void()>*> OnStop = nullptr;
std::atomic<int> ExitAtOnce = 0;
std::atomic<bool> HasAsked = false;

/// The system ends the program when this returns, where it isn't a key that was pressed.
BOOL WINAPI HandleStop(DWORD event) {
    const auto* const onStop = OnStop.load();
    if (onStop == nullptr) return FALSE;
    if (HasAsked.exchange(true)) ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(ExitAtOnce.load()));
    (*onStop)();
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) ::Sleep(INFINITE);
    return TRUE;
}

BOOL WINAPI PassOver(DWORD /*event*/) {
    return TRUE;
}

}  // namespace

struct CStopSignal::State {
    std::function<void()> onStop;
};

CStopSignal::CStopSignal(std::function<void()> onStop, int exitAtOnce)
    : state_(std::make_unique<State>(std::move(onStop))) {
    HasAsked = false;
    ExitAtOnce = exitAtOnce;
    OnStop = &state_->onStop;
    ::SetConsoleCtrlHandler(HandleStop, TRUE);
}

CStopSignal::~CStopSignal() {
    ::SetConsoleCtrlHandler(HandleStop, FALSE);
    OnStop = nullptr;
}

bool CStopSignal::IsAsked() const {
    return HasAsked.load();
}

void IgnoreStopSignals() {
    ::SetConsoleCtrlHandler(PassOver, TRUE);
}

}  // namespace tradebill
