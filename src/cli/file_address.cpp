#include "cli/file_address.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/paths.h"

namespace tradebill {
namespace {

constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/:";

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
    std::string address = path.starts_with("//") ? "file:" : HasDrive(path) ? "file:///" : "file://";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (const char byte : path) {
        if (kPlain.find(byte) != std::string_view::npos) {
            address += byte;
            continue;
        }
        const auto number = static_cast<unsigned char>(byte);
        address += {'%', kDigits[number >> 4U], kDigits[number & 15U]};
    }
    return address;
}

std::string FileAddressOf(const std::string& path) {
    const std::string absolute = AbsolutePath(path);
    return absolute.empty() ? Utf8Path(path) : FileAddress(Utf8Path(NativePath(absolute)));
}

}  // namespace tradebill
