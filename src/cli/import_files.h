// The files that `import` is given.
#pragma once

#include <string>
#include <vector>

namespace tradebill {

struct UnreadFolder {
    std::string path;
    std::string reason = {};  ///< in the system's words, UTF-8
};

struct FoundFiles {
    std::vector<std::string> files = {};
    std::vector<UnreadFolder> unread = {};
};

/// All files of `paths`, those right in a folder for it but its hidden ones (".name"), sorted by their names without
/// folders. Throws CUsageError for a path where nothing is.
[[nodiscard]] FoundFiles FindFiles(const std::vector<std::string>& paths);

}  // namespace tradebill
