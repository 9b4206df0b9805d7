#include "platform/host_link.h"

#include <windows.h>

namespace tradebill {

void SendHostMessage(HostWindowHandle window, std::uint32_t message, std::uint64_t wParam) {
    if (window != nullptr) ::SendMessageA(static_cast<HWND>(window), message, wParam, 0);
}

bool WaitForEvent(HostEventHandle event, int milliseconds) {
    return event != nullptr && ::WaitForSingleObject(event, static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0;
}

void SignalEvent(HostEventHandle event) {
    if (event != nullptr) ::SetEvent(event);
}

void RaiseInHost(std::uint32_t code) {
    for (;;) ::RaiseException(code, EXCEPTION_NONCONTINUABLE, 0, nullptr);
}

}  // namespace tradebill
