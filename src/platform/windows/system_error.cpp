#include "platform/system_error.h"

#include <windows.h>

#include <array>

#include "platform/windows/wide_text.h"

namespace tradebill {

std::uint32_t LastSystemError() {
    return ::GetLastError();
}

void SetSystemError(std::uint32_t error) {
    ::SetLastError(error);
}

std::string SystemErrorText(std::uint32_t error) {
    if (error == 0) return {};
    constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    std::array<wchar_t, 512> words{};
    const DWORD size =
        ::FormatMessageW(kFlags, nullptr, error, 0, words.data(), static_cast<DWORD>(words.size()), nullptr);
    std::wstring_view text(words.data(), size);
    while (!text.empty() && (text.back() == L' ' || text.back() == L'.' || text.back() == L'\u3002')) {
        text.remove_suffix(1);
    }
    return text.empty() ? "error " + std::to_string(error) : Utf8Of(text);
}

bool MeansMissing(std::uint32_t error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
           error == ERROR_FILENAME_EXCED_RANGE;
}

bool MeansThere(std::uint32_t error) {
    return error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS;
}

bool MayPass(std::uint32_t error) {
    return error == ERROR_TOO_MANY_OPEN_FILES || error == ERROR_NOT_ENOUGH_MEMORY || error == ERROR_OUTOFMEMORY ||
           error == ERROR_NO_SYSTEM_RESOURCES || error == ERROR_COMMITMENT_LIMIT || error == ERROR_IO_DEVICE ||
           error == ERROR_READ_FAULT;
}

}  // namespace tradebill
