#include "cli/import_files.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/paths.h"
#include "platform/root_folder.h"
#include "platform/system_error.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// What systems, editors and programs that were killed leave in folders, this one among them. No broker names a
/// statement so.
bool IsHiddenName(const std::string& name) {
    return name.starts_with('.');
}

void AddFilesOf(const std::string& folder, FoundFiles& found) {
    ForgetSystemError();
    const auto names = NamesIn(folder);
    if (!names) {
        found.unread.push_back({folder, SystemErrorText(LastSystemError())});
        return;
    }
    for (const std::string& name : *names) {
        if (IsHiddenName(name)) continue;
        std::string path = RootFolderAt(folder) + "/" + name;
        if (!IsFolder(path)) found.files.push_back(std::move(path));
    }
}

}  // namespace

FoundFiles FindFiles(const std::vector<std::string>& paths) {
    FoundFiles found;
    for (const std::string& path : paths) {
        if (IsFolder(path)) {
            AddFilesOf(path, found);
        } else if (IsPlainFile(path) || IsOtherThanFile(path)) {
            found.files.push_back(path);
        } else {
            throw CUsageError("expected a file or a folder, found nothing at \"" + path + "\"");
        }
    }
    std::ranges::sort(found.files, [](const std::string& left, const std::string& right) {
        return std::pair(FileNameOf(left), left) < std::pair(FileNameOf(right), right);
    });
    return found;
}

}  // namespace tradebill
