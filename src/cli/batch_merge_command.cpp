#include "cli/batch_merge_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/day.h"
#include "batch/account_result.h"
#include "batch/batch_places.h"
#include "batch/batch_run.h"
#include "batch/batch_state.h"
#include "batch/results_file.h"
#include "batch/shard.h"
#include "cli/batch_command.h"
#include "cli/batch_lock.h"
#include "cli/batch_summary.h"
#include "cli/command_table.h"
#include "cli/export_places.h"
#include "cli/voice.h"
#include "driver/run_problems.h"
#include "export/sqlite_export.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "requests/day_option.h"
#include "requests/out_folder.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr int kDatabaseWait = 60;  // seconds

/// All tasks of the batch whose results lie in the folder, those that left none among them.
std::vector<Shard> TasksIn(const std::string& out) {
    const auto found = ShardsIn(out, "results", ".jsonl");
    if (!found) throw CUsageError("--out: expected a folder that can be read, found \"" + out + "\"");
    std::uint32_t count = 1;
    for (const Shard& shard : *found) {
        if (shard.count == 1) continue;  // joined before
        if (count != 1 && shard.count != count) {
            throw CUsageError("--out: expected the results of one batch, found those of " + std::to_string(count) +
                              " and of " + std::to_string(shard.count) +
                              " tasks: the files results-* and batch-* of the older one have to go");
        }
        count = shard.count;
    }
    if (count == 1) throw CUsageError("--out: expected results of several tasks, found none in \"" + out + "\"");
    std::vector<Shard> tasks;
    tasks.reserve(count);
    for (std::uint32_t index = 0; index < count; ++index) tasks.push_back({.index = index, .count = count});
    return tasks;
}

/// yyyy-mm-dd of a day that somebody wrote; the text itself, if it is none.
std::string PlainDay(const std::string& text) {
    const auto day = WrittenDay(text);
    return day ? DashedDayText(*day) : text;
}

/// Gathers what the tasks have left.
class CMerge {
public:
    /// `today`: yyyy-mm-dd, of which all tasks must be; nothing: they must be of one.
    CMerge(std::string out, std::optional<std::string> today) : out_(std::move(out)), wantedToday_(std::move(today)) {}

    void Add(const Shard& shard) {
        const CBatchPlaces places(out_, shard);
        const ReadState state = LoadBatchState(places.State());
        if (state.unread) return Lose(UnreadFileText(*state.unread));
        if (!state.state) return Miss(shard, "hasn't begun");
        if (wantedToday_ && PlainDay(state.state->today) != *wantedToday_) {
            return Miss(shard, "hasn't begun: its results are of " + state.state->today);
        }
        for (const std::string& line : state.state->unseen) Lose(line);
        ReadResults read = LoadResults(places.Results());
        if (read.unread) return Lose(UnreadFileText(*read.unread));
        const auto there = static_cast<std::int64_t>(read.results.size());
        if (there < state.state->accounts) {
            Miss(shard, "lacks " + std::to_string(state.state->accounts - there) + " of its accounts");
        }
        if (today_.empty()) today_ = state.state->today;
        if (today_ != state.state->today) {
            Lose("the task " + ShardName(shard) + " took " + state.state->today + " for today, others " + today_ +
                 ": --today says it for all");
        }
        counts_.accounts += state.state->accounts;
        const auto isMade = [](const auto& done) {
            return done.second.status == AccountStatus::Ok || done.second.status == AccountStatus::Findings;
        };
        if (std::ranges::any_of(read.results, isMade)) haveMade_.push_back(shard);
        for (auto& [account, result] : read.results) {
            if (result.status == AccountStatus::Findings) ++counts_.findings;
            if (result.status != AccountStatus::Findings && result.status != AccountStatus::Ok) ++counts_.failed;
            ++counts_.done;
            results_.insert_or_assign(account, std::move(result));
        }
    }

    /// Writes the joined results. False if that can't be, which is told.
    [[nodiscard]] bool Save(const CBatchPlaces& places) const {
        const BatchState state{.accounts = counts_.accounts, .today = today_, .version = TRADEBILL_VERSION};
        CResultsFile file(places.Results());
        if (file.Begin(results_) && file.Close() && SaveBatchState(places.State(), state)) return true;
        const std::string reason = SystemErrorText(LastSystemError());
        Fail("can't write " + NativePath(places.Results()) + (reason.empty() ? "" : ": " + reason));
        return false;
    }

    [[nodiscard]] const BatchCounts& Counts() const { return counts_; }
    [[nodiscard]] const std::string& Today() const { return today_; }
    /// The tasks that have made accounts, and with them a database if they were told of one.
    [[nodiscard]] const std::vector<Shard>& HaveMade() const { return haveMade_; }
    [[nodiscard]] bool LacksAccounts() const { return lacks_; }
    [[nodiscard]] bool IsWhole() const { return isWhole_; }

private:
    void Lose(const std::string& why) {
        Fail(why);
        isWhole_ = false;
    }
    void Miss(const Shard& shard, const std::string& why) {
        Fail("the task " + ShardName(shard) + " " + why);
        lacks_ = true;
    }

    std::string out_;
    std::optional<std::string> wantedToday_;
    ResultsByAccount results_;
    BatchCounts counts_;
    std::string today_;
    std::vector<Shard> haveMade_;
    bool lacks_ = false;
    bool isWhole_ = true;
};

/// Joins the databases of the tasks. False if one can't be, which is told.
bool JoinDatabases(const std::string& sqliteFile, const std::string& out, const std::vector<Shard>& tasks) {
    const DatabasePlace whole = *FindExportPlaces({}, sqliteFile).database;
    bool isJoined = true;
    for (const Shard& shard : tasks) {
        const std::string from = CBatchPlaces(out, shard).Database(sqliteFile);
        const bool isThere = IsPlainFile(from);
        const DatabaseResult result =
            isThere ? JoinDatabase(whole.path, AbsolutePath(from), kDatabaseWait) : DatabaseResult{};
        if (isThere && result.end == DatabaseEnd::Done) continue;
        Fail("can't join " + from + ": " + (isThere ? result.reason : "it isn't there"));
        isJoined = false;
    }
    return isJoined;
}

}  // namespace

CommandRun DeclareBatchMerge(CLI::App& app) {
    const auto command = std::make_shared<BatchMergeCommand>();
    app.add_option("--out", command->outFolder, "The folder to which the tasks of a batch have written")
        ->required()
        ->type_name("DIR");
    CLI::Option* const sqlite =
        app.add_option("--sqlite", command->sqliteFile, "The database that the tasks were told, to join theirs into");
    sqlite->type_name("FILE");
    if (!HasSqlite()) sqlite->group("");  // not in the help
    app.add_option("--today", command->today,
                   "The day that the tasks were told: one that has left results of another day hasn't begun")
        ->type_name("DATE");
    AddRiskLimitOption(app, command->riskLimit);
    app.add_flag("--quiet", command->quiet, "No summary");
    return [command] { return RunBatchMergeCommand(*command); };
}

int RunBatchMergeCommand(const BatchMergeCommand& command) {
    const std::string out = FolderToWrite("--out", command.outFolder, kIndexName);
    const std::vector<Shard> tasks = TasksIn(out);
    if (command.sqliteFile) static_cast<void>(FindExportPlaces({}, command.sqliteFile));
    const CBatchPlaces places(out, Shard{});
    const CBatchLock lock(places, Shard{});
    if (!lock.IsHeld()) return lock.IsTaken() ? (Fail(lock.Reason()), kExitTryAgain) : Fail(lock.Reason());
    CMerge merge(out, command.today ? std::optional(PlainDay(*command.today)) : std::nullopt);
    for (const Shard& shard : tasks) merge.Add(shard);
    bool isDone = merge.Save(places);
    isDone = isDone && SaveIndex(places, {.today = merge.Today(), .riskLimit = command.riskLimit});
    if (command.sqliteFile) isDone &= JoinDatabases(*command.sqliteFile, out, merge.HaveMade());
    if (!command.quiet) ShowBatchSummary(places, {.counts = merge.Counts()}, Shard{});
    if (!isDone || !merge.IsWhole()) return kExitFailed;
    if (merge.LacksAccounts()) return kExitTryAgain;
    if (merge.Counts().failed > 0) return kExitFailed;
    return merge.Counts().findings > 0 ? kExitFindings : kExitDone;
}

}  // namespace tradebill
