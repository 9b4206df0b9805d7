#include "cli/file_address.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/address.h"
#include "platform/paths.h"

namespace tradebill {
namespace {

bool HasDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':' && path.find('/') == 2;
}

/// A backslash parts folders on Windows alone: elsewhere it is part of a name.
bool IsWindowsPath(std::string_view path) {
    return path.starts_with("\\\\") || (path.size() > 2 && path[1] == ':' && (path[2] == '\\' || path[2] == '/'));
}

}  // namespace

std::string FileAddress(std::string path) {
    if (IsWindowsPath(path)) std::ranges::replace(path, '\\', '/');
    const std::string_view opening = path.starts_with("//") ? "file:" : HasDrive(path) ? "file:///" : "file://";
    return std::string(opening) + AddressPath(path, ":");
}

std::string FileAddressOf(const std::string& path) {
    const std::string absolute = AbsolutePath(path);
    return absolute.empty() ? Utf8Path(path) : FileAddress(Utf8Path(NativePath(absolute)));
}

}  // namespace tradebill
