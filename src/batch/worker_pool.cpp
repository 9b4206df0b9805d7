#include "batch/worker_pool.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/system_error.h"
#include "platform/worker_process.h"

namespace tradebill {
namespace {

using Clock = std::chrono::steady_clock;  // whatever anybody sets the system's clock to

std::chrono::microseconds Span(double seconds) {
    constexpr double kMicroseconds = 1e6;
    constexpr double kLongest = 1e9;  // of seconds; a longer time is no limit
    return std::chrono::microseconds(static_cast<std::int64_t>(std::clamp(seconds, 0.0, kLongest) * kMicroseconds));
}

constexpr auto kNever = std::numeric_limits<Clock::duration::rep>::max();

/// One worker, as the thread that watches all of them sees it.
struct Slot {
    std::unique_ptr<CWorkerProcess> worker = {};  ///< of the slot's own thread alone
    bool isManned = false;                        ///< it has one
    CWorkerProcess* atWork = nullptr;             ///< null while it isn't asked
    std::optional<Clock::time_point> deadline = {};
    bool isLate = false;   ///< it was ended for that
    bool isEnded = false;  ///< it was ended since all has to end
};

}  // namespace

struct CWorkerPool::State {
    explicit State(PoolOptions given) : options(std::move(given)), slots(std::max<std::size_t>(options.jobs, 1)) {}

    /// What one thread does: asks a worker of its own until nothing is left.
    void Work(Slot& slot, const NextQuestion& next, const OnAnswer& onAnswer);
    /// Asks one question; nothing if all had to end meanwhile.
    std::optional<WorkAnswer> Ask(Slot& slot, const std::string& question);
    /// The same, and again if a worker that wasn't new has crashed.
    std::optional<WorkAnswer> AskSurely(Slot& slot, const std::string& question);
    /// Whether others have workers, which take the question instead of one that has none.
    bool IsLeftToOthers(Slot& slot, const std::string& question);
    /// Ends workers that are late, until all threads are through.
    void Watch();
    void Keep(std::exception_ptr thrown);

    const PoolOptions options;
    std::vector<Slot> slots;
    std::mutex mutex;  // of the slots, and of the next four
    std::condition_variable changed;
    std::vector<std::string> returned;  // questions that a slot without a worker has left to others
    std::size_t threadsLeft = 0;
    std::exception_ptr failure;

    // Set without a lock: whoever stops may hold it, or be a signal's handler.
    std::atomic<bool> isStopping = false;
    std::atomic<Clock::duration::rep> lastMoment = kNever;  // of those that are at work when all has to end
};

void CWorkerPool::State::Work(Slot& slot, const NextQuestion& next, const OnAnswer& onAnswer) {
    for (;;) {
        std::optional<std::string> question;
        {
            const std::lock_guard lock(mutex);
            if (!isStopping && !returned.empty()) {
                question = std::move(returned.back());
                returned.pop_back();
            } else if (!isStopping) {
                question = next();
            }
            if (!question) slot.isManned = false;
        }
        if (!question) break;
        const auto answer = AskSurely(slot, *question);
        if (!answer) break;
        const std::lock_guard lock(mutex);
        if (answer->end == WorkAnswer::End::NotAsked && IsLeftToOthers(slot, *question)) break;
        onAnswer(*question, *answer);
    }
    slot.worker.reset();
}

/// Whoever has a worker asks for another question before he is through.
bool CWorkerPool::State::IsLeftToOthers(Slot& slot, const std::string& question) {
    slot.isManned = false;
    if (std::ranges::none_of(slots, &Slot::isManned)) return false;
    returned.push_back(question);
    return true;
}

std::optional<WorkAnswer> CWorkerPool::State::Ask(Slot& slot, const std::string& question) {
    std::unique_ptr<CWorkerProcess>& worker = slot.worker;
    if (!worker) worker = std::make_unique<CWorkerProcess>(options.worker);
    if (!worker->IsStarted()) {
        worker.reset();
        return WorkAnswer{.end = WorkAnswer::End::NotAsked, .reason = SystemErrorText(LastSystemError())};
    }
    const auto start = Clock::now();
    {
        const std::lock_guard lock(mutex);
        slot.isManned = true;
        slot.atWork = worker.get();
        slot.isLate = slot.isEnded = false;
        slot.deadline.reset();
        if (options.mostSeconds > 0) slot.deadline = start + Span(options.mostSeconds);
    }
    auto line = worker->Ask(question) ? worker->Answer() : std::nullopt;
    bool isLate = false;
    bool isEnded = false;
    {
        const std::lock_guard lock(mutex);
        slot.atWork = nullptr;
        isLate = slot.isLate;
        isEnded = slot.isEnded;
    }
    WorkAnswer answer{.seconds = std::chrono::duration<double>(Clock::now() - start).count()};
    if (line) {
        answer.line = *std::move(line);
        return answer;
    }
    answer.exit = worker->Finish();
    worker.reset();
    if (isEnded) return std::nullopt;
    if (answer.exit == kExitNotStarted) return WorkAnswer{.end = WorkAnswer::End::NotAsked};
    answer.end = isLate ? WorkAnswer::End::TimedOut : WorkAnswer::End::Crashed;
    return answer;
}

std::optional<WorkAnswer> CWorkerPool::State::AskSurely(Slot& slot, const std::string& question) {
    const bool isNew = !slot.worker;
    auto answer = Ask(slot, question);
    if (isNew || !answer || answer->end != WorkAnswer::End::Crashed) return answer;
    return isStopping ? std::nullopt : Ask(slot, question);
}

void CWorkerPool::State::Watch() {
    constexpr auto kStep = std::chrono::milliseconds(20);
    std::unique_lock lock(mutex);
    while (threadsLeft > 0) {
        changed.wait_for(lock, kStep);
        const auto now = Clock::now();
        const bool isOver = now.time_since_epoch().count() >= lastMoment;
        for (Slot& slot : slots) {
            if (slot.atWork == nullptr || slot.isLate || slot.isEnded) continue;
            slot.isEnded = isOver;
            slot.isLate = !isOver && slot.deadline && now >= *slot.deadline;
            if (slot.isEnded || slot.isLate) slot.atWork->Kill();
        }
    }
}

void CWorkerPool::State::Keep(std::exception_ptr thrown) {
    const std::lock_guard lock(mutex);
    if (!failure) failure = std::move(thrown);
    isStopping = true;
    lastMoment = 0;
}

CWorkerPool::CWorkerPool(PoolOptions options) : state_(std::make_unique<State>(std::move(options))) {}

CWorkerPool::~CWorkerPool() = default;

void CWorkerPool::Run(const NextQuestion& next, const OnAnswer& onAnswer) {
    State& state = *state_;
    state.threadsLeft = state.slots.size();
    const auto work = [&](Slot& slot) {
        try {
            state.Work(slot, next, onAnswer);
        } catch (...) {
            state.Keep(std::current_exception());
        }
        const std::lock_guard lock(state.mutex);
        slot.isManned = false;
        --state.threadsLeft;
        state.changed.notify_one();
    };
    std::vector<std::thread> threads;
    threads.reserve(state.slots.size());
    try {
        for (Slot& slot : state.slots) threads.emplace_back(work, std::ref(slot));
    } catch (const std::system_error&) {  // those that there are do it all
        const std::lock_guard lock(state.mutex);
        state.threadsLeft -= state.slots.size() - threads.size();
        if (threads.empty()) throw;
    }
    state.Watch();
    for (std::thread& thread : threads) thread.join();
    if (state.failure) std::rethrow_exception(state.failure);
}

void CWorkerPool::Stop(double afterSeconds) {
    state_->isStopping = true;
    state_->lastMoment = (Clock::now() + Span(afterSeconds)).time_since_epoch().count();
}

}  // namespace tradebill
