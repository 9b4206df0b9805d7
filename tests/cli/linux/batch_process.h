// A batch that runs beside the test, as a process of its own.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <cstddef>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/batch_fixture.h"
#include "cli/linux/started_program.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill {

class BatchProcess : public BatchFixture, protected StartedProgram {
protected:
    /// Starts a batch and goes on.
    void Start(const std::string& arguments) { StartProgram(TRADEBILL_PROGRAM, arguments); }
    /// The same of a copy of the program, by a shell that does something before.
    void StartProgram(const std::string& program, const std::string& arguments, const std::string& before = "") {
        const std::string command = before + "exec " + Quoted(program) + " batch --root " + Quoted(root_) + " --out " +
                                    Quoted(out_) + " " + arguments + " >" + Quoted(folder_.Path("out1")) + " 2>" +
                                    Quoted(folder_.Path("err1"));
        StartShell(command);
    }
    [[nodiscard]] bool HasLines(std::ptrdiff_t count) const { return Lines() >= count; }
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

    pid_t& batch_ = process_;
};

}  // namespace tradebill
