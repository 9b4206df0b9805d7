#include "driver/run_folder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "images/report_images.h"
#include "platform/local_time.h"
#include "platform/lock_file.h"
#include "platform/paths.h"
#include "platform/process.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kNamePrefix = ".tradebill-";
constexpr std::string_view kLockName = "lock";

/// Two runs may get the same name: the second one then finds it taken, and gets another.
std::string NewName(int attempt) {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
    constexpr int kLength = 10;
    const std::string times = std::to_string(PresentTime()) + " " + std::to_string(SteadyMicroseconds());
    const std::string origin = OwnProcessName() + " " + times + " " + std::to_string(attempt);
    std::string name(kNamePrefix);
    for (auto [left, rest] = std::pair(kLength, std::uint64_t{std::hash<std::string>{}(origin)}); left > 0; --left) {
        name += kLetters[static_cast<std::size_t>(rest % kLetters.size())];
        rest /= kLetters.size();
    }
    return name;
}

/// Of all files that a run may make in its folder, the lock last.
std::vector<std::string_view> RunFileNames() {
    std::vector<std::string_view> names = ReportPictureNames();
    names.insert(names.end(), {kWorkPage, kPageCopy, kLockName});
    return names;
}

std::string LockIn(const std::string& folder) {
    return folder + "/" + std::string(kLockName);
}

/// Removes files, all below one folder, which `path` names at first and in the end. Needs no memory if `path` has it.
bool RemoveFiles(std::string& path, std::span<const std::string_view> names) {
    const std::size_t folder = path.size();
    bool areGone = true;
    for (const std::string_view name : names) {
        path.append("/").append(name);
        areGone = RemoveFile(path) && areGone;
        path.resize(folder);
    }
    return areGone;
}

/// A run holds its lock before it makes anything else: what lies in a folder without one is nobody's. What no run makes
/// stays, and its folder with it.
void RemoveIfDead(std::string folder) {
    if (IsLink(folder)) return;
    CLockFile lock(LockIn(folder), CLockFile::Which::FoundOnly);
    if (!lock.IsHeld() && (lock.IsTaken() || !MeansMissing(LastSystemError()))) return;
    std::vector<std::string_view> names = RunFileNames();
    names.pop_back();  // the lock, which is held meanwhile
    if (RemoveFiles(folder, names) && lock.Release()) RemoveFolder(folder);
}

void RemoveDeadFolders(const std::string& place) {
    const auto names = NamesIn(place);
    if (!names) return;
    for (const std::string& name : *names) {
        if (name.starts_with(kNamePrefix)) RemoveIfDead(std::string(place).append("/").append(name));
    }
}

}  // namespace

CRunFolder::CRunFolder(const std::string& place) : names_(RunFileNames()) {
    constexpr int kMostAttempts = 100;
    const std::string_view longest = std::ranges::max(names_, {}, &std::string_view::size);
    RemoveDeadFolders(place);
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        path_ = place + "/" + NewName(attempt);
        path_.reserve(path_.size() + 1 + longest.size());
        isTooDeep_ = !IsOpenablePath(PathOf(longest));
        if (isTooDeep_ || Make() != Made::NameIsTaken) return;
    }
}

CRunFolder::~CRunFolder() {
    RemoveAll();
}

/// Between its two steps somebody may take the folder for that of a dead run.
CRunFolder::Made CRunFolder::Make() {
    if (!MakeOwnFolder(path_)) {
        const std::uint32_t error = LastSystemError();
        reason_ = SystemErrorText(error);
        return MeansThere(error) ? Made::NameIsTaken : Made::Never;
    }
    lock_.emplace(LockIn(path_), CLockFile::Which::MadeIfMissing);
    if (lock_->IsHeld()) return Made::Folder;
    const std::uint32_t error = LastSystemError();
    reason_ = SystemErrorText(error);
    const bool isTaken = lock_->IsTaken() || MeansMissing(error);
    lock_.reset();
    RemoveFolder(path_);  // unless something is in it
    return isTaken ? Made::NameIsTaken : Made::Never;
}

bool CRunFolder::Remove() {
    if (RemoveAll()) return true;
    reason_ = SystemErrorText(LastSystemError());
    return false;
}

/// Where memory or descriptors have run out too.
bool CRunFolder::RemoveAll() noexcept {
    if (!lock_) return true;
    lock_.reset();
    // Mostly it is empty by now. What fails once may go well the second time.
    return RemoveFolder(path_) || (RemoveFiles(path_, names_) && RemoveFolder(path_));
}

}  // namespace tradebill
