// Worker processes that stay: each is asked one question at a time, and the next when it has answered. One that crashes
// or takes too long costs its question, and another takes its place. A worker that had answered before may have been
// ended for what it gathered, or from outside: its question is asked once more, of a new one.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/worker_process.h"

namespace tradebill {

struct PoolOptions {
    WorkerStart worker;
    std::size_t jobs = 1;    ///< processes at work at once
    double mostSeconds = 0;  ///< for a question; 0: as long as it takes
};

/// What came of a question.
struct WorkAnswer {
    enum class End {
        Answered,  ///< `line` is what the worker said
        Crashed,   ///< it ended without an answer
        TimedOut,  ///< it was ended, since it took too long
        NotAsked,  ///< no worker could be started
    };
    End end = End::Answered;
    std::string line = {};
    double seconds = 0;
    std::string reason = {};       ///< the system's, where it has one
    std::optional<int> exit = {};  ///< of a worker that crashed by ending itself
};

class CWorkerPool {
public:
    /// The next question, a line; nothing if there is none any more. Called by one thread at a time.
    using NextQuestion = std::function<std::optional<std::string>()>;
    /// Takes what came of the question. Called by one thread at a time, and never while a question is chosen.
    using OnAnswer = std::function<void(const std::string& question, const WorkAnswer& answer)>;

    explicit CWorkerPool(PoolOptions options);
    ~CWorkerPool();
    CWorkerPool(const CWorkerPool&) = delete;
    CWorkerPool& operator=(const CWorkerPool&) = delete;

    /// Asks until there is no question any more, and waits for all answers.
    void Run(const NextQuestion& next, const OnAnswer& onAnswer);

    /// Has Run return: no further question is asked, and workers that are at work are ended at once, without OnAnswer,
    /// `afterSeconds` from now. May be called from another thread, and from OnAnswer.
    void Stop(double afterSeconds);

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace tradebill
