// A batch that runs beside the test, as a process of its own.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "cli/batch_fixture.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill {

class BatchProcess : public BatchFixture {
protected:
    ~BatchProcess() override {
        if (batch_ > 0) {
            ::kill(batch_, SIGKILL);
            ::waitpid(batch_, nullptr, 0);
        }
    }

    /// Starts a batch and goes on.
    void Start(const std::string& arguments) { StartProgram(TRADEBILL_PROGRAM, arguments); }
    /// The same of a copy of the program, by a shell that does something before.
    void StartProgram(const std::string& program, const std::string& arguments, const std::string& before = "") {
        const std::string command = before + "exec " + Quoted(program) + " batch --root " + Quoted(root_) + " --out " +
                                    Quoted(out_) + " " + arguments + " >" + Quoted(folder_.Path("out1")) + " 2>" +
                                    Quoted(folder_.Path("err1"));
        batch_ = ::fork();
        if (batch_ == 0) {
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
    [[nodiscard]] bool HasLines(std::ptrdiff_t count) const { return Lines() >= count; }
    /// The exit code; the negative signal of one that was killed.
    int End() {
        int status = 0;
        ::waitpid(batch_, &status, 0);
        batch_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    /// The processes that the batch has started.
    [[nodiscard]] std::vector<pid_t> Workers() const {
        const std::string batch = std::to_string(batch_);
        std::vector<pid_t> workers;
        // Threads of the batch start them: each has children of its own.
        for (const auto& task : std::filesystem::directory_iterator("/proc/" + batch + "/task")) {
            std::istringstream children(ReadFile(task.path().string() + "/children"));
            for (pid_t child = 0; children >> child;) workers.push_back(child);
        }
        return workers;
    }

    pid_t batch_ = 0;
};

}  // namespace tradebill
