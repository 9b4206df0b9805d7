#include "batch/batch_run.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "batch/account_result.h"
#include "batch/account_work.h"
#include "batch/batch_places.h"
#include "batch/results_file.h"
#include "batch/worker_pool.h"
#include "driver/run_problems.h"
#include "platform/paths.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

/// Hands questions to the pool, and knows whose is whose when the answer comes. Questions are lines that tell accounts
/// apart.
class CQuestions {
public:
    void Add(std::string line, std::size_t account) { waiting_.emplace_back(std::move(line), account); }

    std::optional<std::string> Next() {
        if (waiting_.empty()) return std::nullopt;
        auto [line, account] = std::move(waiting_.front());
        waiting_.pop_front();
        asked_.emplace(line, account);
        return line;
    }
    std::size_t Take(const std::string& line) {
        const auto found = asked_.find(line);
        const std::size_t account = found->second;
        asked_.erase(found);
        return account;
    }

private:
    std::deque<std::pair<std::string, std::size_t>> waiting_;
    std::map<std::string, std::size_t> asked_;
};

/// What is told of an account whose worker gave no answer.
std::string ReasonOf(const WorkAnswer& answer) {
    if (answer.end == WorkAnswer::End::TimedOut) return "it took longer than it may (--timeout)";
    if (answer.exit == kExitShortOfMemory) return "it took more memory than it may (--memory), or than there is";
    if (answer.exit) return "its worker ended with " + std::to_string(*answer.exit);
    return "its worker crashed";
}

bool IsGood(AccountStatus status) {
    return status == AccountStatus::Ok || status == AccountStatus::Findings;
}

}  // namespace

CBatchRun::CBatchRun(BatchOrder order, const CBatchPlaces& places, CBatchWatcher& watcher)
    : order_(std::move(order)), places_(places), watcher_(watcher), pool_(order_.pool), results_(places.Results()) {}

void CBatchRun::Fail(const std::string& what, const std::string& path) {
    if (!end_.failure.empty()) return;
    const std::string reason = SystemErrorText(LastSystemError());
    end_.failure = what + " " + Utf8Path(NativePath(path)) + (reason.empty() ? "" : ": " + reason);
    pool_.Stop(0);
}

void CBatchRun::Count(const AccountResult& result) {
    if (result.status == AccountStatus::Findings) ++end_.counts.findings;
    if (!IsGood(result.status)) ++end_.counts.failed;
}

ResultsByAccount CBatchRun::KnownResults() {
    if (!order_.resumes) return {};
    ReadResults read = LoadResults(places_.Results());
    if (read.unread) {
        end_.failure = UnreadFileText(*read.unread);
        return {};
    }
    return std::move(read.results);
}

/// Those of `known` that would be made again just so.
ResultsByAccount CBatchRun::Check(const ResultsByAccount& known) {
    CQuestions questions;
    std::int64_t toCheck = 0;
    for (std::size_t i = 0; i < order_.accounts.size(); ++i) {
        const AccountWork& work = order_.accounts[i];
        const auto found = known.find(work.account);
        if (found == known.end() || !IsGood(found->second.status) || !work.refusal.empty()) continue;
        const AccountResult& made = found->second;
        questions.Add(QuestionLine({.account = work.account,
                                    .settings = work.settings,
                                    .made = MadeFrom{made.options, made.inputs, made.outputs, made.version}}),
                      i);
        ++toCheck;
    }
    ResultsByAccount kept;
    if (toCheck == 0) return kept;
    std::int64_t checked = 0;
    pool_.Run([&] { return questions.Next(); },
              [&](const std::string& question, const WorkAnswer& answer) {
                  const AccountWork& work = order_.accounts[questions.Take(question)];
                  if (answer.end == WorkAnswer::End::NotAsked) return HoldUp(answer);
                  const auto parsed = ParseAnswer(answer.line);
                  if (parsed && parsed->isAsMade) kept.insert(*known.find(work.account));
                  watcher_.OnChecked(++checked, toCheck);
              });
    return kept;
}

ResultsByAccount CBatchRun::OfThisBatch(const ResultsByAccount& known) const {
    ResultsByAccount own;
    for (const AccountWork& work : order_.accounts) {
        const auto found = known.find(work.account);
        if (found != known.end()) own.insert(*found);
    }
    return own;
}

/// Nobody knows whether the accounts of users whose folders can't be looked into are still there: their results stay.
void CBatchRun::AddUnseen(const ResultsByAccount& known, ResultsByAccount& kept) {
    for (const auto& [account, result] : known) {
        if (std::ranges::find(order_.unseenUsers, account.user) == order_.unseenUsers.end()) continue;
        if (kept.emplace(account, result).second) ++end_.counts.accounts;
    }
}

void CBatchRun::CountKept(const ResultsByAccount& kept) {
    end_.counts.kept = static_cast<std::int64_t>(kept.size());
    for (const auto& [account, result] : kept) Count(result);
}

void CBatchRun::Keep(const AccountResult& result, const std::vector<std::string>& told) {
    if (!results_.Append(result)) return Fail("can't write", places_.Results());
    ++end_.counts.done;
    Count(result);
    watcher_.OnAccount(result, told, end_.counts);
}

void CBatchRun::HoldUp(const WorkAnswer& answer) {
    end_.isHeldUp = true;
    if (end_.failure.empty())
        end_.failure = "can't start a process" + (answer.reason.empty() ? "" : ": " + answer.reason);
    pool_.Stop(0);
}

void CBatchRun::Take(const AccountWork& work, const WorkAnswer& answer) {
    if (answer.end == WorkAnswer::End::NotAsked) return HoldUp(answer);
    auto parsed = answer.end == WorkAnswer::End::Answered ? ParseAnswer(answer.line) : std::nullopt;
    if (parsed && parsed->result) {
        parsed->result->seconds = answer.seconds;
        return Keep(*parsed->result, parsed->told);
    }
    const bool isLate = answer.end == WorkAnswer::End::TimedOut;
    Keep({.account = work.account,
          .status = isLate ? AccountStatus::TimedOut : AccountStatus::Crashed,
          .reason = ReasonOf(answer),
          .seconds = answer.seconds,
          .version = order_.version},
         {});
}

void CBatchRun::Make(const ResultsByAccount& kept) {
    CQuestions questions;
    for (std::size_t i = 0; i < order_.accounts.size(); ++i) {
        const AccountWork& work = order_.accounts[i];
        if (kept.contains(work.account)) continue;
        if (work.refusal.empty()) {
            questions.Add(QuestionLine({.account = work.account, .settings = work.settings}), i);
        } else {
            Keep({.account = work.account,
                  .status = AccountStatus::Failed,
                  .reason = work.refusal,
                  .version = order_.version},
                 {});
        }
    }
    pool_.Run([&] { return questions.Next(); },
              [&](const std::string& question, const WorkAnswer& answer) {
                  if (end_.failure.empty()) Take(order_.accounts[questions.Take(question)], answer);
              });
}

BatchEnd CBatchRun::Run() {
    end_.counts.accounts = static_cast<std::int64_t>(order_.accounts.size());
    const ResultsByAccount known = KnownResults();
    if (!end_.failure.empty()) return end_;
    ResultsByAccount kept = Check(known);
    if (isStopped_ || end_.isHeldUp) {  // what wasn't looked through may be as good as what was: nothing changes
        end_.isStopped = isStopped_;
        CountKept(OfThisBatch(known));
        return end_;
    }
    AddUnseen(known, kept);
    CountKept(kept);
    if (!results_.Begin(kept)) {
        Fail("can't write", places_.Results());
        return end_;
    }
    Make(kept);
    if (!results_.Close()) Fail("can't write", places_.Results());
    end_.isStopped = isStopped_ && end_.counts.Left() > 0;
    return end_;
}

}  // namespace tradebill
