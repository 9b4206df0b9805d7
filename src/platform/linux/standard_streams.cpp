#include "platform/standard_streams.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>

namespace tradebill {
namespace {

/// A descriptor that can be neither read nor written, whatever the machine has of devices.
int OpenNothing() {
    return ::open("/", O_PATH | O_DIRECTORY);
}

void IgnoreSignal(int /*signal*/) {}

}  // namespace

void HoldStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // The lowest free number is taken, and all below are.
        if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) static_cast<void>(OpenNothing());
    }
    // A handler, since programs that are started from here would inherit that the signal is ignored.
    struct sigaction action {};
    action.sa_handler = IgnoreSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGPIPE, SIGXFSZ}) ::sigaction(signal, &action, nullptr);
}

std::optional<std::string> ReadStandardInput() {
    constexpr std::size_t kStep = std::size_t{64} << 10;
    std::string content;
    std::array<char, kStep> buffer;
    for (;;) {
        const ssize_t got = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (got == 0) return content;
        if (got > 0) {
            content.append(buffer.data(), static_cast<std::size_t>(got));
        } else if (errno == EAGAIN) {
            pollfd input{STDIN_FILENO, POLLIN, 0};
            ::poll(&input, 1, -1);
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
}

bool CloseStandardOutput() {
    return ::close(STDOUT_FILENO) == 0;
}

bool HasReaderLeft() {
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    return ::poll(&output, 1, 0) > 0 && (output.revents & (POLLERR | POLLHUP)) != 0;
}

}  // namespace tradebill
