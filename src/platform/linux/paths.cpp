#include "platform/paths.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/limits.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/linux/uninterrupted.h"

namespace tradebill {
namespace {

constexpr mode_t kFolderRights = 0777;  // less the user's mask
constexpr mode_t kOwnFolderRights = 0700;

bool IsGone(int result) {
    return result == 0 || errno == ENOENT || errno == ENOTDIR;
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

}  // namespace

bool IsFolder(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

bool IsPlainFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

bool IsOtherThanFile(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

std::string Utf8Path(const std::string& path) {
    return path;
}

std::string PathOfUtf8(std::string_view text) {
    return std::string(text);
}

bool IsSameFile(const std::string& one, const std::string& other) {
    std::error_code error;
    return std::filesystem::equivalent(one, other, error);
}

bool IsLink(const std::string& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return errno != ENOENT && errno != ENOTDIR;
    return S_ISLNK(status.st_mode);
}

bool MayBeFolder(const std::string& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return errno != ENOENT && errno != ENOTDIR;
    return S_ISDIR(status.st_mode) || S_ISLNK(status.st_mode);
}

bool MakeFolder(const std::string& path) {
    if (Uninterrupted([&] { return ::mkdir(path.c_str(), kFolderRights); }) == 0) return true;
    const int error = errno;
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode)) return true;
        errno = ENOTDIR;
    } else if (error != EEXIST) {
        errno = error;
    }
    return false;
}

bool MakeOwnFolder(const std::string& path) {
    return Uninterrupted([&] { return ::mkdir(path.c_str(), kOwnFolderRights); }) == 0;
}

bool MakeFolders(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return IsFolder(path);
}

bool MoveOver(const std::string& from, const std::string& to) {
    return Uninterrupted([&] { return std::rename(from.c_str(), to.c_str()); }) == 0;
}

bool ExchangeFolders(const std::string& one, const std::string& other) {
    return Uninterrupted(
               [&] { return ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE); }) == 0;
}

bool LinkFile(const std::string& from, const std::string& to) {
    return Uninterrupted([&] { return ::link(from.c_str(), to.c_str()); }) == 0;
}

bool RemoveFile(const std::string& path) {
    return IsGone(Uninterrupted([&] { return ::unlink(path.c_str()); }));
}

bool RemoveFolder(const std::string& path) {
    return IsGone(Uninterrupted([&] { return ::rmdir(path.c_str()); }));
}

std::optional<std::vector<std::string>> NamesIn(const std::string& folder) {
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.c_str()));
    if (open == nullptr) return std::nullopt;
    std::vector<std::string> names;
    for (errno = 0; const dirent* const entry = ::readdir(open.get()); errno = 0) {
        const std::string_view name = static_cast<const char*>(entry->d_name);
        if (name != "." && name != "..") names.emplace_back(name);
    }
    return errno == 0 ? std::optional(std::move(names)) : std::nullopt;
}

bool IsOpenablePath(const std::string& path) {
    return path.size() < PATH_MAX;
}

bool IsAbsolutePath(std::string_view path) {
    return path.starts_with('/');
}

std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    std::string absolute = std::filesystem::absolute(path, error).string();
    if (error == std::errc::not_enough_memory) throw std::bad_alloc();  // told as such, not as a path of nothing
    return absolute;
}

std::string FolderOf(const std::string& path) {
    return std::filesystem::path(AbsolutePath(path)).parent_path().string();
}

std::string FileNameOf(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

std::string NativePath(std::string path) {
    return path;
}

}  // namespace tradebill
