#include "platform/paths.h"

#include <windows.h>

#include <shlwapi.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/system_error.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/wide_text.h"

namespace tradebill {
namespace {

constexpr DWORD kOtherKinds = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;

/// What tells one file from all others.
std::optional<BY_HANDLE_FILE_INFORMATION> IdentityOf(const std::string& path) {
    constexpr DWORD kAllSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const CUniqueHandle file(
        ::CreateFileA(path.c_str(), 0, kAllSharing, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION identity{};
    if (!file.IsValid() || ::GetFileInformationByHandle(file.Get(), &identity) == FALSE) return std::nullopt;
    return identity;
}

/// As its folder has it, whatever it leads to.
std::optional<WIN32_FIND_DATAA> EntryAt(const std::string& path) {
    WIN32_FIND_DATAA found{};
    const HANDLE search = ::FindFirstFileA(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return std::nullopt;
    ::FindClose(search);
    return found;
}

}  // namespace

bool IsFolder(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsPlainFile(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kOtherKinds) == 0;
}

bool IsOtherThanFile(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kOtherKinds) != 0;
}

std::string Utf8Path(const std::string& path) {
    return Utf8Of(WidePath(path));
}

std::string PathOfUtf8(std::string_view text) {
    return NarrowOf(CP_ACP, WideOfUtf8(text));
}

bool IsSameFile(const std::string& one, const std::string& other) {
    const auto first = IdentityOf(one);
    const auto second = IdentityOf(other);
    return first && second && first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
           first->nFileIndexHigh == second->nFileIndexHigh && first->nFileIndexLow == second->nFileIndexLow;
}

bool IsLink(const std::string& path) {
    const auto found = EntryAt(path);
    if (!found) return !MeansMissing(::GetLastError());
    // Other marks than those of links stand on files whose bytes lie elsewhere.
    return (found->dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(found->dwReserved0);
}

bool MayBeFolder(const std::string& path) {
    const auto found = EntryAt(path);
    if (!found) return !MeansMissing(::GetLastError());
    return (found->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool MakeFolder(const std::string& path) {
    if (::CreateDirectoryA(path.c_str(), nullptr) != FALSE) return true;
    const CSystemErrorKeeper reason;
    return IsFolder(path);
}

bool MakeOwnFolder(const std::string& path) {
    return ::CreateDirectoryA(path.c_str(), nullptr) != FALSE;
}

bool MakeFolders(const std::string& path) {
    if (IsFolder(path)) return true;
    const std::string above = FolderOf(path);
    if (above == AbsolutePath(path)) return false;
    return MakeFolders(above) && MakeFolder(path);
}

bool MoveOver(const std::string& from, const std::string& to) {
    return ::MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE;
}

bool ExchangeFolders(const std::string& /*one*/, const std::string& /*other*/) {
    ::SetLastError(ERROR_NOT_SUPPORTED);
    return false;
}

bool LinkFile(const std::string& from, const std::string& to) {
    return ::CreateHardLinkA(to.c_str(), from.c_str(), nullptr) != FALSE;
}

bool RemoveFile(const std::string& path) {
    return ::DeleteFileA(path.c_str()) != FALSE || MeansMissing(::GetLastError());
}

bool RemoveFolder(const std::string& path) {
    return ::RemoveDirectoryA(path.c_str()) != FALSE || MeansMissing(::GetLastError());
}

std::optional<std::vector<std::string>> NamesIn(const std::string& folder) {
    WIN32_FIND_DATAA found{};
    const HANDLE search = ::FindFirstFileA((folder + "/*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return std::nullopt;
    std::vector<std::string> names;
    do {
        const std::string name = &found.cFileName[0];
        if (name != "." && name != "..") names.push_back(name);
    } while (::FindNextFileA(search, &found) != FALSE);
    const DWORD end = ::GetLastError();
    ::FindClose(search);
    ::SetLastError(end);
    return end == ERROR_NO_MORE_FILES ? std::optional(std::move(names)) : std::nullopt;
}

bool IsOpenablePath(const std::string& path) {
    return path.size() <= kLongestPath;
}

bool IsAbsolutePath(std::string_view path) {
    const bool hasDrive = path.size() > 2 && path[1] == ':' && (path[2] == '\\' || path[2] == '/');
    return hasDrive || path.starts_with("\\\\") || path.starts_with("//");
}

std::string AbsolutePath(const std::string& path) {
    const DWORD size = ::GetFullPathNameA(path.c_str(), 0, nullptr, nullptr);
    std::string absolute(size, '\0');
    absolute.resize(::GetFullPathNameA(path.c_str(), size, absolute.data(), nullptr));
    return absolute;
}

std::string FolderOf(const std::string& path) {
    std::string folder = AbsolutePath(path);
    if (!folder.empty()) ::PathRemoveFileSpecA(folder.data());
    return folder.c_str();
}

std::string FileNameOf(const std::string& path) {
    return ::PathFindFileNameA(path.c_str());
}

std::string NativePath(std::string path) {
    std::ranges::replace(path, '/', '\\');  // a slash is never half of a character
    return path;
}

}  // namespace tradebill
