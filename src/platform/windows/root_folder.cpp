#include "platform/root_folder.h"

#include <windows.h>

#include "platform/paths.h"

namespace tradebill {
namespace {

/// Whether a path ends in a separator: a backslash may also be the second byte of a character.
bool EndsInSeparator(const std::string& path) {
    const char* const last = ::CharPrevA(path.c_str(), path.c_str() + path.size());
    return *last == '/' || *last == '\\';
}

}  // namespace

std::string ProgramFolder() {
    std::string path(MAX_PATH, '\0');
    path.resize(::GetModuleFileNameA(nullptr, path.data(), MAX_PATH));
    return FolderOf(path).substr(0, kLongestPath);
}

std::string RootFolderAt(std::string_view path) {
    std::string root(path.substr(0, kLongestPath));
    while (root.size() > 1 && EndsInSeparator(root)) root.pop_back();
    return root;
}

}  // namespace tradebill
