// A process that works for the one that starts it: asked line by line on its standard input, answering line by line on
// its standard output. It crashes alone, and can be ended from outside.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// A path by which this process may start the program again that it runs. On Linux it leads to the very file, also when
/// another has its name by now, or none.
[[nodiscard]] std::string OwnProgram();

/// The exit code of a process that could not become the program.
inline constexpr int kExitNotStarted = 126;

/// What is started, and what it may take.
struct WorkerStart {
    std::string program;                      ///< a file
    std::vector<std::string> arguments = {};  ///< UTF-8
    std::uint64_t mostMemory = 0;  ///< bytes, beyond which there is none left for it; 0: as many as there are
};

class CWorkerProcess {
public:
    /// Its error stream is that of this process. It ends with the thread that starts it, however that ends.
    explicit CWorkerProcess(const WorkerStart& start);
    /// Ends it at once.
    ~CWorkerProcess();
    CWorkerProcess(const CWorkerProcess&) = delete;
    CWorkerProcess& operator=(const CWorkerProcess&) = delete;

    /// Whether there is a process; if not, the system's reason is left behind. One whose program isn't there ends.
    [[nodiscard]] bool IsStarted() const { return state_ != nullptr; }

    // REQUIRES, of all that follows: IsStarted().

    /// Sends a line, to which the end is added. False if nobody is there to read it.
    [[nodiscard]] bool Ask(std::string_view line);
    /// Waits for the next line, and gives it without its end. Nothing once the process has ended, as after Kill.
    [[nodiscard]] std::optional<std::string> Answer();

    /// Ends it at once. The one call that another thread may make, while this one waits for an answer.
    void Kill();
    /// Lets it end by itself, as it does when nothing more can be asked, and waits for it. Returns its exit code;
    /// nothing if it crashed or was killed.
    [[nodiscard]] std::optional<int> Finish();

private:
    struct State;
    std::unique_ptr<State> state_;
    std::string unread_;  ///< bytes behind the last answer
};

}  // namespace tradebill
