// Files as addresses, which terminals and browsers open at a click.
#pragma once

#include <string>

namespace tradebill {

/// The "file://" address of `path`, which is UTF-8 and absolute, with either system's separators: "C:\\a b" is
/// "file:///C:/a%20b", "\\\\host\\share" is "file://host/share". Every byte that has a meaning in an address, or is no
/// ASCII letter or digit, is written by its number.
[[nodiscard]] std::string FileAddress(std::string path);

/// The same of a path as the user gave it, which may be relative to the folder of the program; the path itself, if that
/// folder isn't there any more.
[[nodiscard]] std::string FileAddressOf(const std::string& path);

}  // namespace tradebill
