#include "cli/batch_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "base/day.h"
#include "batch/batch_places.h"
#include "batch/batch_run.h"
#include "batch/batch_state.h"
#include "batch/folder_tree.h"
#include "batch/shard.h"
#include "batch/worker_pool.h"
#include "cli/batch_accounts.h"
#include "cli/batch_lock.h"
#include "cli/batch_making.h"
#include "cli/batch_progress.h"
#include "cli/batch_summary.h"
#include "cli/batch_worker.h"
#include "cli/command_table.h"
#include "cli/explore_command.h"
#include "cli/export_places.h"
#include "cli/voice.h"
#include "driver/run_problems.h"
#include "explore/viewer_template.h"
#include "platform/local_time.h"
#include "platform/paths.h"
#include "platform/stop_signal.h"
#include "platform/system_error.h"
#include "platform/worker_process.h"
#include "requests/day_option.h"
#include "requests/out_folder.h"
#include "requests/report_options.h"
#include "requests/statement_size.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kAuto = "auto";

/// The longest name below the output folder but for an account's own.
constexpr std::string_view kLongestName =
    "/.work-1000000-of-1000000/4194304/1000000/Image_files/TradeStatistics.jpg.part";

Shard EnginesShard(const std::string& given) {
    std::optional<std::uint32_t> count;
    if (given != kAuto) {
        const auto first = ParseShard("1" + given.substr(kAuto.size()));
        if (!first) throw CUsageError("--shard: expected auto or auto/8, found \"" + given + "\"");
        count = first->count;
    }
    const auto environment = [](const char* name) -> const char* { return std::getenv(name); };
    try {
        const auto shard = ShardOfEngine(environment, count);
        if (shard) return *shard;
    } catch (const CNoShard& error) {
        throw CUsageError("--shard " + given + ": " + error.what() + " (auto/8 says that there are 8)");
    }
    throw CUsageError(
        "--shard auto: expected SLURM_ARRAY_TASK_ID or JOB_COMPLETION_INDEX, which an engine tells its "
        "tasks, found neither");
}

Shard ShardOf(const std::optional<std::string>& given) {
    if (!given) return {};
    if (given->starts_with(kAuto)) return EnginesShard(*given);
    const auto shard = ParseShard(*given);
    if (!shard) throw CUsageError("--shard: expected 2/8 for the second of eight, or auto, found \"" + *given + "\"");
    return *shard;
}

/// Why `text` is no number that `isRight` takes; empty if it is one.
std::string WhyNoNumber(const std::string& text, const std::string& expected, bool (*isRight)(double number)) {
    double number = 0;
    if (CLI::detail::lexical_cast(text, number) && isRight(number)) return {};
    return "expected " + expected + ", found \"" + text + "\"";
}

std::string WhyNotAboveZero(const std::string& text) {
    return WhyNoNumber(text, "a number above 0", [](double number) { return number > 0; });
}

std::string WhyBelowZero(const std::string& text) {
    return WhyNoNumber(text, "a number from 0", [](double number) { return number >= 0; });
}

/// The day that counts as today for all accounts: a batch that goes on has that of its beginning.
std::string TodayOf(const BatchCommand& command, const CBatchPlaces& places) {
    if (const auto& given = command.making.options.today) {
        const auto day = WrittenDay(*given);
        return day ? DashedDayText(*day) : *given;  // which is refused later, by all that's known of it
    }
    if (command.resumes) {
        const ReadState read = LoadBatchState(places.State());
        if (read.unread)
            throw CUsageError("--resume: expected to read what was begun: " + UnreadFileText(*read.unread));
        if (read.state) return read.state->today;
    }
    return DashedDayText(LocalDayOf(PresentTime()));
}

std::uint64_t MemoryOf(const std::optional<std::string>& given) {
    if (!given) return 0;
    constexpr std::uint64_t kLeast = std::uint64_t{24} << 20;  // of a process that makes the smallest report
    const auto size = ParseSize(*given);
    if (size && *size >= kLeast) return *size;
    throw CUsageError("--memory: expected a size of at least 24M, such as 512M or 1G, found \"" + *given + "\"");
}

PoolOptions PoolOf(const BatchCommand& command, const CBatchPlaces& places) {
    PoolOptions pool{
        .worker = {.program = OwnProgram(), .arguments = {kWorkerCommand}, .mostMemory = MemoryOf(command.memory)},
        .jobs = static_cast<std::size_t>(command.jobs),
        .mostSeconds = command.timeout};
    if (command.jobs == 0) pool.jobs = std::max(std::thread::hardware_concurrency(), 1U);
    for (std::string& argument : ArgumentsOf(command.making)) pool.worker.arguments.push_back(std::move(argument));
    pool.worker.arguments.push_back("--out=" + Utf8Path(places.Out()));
    pool.worker.arguments.push_back("--work=" + Utf8Path(places.Work()));
    return pool;
}

/// What can be known to be wrong before anything is done.
void CheckMaking(BatchCommand& command, const CBatchPlaces& places) {
    if (command.source.discovers == command.source.manifest.has_value()) {
        throw CUsageError("expected --manifest FILE or --discover, found " +
                          std::string(command.source.discovers ? "both" : "neither"));
    }
    BatchMaking& making = command.making;
    if (PartsOf(making.makes).explore) RequireViewer(ViewerTemplate(), "--make explore");
    if (!making.sqliteFile) return;
    making.sqliteFile = places.Database(*making.sqliteFile);
    static_cast<void>(FindExportPlaces({}, making.sqliteFile));
}

/// Results of tasks of a batch that was cut otherwise would be joined with these, or keep them from being joined.
void RemoveOtherCuts(const CBatchPlaces& places, const Shard& shard) {
    for (const auto& [name, ending] : {std::pair("results", ".jsonl"), std::pair("batch", ".json")}) {
        for (const Shard& other : ShardsIn(places.Out(), name, ending).value_or(std::vector<Shard>())) {
            if (other.count == 1 || other.count == shard.count) continue;
            const CBatchPlaces theirs(places.Out(), other);
            RemoveFile(theirs.Results());
            RemoveFile(theirs.State());
        }
    }
}

/// Says what is left out before the work begins. Returns whether that is a failure.
bool TellLeftOut(const BatchAccounts& found, bool quiet) {
    for (const std::string& line : found.unreadable) Fail(line);
    if (found.outOfRange > 0 && !quiet) {
        std::cerr << "tradebill: " << found.outOfRange
                  << " accounts have no statement of these days and are left out\n";
    }
    return !found.unreadable.empty();
}

/// Hears the system's wish to stop from the beginning to the end. While accounts are looked for nothing is lost by an
/// end at once; while they are made the run comes to its end; behind that what is left is soon done.
class CBatchStop {
public:
    void Begin(CBatchRun& run) {
        const std::lock_guard lock(mutex_);
        run_ = &run;
        isLooking_ = false;
        if (isWished_) run.Stop();
    }
    void End() {
        const std::lock_guard lock(mutex_);
        run_ = nullptr;
    }

private:
    void Stop() {
        const std::lock_guard lock(mutex_);
        isWished_ = true;
        if (isLooking_) std::_Exit(kExitTryAgain);
        if (run_ == nullptr) return;
        std::cerr << "tradebill: stopping: the accounts in work have " << run_->StopSeconds()
                  << " seconds (once more: at once)\n";
        run_->Stop();
    }

    std::mutex mutex_;
    CBatchRun* run_ = nullptr;
    bool isLooking_ = true;
    bool isWished_ = false;
    const CStopSignal signal_{[this] { Stop(); }, kExitTryAgain};  // the last: it may ask at once
};

BatchEnd RunUntilStopped(BatchOrder order, const CBatchPlaces& places, bool quiet, CBatchStop& stop) {
    CBatchProgress progress(quiet);
    CBatchRun run(std::move(order), places, progress);
    stop.Begin(run);
    BatchEnd end = run.Run();
    stop.End();
    return end;
}

int ExitOf(const BatchEnd& end, bool isWhole) {
    if (end.isStopped || end.isHeldUp) return kExitTryAgain;
    if (!end.failure.empty() || end.counts.failed > 0 || !isWhole) return kExitFailed;
    return end.counts.findings > 0 ? kExitFindings : kExitDone;
}

}  // namespace

void AddRiskLimitOption(CLI::App& app, double& limit) {
    app.add_option("--risk-limit", limit, "Margin use that the index marks when above (default: 0.8)")
        ->type_name("FRACTION")
        ->check(WhyBelowZero);
}

CommandRun DeclareBatch(CLI::App& app) {
    const auto command = std::make_shared<BatchCommand>();
    app.add_option("--manifest", command->source.manifest,
                   "The accounts: CSV with a head line, or lines of JSON, whose columns are the options of a report; - "
                   "for standard input")
        ->type_name("FILE");
    app.add_flag("--discover", command->source.discovers, "All accounts that have statements below the root");
    DeclareMaking(app, command->making);
    app.add_option("--out", command->making.outFolder, "Folder for all that is made: a folder an account, and an index")
        ->required()
        ->type_name("DIR");
    app.add_option("--jobs", command->jobs, "Processes at work beside each other (default: one for each processor)")
        ->type_name("N")
        ->check(CLI::Range(1, 1024));
    app.add_option("--timeout", command->timeout, "Seconds that an account may take (default: as long as it takes)")
        ->type_name("SECONDS")
        ->check(WhyNotAboveZero);
    app.add_option("--memory", command->memory, "Memory that a process may take (default: as much as there is)")
        ->type_name("SIZE");
    app.add_option(
           "--shard", command->shard,
           "The part of the accounts that this call makes: 2/8 is the second of eight; auto: as Slurm's array or "
           "Kubernetes' Job says")
        ->type_name("K/N");
    app.add_flag("--resume", command->resumes, "Keep what was made before and would come out the same");
    app.add_option("--stop-after", command->stopSeconds,
                   "Seconds that the accounts in work are given when the batch has to stop (default: 20)")
        ->type_name("SECONDS")
        ->check(WhyBelowZero);
    AddRiskLimitOption(app, command->riskLimit);
    app.add_flag("--quiet", command->quiet, "No progress line and no summary");
    return [command] { return RunBatchCommand(*command); };
}

int RunBatchCommand(BatchCommand command) {
    CBatchStop stop;
    const Shard shard = ShardOf(command.shard);
    command.making.outFolder = FolderToWrite("--out", command.making.outFolder, kLongestName);
    const CBatchPlaces places(command.making.outFolder, shard);
    CheckMaking(command, places);
    command.making.options.today = TodayOf(command, places);
    CheckSharedOptions(command.making.options, command.source.discovers ? OwnOptions::None : OwnOptions::Some);
    BatchAccounts found = FindBatchAccounts(command.source, command.making.options, shard);
    PoolOptions pool = PoolOf(command, places);
    if (!MakeFolder(places.Out())) {
        return Fail("can't make " + NativePath(places.Out()) + ": " + SystemErrorText(LastSystemError()));
    }
    const CBatchLock lock(places, shard);
    if (!lock.IsHeld()) return lock.IsTaken() ? (Fail(lock.Reason()), kExitTryAgain) : Fail(lock.Reason());
    const bool isAllKnown = !TellLeftOut(found, command.quiet);
    RemoveOtherCuts(places, shard);
    const BatchState state{.accounts = static_cast<std::int64_t>(found.accounts.size()),
                           .today = *command.making.options.today,
                           .version = TRADEBILL_VERSION,
                           .unseen = found.unreadable};
    ForgetSystemError();
    if (!RemoveTree(places.Work()) || !MakeFolder(places.Work()) || !SaveBatchState(places.State(), state)) {
        return Fail("can't write to " + NativePath(places.Out()) + ": " + SystemErrorText(LastSystemError()));
    }
    const BatchEnd end = RunUntilStopped({.accounts = std::move(found.accounts),
                                          .unseenUsers = std::move(found.unseenUsers),
                                          .pool = std::move(pool),
                                          .resumes = command.resumes,
                                          .stopSeconds = command.stopSeconds,
                                          .version = TRADEBILL_VERSION},
                                         places, command.quiet, stop);
    const bool isCleared = RemoveTree(places.Work());
    if (!isCleared) Fail("can't remove " + NativePath(places.Work()) + ", which the next batch does");
    if (!end.failure.empty()) Fail(end.failure);
    const bool isSummedUp =
        shard.count > 1 || SaveIndex(places, {.today = state.today, .riskLimit = command.riskLimit});
    if (!command.quiet) ShowBatchSummary(places, end, shard);
    return ExitOf(end, isAllKnown && isSummedUp && isCleared);
}

}  // namespace tradebill
