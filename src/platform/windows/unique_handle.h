// Handles of the system, closed at the end of their scope.
#pragma once

#include <utility>

#include <windows.h>

namespace tradebill {

/// A kernel object. Both ways in which functions say that there is none count as none.
class CUniqueHandle {
public:
    explicit CUniqueHandle(HANDLE handle = nullptr) : handle_(handle) {}
    CUniqueHandle(CUniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    CUniqueHandle& operator=(CUniqueHandle&& other) noexcept {
        if (this != &other) Reset(std::exchange(other.handle_, nullptr));
        return *this;
    }
    ~CUniqueHandle() { Reset(); }

    /// Closes what it has, and takes `handle`.
    void Reset(HANDLE handle = nullptr) {
        if (IsValid()) ::CloseHandle(handle_);
        handle_ = handle;
    }

    [[nodiscard]] bool IsValid() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
};

}  // namespace tradebill
