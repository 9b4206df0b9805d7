#include "platform/file_place.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <string>

#include "platform/linux/uninterrupted.h"
#include "platform/paths.h"

namespace tradebill {
namespace {

constexpr mode_t kModeBits = 07777;

/// What a file has to take over from the place that it goes to.
struct Rights {
    gid_t group;
    std::optional<mode_t> mode;  ///< nothing: its own is right
};

std::optional<Rights> OfPlain(const struct stat& there) {
    if (S_ISREG(there.st_mode)) return Rights{there.st_gid, there.st_mode & kModeBits};
    errno = EEXIST;
    return std::nullopt;
}

/// A file that is made in a folder gets the folder's group if the folder says so.
std::optional<Rights> OfNewIn(const std::string& folder, const struct stat& own) {
    struct stat above {};
    if (::stat(folder.c_str(), &above) != 0) return std::nullopt;
    return Rights{(above.st_mode & S_ISGID) != 0 ? above.st_gid : own.st_gid, std::nullopt};
}

/// Nothing, with a reason, for a place that no file can go to.
std::optional<Rights> RightsAt(const std::string& place, const struct stat& own) {
    struct stat there {};
    if (::lstat(place.c_str(), &there) == 0) {
        return S_ISLNK(there.st_mode) ? OfNewIn(FolderOf(place), own) : OfPlain(there);
    }
    return errno == ENOENT ? OfNewIn(FolderOf(place), own) : std::nullopt;
}

/// Its group first, since the system takes rights away from what gets another one.
bool TakeOver(const std::string& file, const struct stat& own, const Rights& rights) {
    constexpr uid_t kSameOwner = static_cast<uid_t>(-1);
    const bool hasOtherGroup = rights.group != own.st_gid;
    if (hasOtherGroup && ::chown(file.c_str(), kSameOwner, rights.group) != 0 && errno != EPERM) return false;
    const bool isSame = !rights.mode || (!hasOtherGroup && *rights.mode == (own.st_mode & kModeBits));
    return isSame || ::chmod(file.c_str(), *rights.mode) == 0;
}

}  // namespace

bool PutInPlace(const std::string& from, const std::string& to) {
    struct stat own {};
    if (::lstat(from.c_str(), &own) != 0) return false;
    const auto rights = RightsAt(to, own);
    if (!rights || !TakeOver(from, own, *rights)) return false;
    return Uninterrupted([&] { return std::rename(from.c_str(), to.c_str()); }) == 0;
}

}  // namespace tradebill
