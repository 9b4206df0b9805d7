#include "platform/root_folder.h"

#include <windows.h>

#include <cstddef>

#include "platform/paths.h"

namespace tradebill {
namespace {

constexpr std::size_t kLongestRoot = 259;

std::string ExecutableFolder() {
    std::string path(MAX_PATH, '\0');
    path.resize(::GetModuleFileNameA(nullptr, path.data(), MAX_PATH));
    return FolderOf(path).substr(0, kLongestRoot);
}

std::string& Root() {
    static std::string root = ExecutableFolder();
    return root;
}

/// Whether a path ends in a separator: a backslash may also be the second byte of a character.
bool EndsInSeparator(const std::string& path) {
    const char* const last = ::CharPrevA(path.c_str(), path.c_str() + path.size());
    return *last == '/' || *last == '\\';
}

}  // namespace

const std::string& RootFolder() {
    return Root();
}

void SetRootFolderPath(std::string_view path) {
    std::string root(path.substr(0, kLongestRoot));
    while (root.size() > 1 && EndsInSeparator(root)) root.pop_back();
    Root() = root;
}

}  // namespace tradebill
