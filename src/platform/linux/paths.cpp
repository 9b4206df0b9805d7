#include "platform/paths.h"

#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace tradebill {

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

bool IsSameFile(const std::string& one, const std::string& other) {
    std::error_code error;
    return std::filesystem::equivalent(one, other, error);
}

bool MakeFolder(const std::string& path) {
    std::error_code error;
    return IsFolder(path) || std::filesystem::create_directory(path, error);
}

bool MakeFolders(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return IsFolder(path);
}

bool MoveOver(const std::string& from, const std::string& to) {
    std::error_code error;
    std::filesystem::rename(from, to, error);
    return !error;
}

void RemoveFile(const std::string& path) {
    ::unlink(path.c_str());
}

std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    return std::filesystem::absolute(path, error).string();
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
