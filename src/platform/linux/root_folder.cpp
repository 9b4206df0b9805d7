#include "platform/root_folder.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/paths.h"

namespace tradebill {

std::string ProgramFolder() {
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : executable.parent_path().string().substr(0, kLongestPath);
}

std::string RootFolderAt(std::string_view path) {
    path = path.substr(0, kLongestPath);
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    return std::string(path);
}

}  // namespace tradebill
