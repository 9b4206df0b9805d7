// A window that the module tells of the end of a report.
#pragma once

#include <windows.h>

#include <functional>
#include <utility>

/// Never seen: it is there for messages only. Belongs to the thread that makes it.
class CHostWindow {
public:
    static constexpr UINT kReportMessage = WM_APP + 1;  ///< what hosts give as NotifyMessage

    /// `onReport` gets the message's parameters, on the thread of the window.
    explicit CHostWindow(std::function<void(WPARAM, LPARAM)> onReport) : onReport_(std::move(onReport)) {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = Receive;
        windowClass.hInstance = ::GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "tradebill example host";
        ::RegisterClassA(&windowClass);  // again for a second window, which does no harm
        handle_ = ::CreateWindowExA(0, windowClass.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    windowClass.hInstance, nullptr);
        ::SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    CHostWindow(const CHostWindow&) = delete;
    CHostWindow& operator=(const CHostWindow&) = delete;
    ~CHostWindow() { ::DestroyWindow(handle_); }

    [[nodiscard]] HWND Handle() const { return handle_; }

private:
    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* const self = reinterpret_cast<CHostWindow*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
        if (message != kReportMessage || self == nullptr) return ::DefWindowProcA(window, message, wParam, lParam);
        self->onReport_(wParam, lParam);
        return 0;
    }

    std::function<void(WPARAM, LPARAM)> onReport_;
    HWND handle_ = nullptr;
};
