#include "platform/host_link.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <new>

#include "base/report_error.h"
#include "driver/report_request.h"

struct HostWindowObject {
    HostWindowFunction function;
    void* context;
};

struct HostEventObject {
    explicit HostEventObject(bool manual) : manualReset(manual) {}

    const bool manualReset;
    std::atomic<bool> signalled = false;  ///< changed under the lock alone
    std::mutex lock;
    std::condition_variable changed;
};

namespace tradebill {

void SendHostMessage(HostWindowHandle window, std::uint32_t message, std::uint64_t wParam) {
    if (window != nullptr && window->function != nullptr) window->function(window->context, message, wParam, 0);
}

bool WaitForEvent(HostEventHandle event, int milliseconds) {
    return WaitForHostEvent(event, milliseconds) != 0;
}

void SignalEvent(HostEventHandle event) {
    SignalHostEvent(event);
}

void RaiseInHost(std::uint32_t code) {
    throw CReportError(code);
}

}  // namespace tradebill

HostWindowHandle CreateHostWindow(HostWindowFunction function, void* context) {
    return new (std::nothrow) HostWindowObject{function, context};
}

void DestroyHostWindow(HostWindowHandle window) {
    delete window;
}

HostEventHandle CreateHostEvent(std::int32_t manualReset) {
    return new (std::nothrow) HostEventObject(manualReset != 0);
}

void SignalHostEvent(HostEventHandle event) {
    if (event == nullptr) return;
    {
        const std::scoped_lock guard(event->lock);
        event->signalled = true;
    }
    event->changed.notify_all();
}

void ResetHostEvent(HostEventHandle event) {
    if (event == nullptr) return;
    const std::scoped_lock guard(event->lock);
    event->signalled = false;
}

std::int32_t WaitForHostEvent(HostEventHandle event, std::int32_t milliseconds) {
    if (event == nullptr) return 0;
    if (milliseconds == 0 && !event->signalled.load(std::memory_order_acquire)) return 0;
    std::unique_lock guard(event->lock);
    const auto signalled = [event] { return event->signalled.load(); };
    if (milliseconds < 0) {
        event->changed.wait(guard, signalled);
    } else if (!event->changed.wait_for(guard, std::chrono::milliseconds(milliseconds), signalled)) {
        return 0;
    }
    if (!event->manualReset) event->signalled = false;
    return 1;
}

void DestroyHostEvent(HostEventHandle event) {
    delete event;
}
