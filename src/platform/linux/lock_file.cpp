#include "platform/lock_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/linux/uninterrupted.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

int Descriptor(std::intptr_t handle) {
    return static_cast<int>(handle);
}

int Open(const std::string& path, CLockFile::Which which) {
    constexpr mode_t kRights = 0644;  // others may read who holds it
    const int making = which == CLockFile::Which::MadeIfMissing ? O_CREAT : 0;
    return Uninterrupted([&] { return ::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | making, kRights); });
}

/// Nobody can be kept out there, and nobody finds a lock to take for one of the dead.
bool MeansNoLocks(int error) {
    return error == ENOLCK || error == ENOSYS || error == EOPNOTSUPP || error == EINVAL;
}

enum class Place { Kept, Lost, Unknown };

/// Whether the file is still at its path: its last holder may have removed it meanwhile.
Place PlaceOf(int file) {
    struct stat own {};
    bool isKnown = false;
    for (int tries = 2; !isKnown && tries > 0; --tries) isKnown = ::fstat(file, &own) == 0;
    if (!isKnown) return Place::Unknown;
    return own.st_nlink > 0 ? Place::Kept : Place::Lost;
}

/// Tries to hold what was opened at `path`.
CLockFile::State Lock(int file, const std::string& path, CLockFile::Which which) {
    using State = CLockFile::State;
    if (Uninterrupted([&] { return ::flock(file, LOCK_EX | LOCK_NB); }) != 0) {
        if (errno == EWOULDBLOCK) return State::Taken;
        return which == CLockFile::Which::MadeIfMissing && MeansNoLocks(errno) ? State::Held : State::Failed;
    }
    switch (PlaceOf(file)) {
        case Place::Kept:
            return State::Held;
        case Place::Lost:
            return State::Taken;
        case Place::Unknown:
            break;
    }
    const CSystemErrorKeeper reason;
    ::unlink(path.c_str());
    return State::Failed;
}

}  // namespace

CLockFile::State CLockFile::Take(Which which) {
    ForgetSystemError();
    const int file = Open(path_, which);
    if (file < 0) return State::Failed;
    const State state = Lock(file, path_, which);
    if (state == State::Held) {
        handle_ = file;
    } else {
        const CSystemErrorKeeper reason;
        ::close(file);
    }
    return state;
}

void CLockFile::Name(std::string_view holder) const {
    const int file = Descriptor(*handle_);
    if (::ftruncate(file, 0) != 0) return;
    static_cast<void>(::pwrite(file, holder.data(), holder.size(), 0) < 0);
}

bool CLockFile::Release() {
    if (!handle_) return true;
    bool isGone = ::unlink(path_.c_str()) == 0 || errno == ENOENT;
    if (!isGone) isGone = ::unlink(path_.c_str()) == 0;
    const CSystemErrorKeeper reason;
    ::close(Descriptor(*handle_));
    handle_.reset();
    state_ = State::Failed;
    return isGone;
}

std::string HolderIn(const std::string& path) {
    const int file = Uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW); });
    if (file < 0) return {};
    std::array<char, 256> holder{};
    const ssize_t size = Uninterrupted([&] { return ::pread(file, holder.data(), holder.size(), 0); });
    ::close(file);
    return size > 0 ? std::string(holder.data(), static_cast<std::size_t>(size)) : std::string();
}

}  // namespace tradebill
