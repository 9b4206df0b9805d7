#include "requests/out_folder.h"

#include <optional>
#include <string>
#include <string_view>

#include "platform/paths.h"
#include "platform/root_folder.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// The longest name below the folder, while it is being written.
constexpr std::string_view kLongestName = "/Image_files/TradeStatistics.jpg.part";

}  // namespace

std::string FolderToWrite(const std::string& option, const std::string& given, std::string_view longestName) {
    if (given.empty()) throw CUsageError(option + ": expected a folder, found \"\"");
    if (given.size() + longestName.size() > kLongestPath) {
        throw CUsageError(option + ": expected a path of at most " + std::to_string(kLongestPath - longestName.size()) +
                          " bytes, found " + std::to_string(given.size()));
    }
    std::string folder = RootFolderAt(given);
    if (IsPlainFile(folder) || (IsOtherThanFile(folder) && !IsFolder(folder))) {
        throw CUsageError(option + ": expected a folder, found a file at \"" + given + "\"");
    }
    if (!IsFolder(folder) && !IsFolder(FolderOf(folder))) {
        throw CUsageError(option + ": expected a folder, or one to make in a folder that is there, found \"" + given +
                          "\"");
    }
    return folder;
}

std::string OutFolderOf(const std::optional<std::string>& folder) {
    return folder ? FolderToWrite("--out", *folder, kLongestName) : std::string();
}

}  // namespace tradebill
