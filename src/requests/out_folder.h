// Folders that the user names for the program to write to.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// `given`, the value of `option`, without separators at its end. Throws CUsageError unless the folder is there or can
/// be made in one step, and what ends with `longestName` is no longer than a path that the module writes.
[[nodiscard]] std::string FolderToWrite(const std::string& option, const std::string& given,
                                        std::string_view longestName);

/// The same for --out, where page and pictures go; empty if none is given.
[[nodiscard]] std::string OutFolderOf(const std::optional<std::string>& folder);

}  // namespace tradebill
