#include "platform/lock_file.h"

#include <windows.h>

#include <array>

#include "platform/system_error.h"
#include "platform/windows/unique_handle.h"

namespace tradebill {
namespace {

HANDLE HandleOf(std::intptr_t file) {
    return reinterpret_cast<HANDLE>(file);
}

}  // namespace

/// Whoever holds the file has it open, and lets others read it alone. It goes with its last handle.
CLockFile::State CLockFile::Take(Which which) {
    ForgetSystemError();
    const HANDLE file = ::CreateFileA(path_.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                                      which == Which::MadeIfMissing ? OPEN_ALWAYS : OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        const DWORD error = ::GetLastError();
        // A file that is about to go refuses everybody.
        return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED ? State::Taken : State::Failed;
    }
    handle_ = reinterpret_cast<std::intptr_t>(file);
    return State::Held;
}

void CLockFile::Name(std::string_view holder) const {
    const HANDLE file = HandleOf(*handle_);
    DWORD written = 0;
    ::SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    if (::WriteFile(file, holder.data(), static_cast<DWORD>(holder.size()), &written, nullptr) != FALSE) {
        ::SetEndOfFile(file);
    }
}

bool CLockFile::Release() {
    if (!handle_) return true;
    const bool isGone = ::CloseHandle(HandleOf(*handle_)) != FALSE;
    handle_.reset();
    state_ = State::Failed;
    return isGone;
}

std::string HolderIn(const std::string& path) {
    constexpr DWORD kAllSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const CUniqueHandle file(
        ::CreateFileA(path.c_str(), GENERIC_READ, kAllSharing, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    std::array<char, 256> holder{};
    DWORD size = 0;
    if (!file.IsValid() || ::ReadFile(file.Get(), holder.data(), holder.size(), &size, nullptr) == FALSE) return {};
    return std::string(holder.data(), size);
}

}  // namespace tradebill
