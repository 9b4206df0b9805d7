// The program with its streams where a test wants them.
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>
#include <vector>

#include "cli/program_fixture.h"

namespace tradebill {

class RedirectedProgram : public Program {
protected:
    /// Runs the program with `redirections` of the shell, in the test's folder; its messages are in Messages().
    [[nodiscard]] int RunTo(const std::string& redirections, const std::string& arguments) const {
        return RunShell("cd " + Quoted(folder_.Path()) + " && " + Quoted(TRADEBILL_PROGRAM) + " " + arguments +
                        " 2>err " + redirections);
    }
    [[nodiscard]] std::string Messages() const { return ReadFile(folder_.Path("err")); }

    /// Runs the program with its output in a pipe that nobody reads any more. -1 if it didn't end by itself.
    [[nodiscard]] int RunWithoutReader(std::vector<std::string> arguments) const {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) return -1;
        ::close(ends[0]);
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, folder_.Path("err").c_str(),
                                           O_WRONLY | O_CREAT | O_TRUNC, 0600);
        std::string program = TRADEBILL_PROGRAM;
        std::vector<char*> words{program.data()};
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        pid_t child = 0;
        const int failure = ::posix_spawn(&child, program.c_str(), &actions, nullptr, words.data(), environ);
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
        int status = -1;
        if (failure != 0 || ::waitpid(child, &status, 0) != child) return -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

}  // namespace tradebill
