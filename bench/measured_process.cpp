#include "measured_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <exception>

#include "timing.h"

namespace tradebill {
namespace {

double InSeconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

bool HasSucceeded(int status) {
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

ProcessCost RunCommand(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    ::posix_spawn_file_actions_init(&files);
    ::posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

    int status = -1;
    rusage usage{};
    const double wall = SecondsOf([&] {
        pid_t child = -1;
        if (::posix_spawn(&child, arguments[0], &files, nullptr, arguments.data(), ::environ) != 0) return;
        ::wait4(child, &status, 0, &usage);
    });
    ::posix_spawn_file_actions_destroy(&files);
    if (!HasSucceeded(status)) throw std::runtime_error("failed: " + command[0]);
    return {wall, InSeconds(usage.ru_utime) + InSeconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) * 1024};
}

namespace measured_process {
namespace {

[[noreturn]] void EndChild(const std::function<void()>& work, const void* result, std::size_t size, int pipe) {
    try {
        work();
        ::_exit(::write(pipe, result, size) == static_cast<ssize_t>(size) ? 0 : 1);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        ::_exit(1);
    }
}

}  // namespace

void RunInChild(const std::function<void()>& work, void* result, std::size_t size) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) EndChild(work, result, size, pipe[1]);
    ::close(pipe[1]);
    const bool hasResult = child > 0 && ::read(pipe[0], result, size) == static_cast<ssize_t>(size);
    ::close(pipe[0]);
    int status = -1;
    if (child > 0) ::waitpid(child, &status, 0);
    if (!hasResult || !HasSucceeded(status)) throw std::runtime_error("a measured process has failed");
}

}  // namespace measured_process
}  // namespace tradebill
