// A host's window and events, on every system.
#pragma once

#include "driver/report_request.h"

#if defined(_WIN32)
#include "support/windows_header.h"

#include <cstdint>

namespace tradebill {

// What the module's Linux face offers to hosts, made of what a Windows host has.

using HostWindowFunction = void(void* context, std::uint32_t message, std::uint64_t wParam, std::int64_t lParam);

struct WindowReceiver {
    HostWindowFunction* function;
    void* context;
};

inline LRESULT CALLBACK ReceiveMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // The system's own messages are not for the test; those of the module are never among them.
    const auto* const receiver = reinterpret_cast<const WindowReceiver*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
    if (receiver == nullptr) return ::DefWindowProcA(window, message, wParam, lParam);
    if (receiver->function != nullptr) receiver->function(receiver->context, message, wParam, lParam);
    return 0;
}

/// A window that is never seen. It receives on the thread that made it.
inline HostWindowHandle CreateHostWindow(HostWindowFunction* function, void* context) {
    const HWND window = ::CreateWindowExA(0, "Static", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ReceiveMessage));
    ::SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(new WindowReceiver{function, context}));
    return window;
}

inline void DestroyHostWindow(HostWindowHandle window) {
    if (window == nullptr) return;
    const auto native = static_cast<HWND>(window);
    delete reinterpret_cast<WindowReceiver*>(::SetWindowLongPtrA(native, GWLP_USERDATA, 0));
    ::DestroyWindow(native);
}

inline HostEventHandle CreateHostEvent(std::int32_t manualReset) {
    return ::CreateEventA(nullptr, manualReset != 0 ? TRUE : FALSE, FALSE, nullptr);
}

inline void SignalHostEvent(HostEventHandle event) {
    if (event != nullptr) ::SetEvent(event);
}

inline void ResetHostEvent(HostEventHandle event) {
    if (event != nullptr) ::ResetEvent(event);
}

inline std::int32_t WaitForHostEvent(HostEventHandle event, std::int32_t milliseconds) {
    if (event == nullptr) return 0;
    return ::WaitForSingleObject(event, static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0 ? 1 : 0;
}

inline void DestroyHostEvent(HostEventHandle event) {
    if (event != nullptr) ::CloseHandle(event);
}

}  // namespace tradebill
#endif
