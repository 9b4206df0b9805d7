#include "driver/run_folder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
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

bool IsRunFile(std::string_view name) {
    if (name == kWorkPage || name == kPageCopy) return true;
    const auto pictures = ReportPictureNames();
    return std::ranges::find(pictures, name) != pictures.end();
}

std::string_view LongestName() {
    const auto pictures = ReportPictureNames();
    return std::ranges::max(pictures, {}, &std::string_view::size);
}

std::string LockIn(const std::string& folder) {
    return folder + "/" + std::string(kLockName);
}

/// Removes the files that a run makes, and nothing else that somebody may have laid beside them.
bool RemoveRunFiles(const std::string& folder) {
    const auto names = NamesIn(folder);
    if (!names) return MeansMissing(LastSystemError());
    return std::ranges::all_of(
        *names, [&folder](const std::string& name) { return !IsRunFile(name) || RemoveFile(folder + "/" + name); });
}

/// A run holds its lock before it makes anything else: what lies in a folder without one is nobody's.
void RemoveIfDead(const std::string& folder) {
    if (IsLink(folder)) return;
    CLockFile lock(LockIn(folder), CLockFile::Which::FoundOnly);
    if (!lock.IsHeld() && (lock.IsTaken() || !MeansMissing(LastSystemError()))) return;
    if (RemoveRunFiles(folder) && lock.Release()) RemoveFolder(folder);
}

void RemoveDeadFolders(const std::string& place) {
    const auto names = NamesIn(place);
    if (!names) return;
    for (const std::string& name : *names) {
        if (name.starts_with(kNamePrefix)) RemoveIfDead(place + "/" + name);
    }
}

}  // namespace

CRunFolder::CRunFolder(const std::string& place) {
    constexpr int kMostAttempts = 100;
    RemoveDeadFolders(place);
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        path_ = place + "/" + NewName(attempt);
        isTooDeep_ = !IsOpenablePath(PathOf(LongestName()));
        if (isTooDeep_ || Make() != Made::NameIsTaken) return;
    }
}

CRunFolder::~CRunFolder() {
    Remove();
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
    if (!isTaken && RemoveFile(LockIn(path_))) RemoveFolder(path_);
    return isTaken ? Made::NameIsTaken : Made::Never;
}

bool CRunFolder::Remove() {
    if (!lock_) return true;
    lock_.reset();
    // Mostly it is empty by now. What fails once may go well the second time.
    if (RemoveFolder(path_)) return true;
    if (RemoveRunFiles(path_) && RemoveFile(LockIn(path_)) && RemoveFolder(path_)) return true;
    reason_ = SystemErrorText(LastSystemError());
    return false;
}

}  // namespace tradebill
