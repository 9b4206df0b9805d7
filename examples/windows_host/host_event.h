// An event that a host shares with the module.
#pragma once

#include <windows.h>

class CHostEvent {
public:
    /// Stays signalled until it is reset: a run looks at its stop event more than once.
    CHostEvent() : handle_(::CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
    CHostEvent(const CHostEvent&) = delete;
    CHostEvent& operator=(const CHostEvent&) = delete;
    ~CHostEvent() { ::CloseHandle(handle_); }

    void Signal() { ::SetEvent(handle_); }
    void Reset() { ::ResetEvent(handle_); }
    void Wait() const { ::WaitForSingleObject(handle_, INFINITE); }
    [[nodiscard]] bool IsSignalled() const { return ::WaitForSingleObject(handle_, 0) == WAIT_OBJECT_0; }
    [[nodiscard]] HANDLE Handle() const { return handle_; }

private:
    HANDLE handle_;
};
