#include "platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/system_error.h"

namespace tradebill {
namespace {

constexpr mode_t kNewFileRights = 0666;  // less the user's mask

int FlagsOf(FileMode mode) {
    switch (mode) {
        case FileMode::Read:
            return O_RDONLY;
        case FileMode::Create:
            return O_WRONLY | O_CREAT | O_TRUNC;
        case FileMode::CreateNew:
            return O_WRONLY | O_CREAT | O_EXCL;
        case FileMode::Append:
            return O_WRONLY | O_APPEND;
        case FileMode::Update:
            break;
    }
    return O_RDWR;
}

int Descriptor(std::intptr_t handle) {
    return static_cast<int>(handle);
}

}  // namespace

CFile::CFile(const std::string& path, FileMode mode) {
    do {
        ForgetSystemError();
        handle_ = ::open(path.c_str(), FlagsOf(mode) | O_CLOEXEC | O_NONBLOCK, kNewFileRights);
    } while (handle_ < 0 && errno == EINTR);
}

CFile::~CFile() {
    if (IsOpen()) ::close(Descriptor(handle_));
}

bool CFile::IsOpen() const {
    return handle_ >= 0;
}

bool CFile::IsAt(const std::string& path) const {
    struct stat own {};
    struct stat there {};
    return ::fstat(Descriptor(handle_), &own) == 0 && ::stat(path.c_str(), &there) == 0 && own.st_dev == there.st_dev &&
           own.st_ino == there.st_ino;
}

std::optional<std::uint64_t> CFile::Size() const {
    ForgetSystemError();
    struct stat status {};
    if (::fstat(Descriptor(handle_), &status) != 0) return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

bool CFile::Write(std::string_view bytes) {
    ForgetSystemError();
    while (!bytes.empty()) {
        const ssize_t written = ::write(Descriptor(handle_), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool CFile::WriteAt(std::uint64_t offset, std::string_view bytes) {
    ForgetSystemError();
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(Descriptor(handle_), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
        offset += static_cast<std::uint64_t>(written);
    }
    return true;
}

std::optional<std::size_t> CFile::ReadAt(std::uint64_t offset, char* buffer, std::size_t size) const {
    ForgetSystemError();
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = ::pread(Descriptor(handle_), buffer + done, size - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

std::optional<std::uint64_t> CFile::SizeOnDisk() const {
    ForgetSystemError();
    struct stat status {};
    if (::fstat(Descriptor(handle_), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

bool CFile::MakeDurable() {
    ForgetSystemError();
    int status = 0;
    do {
        status = ::fdatasync(Descriptor(handle_));
    } while (status != 0 && errno == EINTR);
    return status == 0 || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP;
}

/// Closed it is in any case. One that a signal broke off says nothing of what it still had to write.
bool CFile::Close() {
    if (!IsOpen()) return false;
    ForgetSystemError();
    const int descriptor = Descriptor(handle_);
    handle_ = -1;
    return ::close(descriptor) == 0;
}

std::optional<FileStamp> StampOf(const std::string& path) {
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return FileStamp{status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec,
                     static_cast<std::uint64_t>(status.st_size)};
}

}  // namespace tradebill
