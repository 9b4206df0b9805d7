// A program that runs beside the test.
#pragma once

#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <thread>

#include "support/temp_folder.h"

namespace tradebill {

class StartedProgram {
protected:
    StartedProgram() = default;
    ~StartedProgram() {
        if (process_ > 0) {
            ::kill(process_, SIGKILL);
            ::waitpid(process_, nullptr, 0);
        }
    }
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    /// Starts a command line of the shell, which should end with an exec, and goes on.
    void StartShell(const std::string& command) {
        process_ = ::fork();
        if (process_ == 0) {
            // Tests may run in the background of a script, which ignores some.
            for (const int signal : {SIGINT, SIGHUP, SIGTERM}) ::signal(signal, SIG_DFL);
            ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            ::_exit(127);
        }
    }
    /// Whether `holds` comes true within a minute.
    static bool Becomes(const std::function<bool()>& holds) {
        for (int i = 0; i < 6000; ++i) {
            if (holds()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    }
    /// Whether the program has a handler of its own for a signal.
    [[nodiscard]] bool Catches(int signal) const {
        const std::string status = ReadFile("/proc/" + std::to_string(process_) + "/status");
        const std::size_t at = status.find("SigCgt:");
        return at != std::string::npos && (std::stoull(status.substr(at + 7), nullptr, 16) >> (signal - 1) & 1) != 0;
    }
    /// The exit code; the negative signal of one that was killed.
    int End() {
        int status = 0;
        ::waitpid(process_, &status, 0);
        process_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    pid_t process_ = 0;
};

}  // namespace tradebill
