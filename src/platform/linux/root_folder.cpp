#include "platform/root_folder.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

namespace tradebill {
namespace {

constexpr std::size_t kLongestRoot = 259;

std::string ExecutableFolder() {
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : executable.parent_path().string().substr(0, kLongestRoot);
}

std::string& Root() {
    static std::string root = ExecutableFolder();
    return root;
}

}  // namespace

const std::string& RootFolder() {
    return Root();
}

void SetRootFolderPath(std::string_view path) {
    path = path.substr(0, kLongestRoot);
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    Root() = path;
}

}  // namespace tradebill
