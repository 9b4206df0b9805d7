#include "intake/linux/process_apart.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {
namespace {

constexpr char kWhole = '+';  // stands behind all that a process hands over

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::string ReadAll(int file) {
    constexpr std::size_t kPiece = 65536;
    std::array<char, kPiece> piece;  // NOLINT(cppcoreguidelines-pro-type-member-init)
    std::string bytes;
    for (;;) {
        const ssize_t size = ::read(file, piece.data(), piece.size());
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) return bytes;
        bytes.append(piece.data(), static_cast<std::size_t>(size));
    }
}

/// Bytes of memory that this process can write to now, of which sanitizers have more than there are; 0 if unknown.
rlim_t MemoryInUse() {
    constexpr int kDataField = 5;
    std::ifstream fields("/proc/self/statm");
    rlim_t pages = 0;
    for (int field = 0; field <= kDataField; ++field) fields >> pages;
    return fields ? pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) : 0;
}

/// A crash is expected: it shall leave neither words nor a core, and what never ends or takes ever more shall end.
void ExpectTheWorst(unsigned mostSeconds) {
    const rlimit noCore{0, 0};
    const rlimit fewSeconds{mostSeconds, mostSeconds};
    constexpr rlim_t kMoreMemory = rlim_t{400} << 20;
    const rlim_t memory = MemoryInUse();
    const rlimit fewMemory{memory + kMoreMemory, memory + kMoreMemory};
    if (memory > 0) ::setrlimit(RLIMIT_DATA, &fewMemory);
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::setrlimit(RLIMIT_CPU, &fewSeconds);
    for (const int signal : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL, SIGXCPU, SIGPIPE}) ::signal(signal, SIG_DFL);
}

[[noreturn]] void WorkAndEnd(const std::function<std::string()>& work, unsigned mostSeconds, int out) {
    ExpectTheWorst(mostSeconds);
    bool isDone = false;
    try {
        std::string result = work();
        result += kWhole;
        isDone = WriteAll(out, result);
    } catch (...) {  // short of memory: the result isn't whole
        isDone = false;
    }
    ::_exit(isDone ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

std::optional<std::string> DoneApart(const std::function<std::string()>& work, unsigned mostSeconds) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return std::nullopt;
    const pid_t process = ::fork();
    if (process == 0) WorkAndEnd(work, mostSeconds, ends[1]);
    ::close(ends[1]);
    std::string result = process > 0 ? ReadAll(ends[0]) : std::string();
    ::close(ends[0]);
    int status = 0;
    while (process > 0 && ::waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    if (!result.ends_with(kWhole)) return std::nullopt;
    result.pop_back();
    return result;
}

}  // namespace tradebill
