#include "platform/worker_process.h"

#include <linux/prctl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/uninterrupted.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

/// All that a new process needs is made before it is: it may allocate nothing, since threads of the old one may hold
/// the heap.
std::vector<char*> ArgumentsOf(const WorkerStart& start) {
    std::vector<char*> pointers;
    pointers.push_back(const_cast<char*>(start.program.c_str()));
    for (const std::string& argument : start.arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

[[noreturn]] void BecomeWorker(char* const* arguments, int line, int parent, rlim_t mostMemory) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(EXIT_FAILURE);  // it has ended already
    ::setpgid(0, 0);                                   // a terminal's interrupt is for the one that is at work with it
    const rlimit limit{mostMemory, mostMemory};
    if (mostMemory > 0) ::setrlimit(RLIMIT_DATA, &limit);
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    if (::dup2(line, STDIN_FILENO) < 0 || ::dup2(line, STDOUT_FILENO) < 0) ::_exit(EXIT_FAILURE);
    ::execv(arguments[0], arguments);
    ::_exit(kExitNotStarted);
}

}  // namespace

struct CWorkerProcess::State {
    State(int started, int socket) : process(started), line(socket) {}
    ~State() {
        Kill();
        Wait();
        ::close(line);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    void Kill() {
        const std::lock_guard lock(mutex);
        if (!isOver) ::kill(-process, SIGKILL);  // with all that it has started, which holds its end of the line
    }

    /// The process is asked about once, and its number is another one's from then on.
    void Wait() {
        siginfo_t info{};
        // NOLINTNEXTLINE(misc-include-cleaner): <sys/wait.h> has them
        Uninterrupted([&] { return ::waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOWAIT); });
        const std::lock_guard lock(mutex);
        if (isOver) return;
        Uninterrupted([&] { return ::waitpid(process, &status, 0); });
        isOver = true;
    }

    const int process;
    const int line;  ///< a socket to its standard streams
    std::mutex mutex;
    bool isOver = false;
    int status = 0;
};

std::string OwnProgram() {
    return "/proc/self/exe";
}

CWorkerProcess::CWorkerProcess(const WorkerStart& start) {
    ForgetSystemError();
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return;
    const std::vector<char*> pointers = ArgumentsOf(start);
    const int parent = ::getpid();
    const int process = ::fork();
    if (process == 0) BecomeWorker(pointers.data(), ends[1], parent, start.mostMemory);
    const int failure = errno;
    ::close(ends[1]);
    if (process > 0) {
        ::setpgid(process, process);  // whoever of the two comes first
        state_ = std::make_unique<State>(process, ends[0]);
    } else {
        ::close(ends[0]);
        errno = failure;
    }
}

CWorkerProcess::~CWorkerProcess() = default;

bool CWorkerProcess::Ask(std::string_view line) {
    std::string bytes(line);
    bytes += '\n';
    for (std::string_view rest = bytes; !rest.empty();) {
        const ssize_t sent =
            Uninterrupted([&] { return ::send(state_->line, rest.data(), rest.size(), MSG_NOSIGNAL); });
        if (sent <= 0) return false;
        rest.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

std::optional<std::string> CWorkerProcess::Answer() {
    std::array<char, 4096> piece;  // NOLINT(cppcoreguidelines-pro-type-member-init)
    for (std::size_t searched = 0;;) {
        const std::size_t end = unread_.find('\n', searched);
        if (end != std::string::npos) {
            std::string answer = unread_.substr(0, end);
            unread_.erase(0, end + 1);
            return answer;
        }
        searched = unread_.size();
        const ssize_t size = Uninterrupted([&] { return ::read(state_->line, piece.data(), piece.size()); });
        if (size <= 0) return std::nullopt;
        unread_.append(piece.data(), static_cast<std::size_t>(size));
    }
}

void CWorkerProcess::Kill() {
    state_->Kill();
}

std::optional<int> CWorkerProcess::Finish() {
    ::shutdown(state_->line, SHUT_WR);
    state_->Wait();
    // NOLINTNEXTLINE(misc-include-cleaner): <sys/wait.h> has them
    return WIFEXITED(state_->status) ? std::optional(WEXITSTATUS(state_->status)) : std::nullopt;
}

}  // namespace tradebill
