// Runs a program and makes one of its system calls fail, or ends it there. The kernel stops the program at every call
// of kTracedCalls, those that the C library makes by itself included, which no preloaded library would see.
//
// fault_injector LOG [--at CALL OBJECT NUMBER HOW[:ERROR]] [--apart PREFIX]... [--until PATH] -- PROGRAM ARGUMENT...
//
// Without --at, LOG gets a line for each call: its name, object, the second path of two, and "changes" if it changes
// the disk or else "-". With it, only the calls that were meddled with; it takes the call of this name on this object
// with this number, from 1. A random part of a name, as a run's own folder and files have, is a * in LOG and OBJECT.
// HOW is
//   once:ERROR   the call isn't made and fails
//   ever:ERROR   this call and all later ones of its name do; not those on PREFIXes, nor on the standard error
//   half         the call moves half of the bytes
//   halves       this call and all later ones of its name do; exceptions as above
//   full:ERROR   the call moves half of the bytes, and all later ones of its name fail; exceptions as above
//   kill         the program is killed before the call is made
// Nothing fails any more once the program has asked whether it may access PATH.
// A close always closes, and then fails, as the kernel's do. The last line of LOG is "exit STATUS" or "signal NUMBER".
#include <fcntl.h>
#include <limits.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fault_plan.h"
#include "traced_calls.h"

namespace tradebill {
namespace {

using Arguments = std::array<unsigned long long, 6>;

Arguments ArgumentsOf(const user_regs_struct& registers) {
    return {registers.rdi, registers.rsi, registers.rdx, registers.r10, registers.r8, registers.r9};
}

/// The program's memory from `address` on, as much of `size` bytes as is there.
std::string Memory(pid_t task, unsigned long long address, std::size_t size) {
    std::string bytes(size, '\0');
    iovec here{bytes.data(), bytes.size()};
    iovec there{reinterpret_cast<void*>(address), bytes.size()};
    const ssize_t got = ::process_vm_readv(task, &here, 1, &there, 1, 0);
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
}

/// A zero-terminated text; read to the ends of pages, since what follows needn't be mapped.
std::string Text(pid_t task, unsigned long long address) {
    constexpr std::size_t kPage = 4096;
    std::string text;
    while (text.size() < PATH_MAX) {
        const std::string piece = Memory(task, address + text.size(), kPage - (address + text.size()) % kPage);
        if (piece.empty()) return text;
        const std::size_t end = piece.find('\0');
        if (end != std::string::npos) return text + piece.substr(0, end);
        text += piece;
    }
    return text;
}

std::string LinkTarget(const std::string& link) {
    std::array<char, PATH_MAX> target{};
    const ssize_t size = ::readlink(link.c_str(), target.data(), target.size());
    return size > 0 ? std::string(target.data(), static_cast<std::size_t>(size)) : std::string();
}

std::string ProcPath(pid_t task, const std::string& name) {
    return "/proc/" + std::to_string(task) + "/" + name;
}

/// What a descriptor stands for: a path, or one of stdin, stdout and stderr.
std::string DescriptorObject(pid_t task, unsigned long long argument) {
    static constexpr std::array<const char*, 3> kStandard = {"stdin", "stdout", "stderr"};
    const int descriptor = static_cast<int>(argument);
    if (descriptor == AT_FDCWD) return LinkTarget(ProcPath(task, "cwd"));
    if (descriptor >= 0 && descriptor < 3) return kStandard[static_cast<std::size_t>(descriptor)];
    return LinkTarget(ProcPath(task, "fd/" + std::to_string(descriptor)));
}

/// The path with a * for what is random in it.
std::string WithoutDice(std::string path) {
    static constexpr std::string_view kRandomName = "/.tradebill-";
    if (path.starts_with("pipe:")) return "pipe";
    for (std::size_t at = path.find(kRandomName); at != std::string::npos; at = path.find(kRandomName, at + 1)) {
        const std::size_t begin = at + kRandomName.size();
        path.replace(begin, std::min(path.find('/', begin), path.size()) - begin, "*");
    }
    return path;
}

std::string PathObject(pid_t task, unsigned long long folder, unsigned long long path) {
    const std::string text = Text(task, path);
    if (text.starts_with('/')) return text;
    const std::string base = DescriptorObject(task, folder);
    return text.empty() ? base : base + "/" + text;
}

struct Objects {
    std::string first;
    std::string second;  ///< empty unless the call has two paths
};

Objects ObjectsOf(pid_t task, ObjectPlace place, const Arguments& arguments) {
    const auto here = static_cast<unsigned long long>(AT_FDCWD);
    switch (place) {
        case ObjectPlace::Path:
            return {PathObject(task, here, arguments[0]), {}};
        case ObjectPlace::PathAt:
            return {PathObject(task, arguments[0], arguments[1]), {}};
        case ObjectPlace::TwoPaths:
            return {PathObject(task, here, arguments[0]), PathObject(task, here, arguments[1])};
        case ObjectPlace::TwoPathsAt:
            return {PathObject(task, arguments[0], arguments[1]), PathObject(task, arguments[2], arguments[3])};
        case ObjectPlace::Mapping:
            return {DescriptorObject(task, arguments[4]), {}};
        case ObjectPlace::Descriptor:
            break;
    }
    return {DescriptorObject(task, arguments[0]), {}};
}

bool ChangesDisk(const TracedCall& call, const Arguments& arguments) {
    if (call.effect != CallEffect::ByFlags) return call.effect == CallEffect::Changes;
    const unsigned long long flags = call.place == ObjectPlace::PathAt ? arguments[2] : arguments[1];
    return (flags & (O_CREAT | O_TRUNC)) != 0;
}

/// Bytes that a call on `descriptor` which asks for `asked` can move: a read gets no more than the file has.
unsigned long long Movable(pid_t task, unsigned long long descriptor, unsigned long long asked, bool reads) {
    struct stat file {};
    const std::string path = ProcPath(task, "fd/" + std::to_string(static_cast<int>(descriptor)));
    if (!reads || ::stat(path.c_str(), &file) != 0 || !S_ISREG(file.st_mode)) return asked;
    return std::min(asked, static_cast<unsigned long long>(file.st_size));
}

/// Makes a call of several buffers one of the first that isn't empty, and moves half of it. Returns false if there is
/// none.
bool HalveFirstBuffer(pid_t task, bool reads, user_regs_struct& registers) {
    for (unsigned long long i = 0; i < registers.rdx; ++i) {
        const std::string bytes = Memory(task, registers.rsi + i * sizeof(iovec), sizeof(iovec));
        iovec buffer{};
        if (bytes.size() != sizeof buffer) return false;
        std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char*>(&buffer));
        if (buffer.iov_len == 0) continue;
        registers.orig_rax = static_cast<unsigned long long>(reads ? SYS_read : SYS_write);
        registers.rsi = reinterpret_cast<unsigned long long>(buffer.iov_base);
        registers.rdx = (buffer.iov_len + 1) / 2;
        return true;
    }
    return false;
}

/// Has the call move half of its bytes. Returns false if it moves fewer than two.
bool Halve(pid_t task, const TracedCall& call, user_regs_struct& registers) {
    const bool reads = call.effect == CallEffect::None;
    if (call.halving == Halving::Vector) return HalveFirstBuffer(task, reads, registers);
    const unsigned long long bytes = Movable(task, registers.rdi, registers.rdx, reads);
    if (call.halving == Halving::No || bytes < 2) return false;
    registers.rdx = bytes / 2;
    return true;
}

class CInjector {
public:
    explicit CInjector(Plan plan) : plan_(std::move(plan)), log_(plan_.log) {
        for (const TracedCall& call : kTracedCalls) calls_[call.number] = &call;
    }

    /// Returns what the program's end means for a shell, or 125 if it can't be watched.
    int Run() {
        const pid_t program = ::fork();
        if (program < 0) return 125;
        if (program == 0) StartProgram();
        int status = 0;
        if (::waitpid(program, &status, 0) != program || !WIFSTOPPED(status)) return 125;
        const long options = PTRACE_O_TRACESECCOMP | PTRACE_O_TRACECLONE | PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK |
                             PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
        if (::ptrace(PTRACE_SETOPTIONS, program, nullptr, options) != 0) return 125;
        ::ptrace(PTRACE_CONT, program, nullptr, 0L);
        return Watch(program);
    }

private:
    [[noreturn]] void StartProgram() const {
        std::vector<sock_filter> filter = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
        for (const TracedCall& call : kTracedCalls) {
            const auto number = static_cast<std::uint32_t>(call.number);
            if (call.place == ObjectPlace::Mapping) {
                constexpr std::uint32_t kNoFile = 0xFFFFFFFF;
                filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 4));
                filter.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args) + 4 * 8));
                filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kNoFile, 0, 1));
                filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
            } else {
                filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1));
            }
            filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
        }
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
        sock_fprog rules{static_cast<unsigned short>(filter.size()), filter.data()};
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
            ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &rules) != 0) {
            ::_exit(125);
        }
        ::execv(plan_.program[0], plan_.program);
        ::_exit(127);
    }

    int Watch(pid_t program) {
        int answer = 125;
        for (;;) {
            int status = 0;
            const pid_t task = ::waitpid(-1, &status, __WALL);
            if (task < 0) return answer;
            if (!WIFSTOPPED(status)) {
                if (task == program) answer = End(status);
                continue;
            }
            Resume(task, status);
        }
    }

    int End(int status) {
        if (WIFSIGNALED(status)) {
            log_ << "signal " << WTERMSIG(status) << std::endl;
            return 128 + WTERMSIG(status);
        }
        log_ << "exit " << WEXITSTATUS(status) << std::endl;
        return WEXITSTATUS(status);
    }

    void Resume(pid_t task, int status) {
        const int signal = WSTOPSIG(status);
        if (status >> 8 == (SIGTRAP | PTRACE_EVENT_SECCOMP << 8)) {
            OnCall(task);
        } else if (signal == (SIGTRAP | 0x80)) {
            OnReturn(task);
        } else {
            const bool ofTracing = signal == SIGTRAP || signal == SIGSTOP;
            ::ptrace(PTRACE_CONT, task, nullptr, ofTracing ? 0L : static_cast<long>(signal));
        }
    }

    void OnCall(pid_t task) {
        user_regs_struct registers{};
        ::ptrace(PTRACE_GETREGS, task, nullptr, &registers);
        const TracedCall& call = *calls_.at(static_cast<long>(registers.orig_rax));
        if (!plan_.until.empty() && call.number == SYS_access) {
            over_ = over_ || ObjectsOf(task, call.place, ArgumentsOf(registers)).first == plan_.until;
        }
        if (plan_.how == How::List) {
            Log(task, call, registers);
        } else if (!over_ && plan_.call == call.name && Concerns(task, call, registers)) {
            Meddle(task, call, registers);
            return;
        }
        ::ptrace(PTRACE_CONT, task, nullptr, 0L);
    }

    /// Whether the plan says something of this call, whose name is the plan's.
    bool Concerns(pid_t task, const TracedCall& call, const user_regs_struct& registers) {
        const std::string object = WithoutDice(ObjectsOf(task, call.place, ArgumentsOf(registers)).first);
        if (object == plan_.object) ++count_;
        if (!reached_) return reached_ = object == plan_.object && count_ == plan_.at;
        const bool goesOn = plan_.how == How::Ever || plan_.how == How::Halves || plan_.how == How::Full;
        const auto isOf = [&](const std::string& prefix) { return object.starts_with(prefix); };
        return goesOn && object != "stderr" && std::none_of(plan_.apart.begin(), plan_.apart.end(), isOf);
    }

    void Meddle(pid_t task, const TracedCall& call, user_regs_struct& registers) {
        const bool halves = plan_.how == How::Half || plan_.how == How::Halves || (plan_.how == How::Full && !halved_);
        if (plan_.how == How::Kill) {
            Log(task, call, registers);
            ::kill(task, SIGKILL);
            return;
        }
        if (halves) {
            const user_regs_struct before = registers;
            halved_ = Halve(task, call, registers);
            if (halved_) Log(task, call, before);
        } else {
            Log(task, call, registers);
            if (call.number == SYS_close) {
                ::ptrace(PTRACE_SYSCALL, task, nullptr, 0L);
                return;
            }
            registers.orig_rax = static_cast<unsigned long long>(-1);
            registers.rax = static_cast<unsigned long long>(-plan_.error);
        }
        ::ptrace(PTRACE_SETREGS, task, nullptr, &registers);
        ::ptrace(PTRACE_CONT, task, nullptr, 0L);
    }

    /// A close that has closed, and is to fail.
    void OnReturn(pid_t task) const {
        user_regs_struct registers{};
        ::ptrace(PTRACE_GETREGS, task, nullptr, &registers);
        registers.rax = static_cast<unsigned long long>(-plan_.error);
        ::ptrace(PTRACE_SETREGS, task, nullptr, &registers);
        ::ptrace(PTRACE_CONT, task, nullptr, 0L);
    }

    void Log(pid_t task, const TracedCall& call, const user_regs_struct& registers) {
        const Arguments arguments = ArgumentsOf(registers);
        const Objects objects = ObjectsOf(task, call.place, arguments);
        log_ << call.name << '\t' << WithoutDice(objects.first) << '\t' << WithoutDice(objects.second) << '\t'
             << (ChangesDisk(call, arguments) ? "changes" : "-") << '\n';
    }

    Plan plan_;
    std::ofstream log_;
    std::map<long, const TracedCall*> calls_;
    long count_ = 0;        ///< calls of the plan's name and object
    bool reached_ = false;  ///< whether the plan's call has come
    bool halved_ = false;
    bool over_ = false;  ///< whether nothing is to fail any more
};

}  // namespace
}  // namespace tradebill

int main(int, char** arguments) {
    tradebill::Plan plan;
    if (!tradebill::ReadPlan(arguments + 1, plan)) {
        std::cerr << "usage: fault_injector LOG [--at CALL OBJECT NUMBER HOW[:ERROR]] [--apart PREFIX]... -- PROGRAM "
                     "ARGUMENT...\n";
        return 125;
    }
    return tradebill::CInjector(std::move(plan)).Run();
}
