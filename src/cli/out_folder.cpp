#include "cli/out_folder.h"

#include <optional>
#include <string>
#include <string_view>

#include "cli/usage_error.h"
#include "platform/paths.h"
#include "platform/root_folder.h"

namespace tradebill {
namespace {

/// The longest name below the folder, while it is being written.
constexpr std::string_view kLongestName = "/Image_files/TradeStatistics.jpg.part";

}  // namespace

std::string OutFolderOf(const std::optional<std::string>& folder) {
    if (!folder) return {};
    if (folder->empty()) throw CUsageError("--out: expected a folder, found \"\"");
    if (folder->size() + kLongestName.size() > kLongestPath) {
        throw CUsageError("--out: expected a path of at most " + std::to_string(kLongestPath - kLongestName.size()) +
                          " bytes, found " + std::to_string(folder->size()));
    }
    std::string out = RootFolderAt(*folder);
    if (IsPlainFile(out) || (IsOtherThanFile(out) && !IsFolder(out))) {
        throw CUsageError("--out: expected a folder, found a file at \"" + *folder + "\"");
    }
    if (!IsFolder(out) && !IsFolder(FolderOf(out))) {
        throw CUsageError("--out: expected a folder, or one to make in a folder that is there, found \"" + *folder +
                          "\"");
    }
    return out;
}

}  // namespace tradebill
