#include "platform/output_target.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/windows/unique_handle.h"

namespace tradebill {
namespace {

constexpr DWORD kAllSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

CUniqueHandle OpenToLook(const std::string& path) {
    return CUniqueHandle(
        ::CreateFileA(path.c_str(), 0, kAllSharing, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

bool IsLink(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

/// The path behind all links; `path` itself if it can't be told.
std::string EndOf(HANDLE file, const std::string& path) {
    const DWORD size = ::GetFinalPathNameByHandleA(file, nullptr, 0, FILE_NAME_NORMALIZED);
    std::string end(size, '\0');
    const DWORD length = ::GetFinalPathNameByHandleA(file, end.data(), size, FILE_NAME_NORMALIZED);
    if (length == 0 || length >= size) return path;
    end.resize(length);
    return end;
}

bool IsStandardOutput(HANDLE file) {
    const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
    BY_HANDLE_FILE_INFORMATION own{};
    BY_HANDLE_FILE_INFORMATION there{};
    return ::GetFileType(output) == FILE_TYPE_DISK && ::GetFileInformationByHandle(output, &own) != FALSE &&
           ::GetFileInformationByHandle(file, &there) != FALSE &&
           own.dwVolumeSerialNumber == there.dwVolumeSerialNumber && own.nFileIndexHigh == there.nFileIndexHigh &&
           own.nFileIndexLow == there.nFileIndexLow;
}

HANDLE Open(const OutputTarget& target) {
    if (target.kind != OutputTarget::Kind::StandardOutput) {
        return ::CreateFileA(target.path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    const HANDLE process = ::GetCurrentProcess();
    HANDLE copy = INVALID_HANDLE_VALUE;
    const BOOL isCopied =
        ::DuplicateHandle(process, ::GetStdHandle(STD_OUTPUT_HANDLE), process, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return isCopied != FALSE ? copy : INVALID_HANDLE_VALUE;
}

HANDLE HandleOf(std::intptr_t output) {
    return reinterpret_cast<HANDLE>(output);
}

}  // namespace

std::optional<OutputTarget> FindOutputTarget(const std::string& path) {
    using Kind = OutputTarget::Kind;
    const CUniqueHandle file = OpenToLook(path);
    if (!file.IsValid()) return OutputTarget{Kind::File, path};
    if (IsStandardOutput(file.Get())) return OutputTarget{Kind::StandardOutput, path};
    if (::GetFileType(file.Get()) != FILE_TYPE_DISK) return OutputTarget{Kind::Straight, path};
    return OutputTarget{Kind::File, IsLink(path) ? EndOf(file.Get(), path) : path};
}

CStraightOutput::CStraightOutput(const OutputTarget& target) : handle_(reinterpret_cast<std::intptr_t>(Open(target))) {}

CStraightOutput::~CStraightOutput() {
    if (IsOpen()) ::CloseHandle(HandleOf(handle_));
}

bool CStraightOutput::IsOpen() const {
    return HandleOf(handle_) != INVALID_HANDLE_VALUE;
}

bool CStraightOutput::IsTerminal() const {
    DWORD mode = 0;
    return ::GetConsoleMode(HandleOf(handle_), &mode) != FALSE;
}

bool CStraightOutput::Close() {
    const HANDLE output = HandleOf(handle_);
    handle_ = reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE);
    return ::CloseHandle(output) != FALSE;
}

bool CStraightOutput::Write(std::string_view bytes) {
    constexpr std::size_t kStep = std::size_t{1} << 20;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kStep));
        if (::WriteFile(HandleOf(handle_), bytes.data(), size, &written, nullptr) == FALSE || written == 0) {
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

}  // namespace tradebill
