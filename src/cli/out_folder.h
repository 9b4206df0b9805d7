// The folder that the user names for page and pictures.
#pragma once

#include <optional>
#include <string>

namespace tradebill {

/// `folder` without separators at its end; empty if none is given. Throws CUsageError unless it is there or can be made
/// in one step, and page and pictures have paths that the module writes.
[[nodiscard]] std::string OutFolderOf(const std::optional<std::string>& folder);

}  // namespace tradebill
