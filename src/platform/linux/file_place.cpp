#include "platform/file_place.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/paths.h"

namespace tradebill {
namespace {

using Rights = CFilePlaces::Rights;
using Folder = CFilePlaces::Folder;

constexpr mode_t kModeBits = 07777;

Rights RightsIn(const struct stat& status) {
    return {status.st_gid, status.st_mode & kModeBits};
}

std::optional<Rights> RightsOf(const std::string& file) {
    struct stat status {};
    return ::lstat(file.c_str(), &status) == 0 ? std::optional(RightsIn(status)) : std::nullopt;
}

std::optional<Folder> FolderAt(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    const bool isInherited = (status.st_mode & S_ISGID) != 0;
    return Folder{path, isInherited ? std::optional<std::uint32_t>(status.st_gid) : std::nullopt};
}

/// Its group first, since the system takes rights away from what gets another one.
bool TakeOver(const std::string& file, const Rights& own, const Rights& rights) {
    constexpr uid_t kSameOwner = static_cast<uid_t>(-1);
    const bool hasOtherGroup = rights.group != own.group;
    if (hasOtherGroup && ::chown(file.c_str(), kSameOwner, rights.group) != 0 && errno != EPERM) return false;
    if (rights.mode == own.mode && !hasOtherGroup) return true;
    return ::chmod(file.c_str(), rights.mode) == 0;
}

}  // namespace

bool CFilePlaces::Put(const std::string& from, const std::string& to) {
    if (!made_) made_ = RightsOf(from);
    struct stat there {};
    const bool isThere = ::lstat(to.c_str(), &there) == 0;
    if (!made_ || (!isThere && errno != ENOENT)) return false;
    if (isThere && !S_ISREG(there.st_mode) && !S_ISLNK(there.st_mode)) {
        errno = EEXIST;
        return false;
    }
    Rights rights = *made_;
    if (isThere && S_ISREG(there.st_mode)) {
        rights = RightsIn(there);
    } else {
        const std::string path = FolderOf(to);
        if (!folder_ || folder_->path != path) folder_ = FolderAt(path);
        if (!folder_) return false;
        rights.group = folder_->group.value_or(rights.group);
    }
    return TakeOver(from, *made_, rights) && MoveOver(from, to);
}

}  // namespace tradebill
