// What a batch shows while it is at work: how far it is, and what failed.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "batch/account_result.h"
#include "batch/batch_run.h"

namespace tradebill {

/// "done 120 of 1000, 2 failed, 61.2 accounts/s, 0:14 left"; the last two once they can be told. `seconds`: since the
/// first of the accounts that are done was begun.
[[nodiscard]] std::string BatchProgressText(const BatchCounts& counts, double seconds);

/// Tells of each account that failed, and each warning, as it comes. On a terminal one line shows how far all is;
/// elsewhere a line comes now and then.
class CBatchProgress final : public CBatchWatcher {
public:
    explicit CBatchProgress(bool quiet);
    ~CBatchProgress() override;

    void OnChecked(std::int64_t checked, std::int64_t toCheck) override;
    void OnAccount(const AccountResult& result, const std::vector<std::string>& told,
                   const BatchCounts& counts) override;

private:
    /// Whether the line is due; it counts as shown then.
    bool IsDue(bool isLast);
    void Show(const std::string& text);
    void TakeAway();

    const bool isQuiet_;
    const bool isTerminal_;
    bool isShown_ = false;
    std::chrono::steady_clock::time_point begun_;
    std::chrono::steady_clock::time_point shown_;
};

}  // namespace tradebill
