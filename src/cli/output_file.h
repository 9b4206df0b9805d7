// Files that the user names for the program to write.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

namespace tradebill {

/// Throws CUsageError if there is a path, and it is no file in a folder that is there.
void CheckOutputFile(const char* option, const std::optional<std::string>& path);

/// Written beside its place first, so that nobody meets half a file. False if it can't be written; what was at `path`
/// stays then.
[[nodiscard]] bool SaveWhole(const std::string& path, const std::function<void(std::ostream&)>& write);

}  // namespace tradebill
