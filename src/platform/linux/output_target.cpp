#include "platform/output_target.h"

#include <fcntl.h>
#include <sys/poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace tradebill {
namespace {

constexpr int kMostLinks = 40;  // as the system follows

/// The open stream that a path stands for, as /dev/fd/3 does. To follow it as a link would find a file that may be
/// another by now, and lose the place where the stream stands in it.
std::optional<int> StreamNamed(const std::string& path) {
    const std::string plain = std::filesystem::path(path).lexically_normal().string();
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        if (!plain.starts_with(folder)) continue;
        int stream = -1;
        const char* const end = plain.data() + plain.size();
        const auto [behind, error] = std::from_chars(plain.data() + folder.size(), end, stream);
        if (error == std::errc{} && behind == end && stream >= 0) return stream;
    }
    return std::nullopt;
}

/// What the last link of `path` leads to; nothing if there is none.
std::optional<std::string> LinkAt(const std::string& path) {
    std::error_code error;
    const std::filesystem::path next = std::filesystem::read_symlink(path, error);
    if (error) return std::nullopt;
    return (std::filesystem::path(path).parent_path() / next).string();
}

/// The path behind all links, or the stream among them that ends the search.
std::optional<std::string> FollowLinks(std::string path) {
    for (int links = 0; links <= kMostLinks; ++links) {
        if (StreamNamed(path)) return path;
        const auto next = LinkAt(path);
        if (!next) return path;
        path = *next;
    }
    return std::nullopt;
}

bool IsNoFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

/// A device takes what comes from all who write to it: there is nothing to be kept apart.
bool IsStandardOutput(const std::string& path) {
    struct stat output {};
    struct stat there {};
    return ::fstat(STDOUT_FILENO, &output) == 0 && !S_ISCHR(output.st_mode) && !S_ISDIR(output.st_mode) &&
           ::stat(path.c_str(), &there) == 0 && output.st_dev == there.st_dev && output.st_ino == there.st_ino;
}

int Open(const OutputTarget& target) {
    if (target.kind == OutputTarget::Kind::StandardOutput) return ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
    const auto end = FollowLinks(target.path);
    const auto stream = end ? StreamNamed(*end) : std::nullopt;
    if (stream) return ::fcntl(*stream, F_DUPFD_CLOEXEC, 0);
    int opened = -1;
    do {
        opened = ::open(target.path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    } while (opened < 0 && errno == EINTR);
    return opened;
}

int Descriptor(std::intptr_t handle) {
    return static_cast<int>(handle);
}

}  // namespace

std::optional<OutputTarget> FindOutputTarget(const std::string& path) {
    using Kind = OutputTarget::Kind;
    const auto end = FollowLinks(path);
    if (!end) return std::nullopt;
    const auto stream = StreamNamed(*end);
    if (stream == STDOUT_FILENO || IsStandardOutput(path)) return OutputTarget{Kind::StandardOutput, path};
    if (stream || IsNoFile(path)) return OutputTarget{Kind::Straight, path};
    return OutputTarget{Kind::File, *end};
}

CStraightOutput::CStraightOutput(const OutputTarget& target) : handle_(Open(target)) {}

CStraightOutput::~CStraightOutput() {
    if (IsOpen()) ::close(Descriptor(handle_));
}

bool CStraightOutput::IsOpen() const {
    return handle_ >= 0;
}

bool CStraightOutput::IsTerminal() const {
    return ::isatty(Descriptor(handle_)) != 0;
}

bool CStraightOutput::Close() {
    const int descriptor = Descriptor(handle_);
    handle_ = -1;
    return ::close(descriptor) == 0;
}

bool CStraightOutput::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(Descriptor(handle_), bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (written < 0 && errno == EAGAIN) {  // another program may have set what it shares so
            pollfd output{Descriptor(handle_), POLLOUT, 0};
            ::poll(&output, 1, -1);
        } else if (written == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace tradebill
