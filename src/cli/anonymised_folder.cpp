#include "cli/anonymised_folder.h"

#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/file.h"
#include "platform/paths.h"
#include "platform/root_folder.h"
#include "platform/system_error.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// The longest name below the folder.
constexpr std::string_view kLongestName = "/Users/user1000/Data/Bill/DWP012345678901234.20240102o.txt";

/// Whether `path`, which needn't be there, lies in `folder` or is it.
bool LiesIn(const std::string& path, const std::string& folder) {
    for (std::string level = AbsolutePath(path);;) {
        if (IsSameFile(level, folder)) return true;
        const std::string above = FolderOf(level);
        if (above == level || above.empty()) return false;
        level = above;
    }
}

std::runtime_error Failure(const std::string& path) {
    const std::string reason = SystemErrorText(LastSystemError());
    return std::runtime_error("can't write " + path + (reason.empty() ? "" : ": " + reason) +
                              "; nothing of the copy is left");
}

}  // namespace

CAnonymisedFolder::CAnonymisedFolder(const std::string& out, const std::string& root) : out_(RootFolderAt(out)) {
    if (out_.empty()) throw CUsageError("--out: expected a folder, found \"" + out + "\"");
    if (out.size() + kLongestName.size() > kLongestPath) {
        throw CUsageError("--out: expected a path of at most " + std::to_string(kLongestPath - kLongestName.size()) +
                          " bytes, found " + std::to_string(out.size()));
    }
    if (LiesIn(out_, root)) throw CUsageError("--out: expected a folder outside of ROOT, found \"" + out + "\"");
    if (IsFolder(out_)) {
        const auto names = NamesIn(out_);
        if (!names)
            throw CUsageError("--out: expected an empty folder, found \"" + out + "\", which can't be looked into");
        if (!names->empty()) {
            throw CUsageError("--out: expected an empty folder or a new one, found \"" + out + "\", which isn't empty");
        }
    } else if (IsPlainFile(out_) || IsOtherThanFile(out_)) {
        throw CUsageError("--out: expected a folder, found a file at \"" + out + "\"");
    } else if (!IsFolder(FolderOf(out_))) {
        throw CUsageError("--out: expected a folder to make in one that is there, found \"" + out + "\"");
    }
}

CAnonymisedFolder::~CAnonymisedFolder() {
    if (isKept_) return;
    for (const std::string& file : files_) static_cast<void>(RemoveFile(file));
    for (auto folder = folders_.rbegin(); folder != folders_.rend(); ++folder) static_cast<void>(RemoveFolder(*folder));
}

void CAnonymisedFolder::Make(const std::string& folder) {
    if (IsFolder(folder)) return;
    if (folder != out_) Make(folder.substr(0, folder.rfind('/')));
    ForgetSystemError();
    if (!MakeFolder(folder)) throw Failure(folder);
    folders_.push_back(folder);
}

void CAnonymisedFolder::Write(const std::string& name, std::string_view bytes) {
    const std::string path = out_ + "/" + name;
    Make(path.substr(0, path.rfind('/')));
    ForgetSystemError();
    const auto write = [&](CFile& file) { return file.Write(bytes); };
    if (!SaveInOneStep(path, write, Durability::AsItComes)) throw Failure(path);
    files_.push_back(path);
}

}  // namespace tradebill
