#include "cli/out_folder.h"

#include <optional>
#include <string>
#include <string_view>

#include "cli/usage_error.h"
#include "platform/paths.h"

namespace tradebill {
namespace {

/// The longest name below the folder, while it is being written.
constexpr std::string_view kLongestName = "/Image_files/TradeStatistics.jpg.part";

/// A root stays a folder by a dot.
std::string WithoutSeparators(std::string folder) {
    while (!folder.empty() && folder.ends_with('/')) folder.pop_back();
    return folder.empty() ? "/." : folder;
}

}  // namespace

std::string OutFolderOf(const std::optional<std::string>& folder) {
    if (!folder) return {};
    if (folder->empty()) throw CUsageError("--out: expected a folder, found \"\"");
    std::string out = WithoutSeparators(*folder);
    if (IsPlainFile(out) || (IsOtherThanFile(out) && !IsFolder(out))) {
        throw CUsageError("--out: expected a folder, found a file at \"" + *folder + "\"");
    }
    if (!IsFolder(out) && !IsFolder(FolderOf(out))) {
        throw CUsageError("--out: expected a folder, or one to make in a folder that is there, found \"" + *folder +
                          "\"");
    }
    if (out.size() + kLongestName.size() > kLongestPath) {
        throw CUsageError("--out: expected a path of at most " + std::to_string(kLongestPath - kLongestName.size()) +
                          " bytes, found " + std::to_string(out.size()));
    }
    return out;
}

}  // namespace tradebill
