// A batch at work: accounts are handed to workers, and what comes of each goes to the results as it comes.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "batch/account_result.h"
#include "batch/account_work.h"
#include "batch/batch_places.h"
#include "batch/results_file.h"
#include "batch/worker_pool.h"

namespace tradebill {

/// How many of a batch's accounts are how far.
struct BatchCounts {
    std::int64_t accounts = 0;
    std::int64_t kept = 0;      ///< made before, and still as they would be made now
    std::int64_t done = 0;      ///< in this run, with whatever end
    std::int64_t findings = 0;  ///< of done and kept, as the next
    std::int64_t failed = 0;    ///< crashes and those that took too long among them

    [[nodiscard]] std::int64_t Left() const { return accounts - kept - done; }
};

/// Whoever wants to see a batch go on. Called by one thread at a time.
class CBatchWatcher {
public:
    virtual ~CBatchWatcher() = default;
    /// Of those that were made before, `checked` are looked through.
    virtual void OnChecked(std::int64_t checked, std::int64_t toCheck) = 0;
    virtual void OnAccount(const AccountResult& result, const std::vector<std::string>& told,
                           const BatchCounts& counts) = 0;
};

struct BatchOrder {
    std::vector<AccountWork> accounts;          ///< no two of them the same
    std::vector<std::string> unseenUsers = {};  ///< whose folders can't be looked into; UTF-8
    PoolOptions pool;
    bool resumes = false;    ///< keeps what was made before
    double stopSeconds = 0;  ///< that the accounts in work are given when the batch has to stop
    std::string version;     ///< of the program
};

/// How a batch ended; the results file has what came of the accounts.
struct BatchEnd {
    BatchCounts counts;
    bool isStopped = false;    ///< by Stop: accounts are left
    bool isHeldUp = false;     ///< accounts are left since no worker can be started
    std::string failure = {};  ///< why results couldn't be kept, in words: accounts may be left; empty: they are
};

class CBatchRun {
public:
    /// The places belong to this run alone; `watcher` outlives it.
    CBatchRun(BatchOrder order, const CBatchPlaces& places, CBatchWatcher& watcher);

    /// Makes all accounts, whatever becomes of one. Each is once in the results.
    [[nodiscard]] BatchEnd Run();

    [[nodiscard]] double StopSeconds() const { return order_.stopSeconds; }

    /// Has Run come to its end. May be called by another thread.
    void Stop() {
        isStopped_ = true;  // first: whoever sees the pool at its end asks why
        pool_.Stop(order_.stopSeconds);
    }

private:
    [[nodiscard]] ResultsByAccount KnownResults();
    [[nodiscard]] ResultsByAccount Check(const ResultsByAccount& known);
    void Make(const ResultsByAccount& kept);
    [[nodiscard]] ResultsByAccount OfThisBatch(const ResultsByAccount& known) const;
    void AddUnseen(const ResultsByAccount& known, ResultsByAccount& kept);
    void CountKept(const ResultsByAccount& kept);
    void HoldUp(const WorkAnswer& answer);
    void Take(const AccountWork& work, const WorkAnswer& answer);
    void Keep(const AccountResult& result, const std::vector<std::string>& told);
    void Count(const AccountResult& result);
    void Fail(const std::string& what, const std::string& path);

    BatchOrder order_;
    const CBatchPlaces& places_;
    CBatchWatcher& watcher_;
    CWorkerPool pool_;
    CResultsFile results_;
    BatchEnd end_;
    std::atomic<bool> isStopped_ = false;
};

}  // namespace tradebill
