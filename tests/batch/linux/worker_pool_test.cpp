// Worker processes that answer, crash, hang and take too much: each is a small script of the shell.
#include "batch/worker_pool.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/worker_process.h"

namespace tradebill::worker_pool_test {
namespace {

using End = WorkAnswer::End;

/// Answers each question with its own number and the question; obeys "crash", "hang" and "leave".
constexpr const char* kScript =
    "while read -r line; do case $line in crash) kill -SEGV $$;; leave) exit 3;; hang) sleep 60;; "
    "*) echo \"$$ $line\";; esac; done";

WorkerStart Shell(const std::string& script = kScript) {
    return {.program = "/bin/sh", .arguments = {"-c", script}};
}

/// Asks numbers up to `last`, of which `special` stand for other questions.
class Pool : public testing::Test {
protected:
    void Run(PoolOptions options, int last, const std::map<int, std::string>& special = {}) {
        CWorkerPool pool(std::move(options));
        int asked = 0;
        pool.Run(
            [&]() -> std::optional<std::string> {
                if (asked == last) return std::nullopt;
                ++asked;
                const auto found = special.find(asked);
                return found == special.end() ? std::to_string(asked) : found->second;
            },
            [&](const std::string& question, const WorkAnswer& answer) {
                EXPECT_TRUE(answers_.emplace(question, answer).second) << question;
                if (onAnswer) onAnswer(pool);
            });
    }
    [[nodiscard]] std::set<std::string> Workers() const {
        std::set<std::string> workers;
        for (const auto& [question, answer] : answers_) {
            if (answer.end == End::Answered) workers.insert(answer.line.substr(0, answer.line.find(' ')));
        }
        return workers;
    }

    std::map<std::string, WorkAnswer> answers_;
    std::function<void(CWorkerPool&)> onAnswer;
};

TEST_F(Pool, AsksEachQuestionOnceOfWorkersThatStay) {
    Run({.worker = Shell(), .jobs = 3}, 200);
    ASSERT_EQ(answers_.size(), 200U);
    for (const auto& [question, answer] : answers_) {
        EXPECT_EQ(answer.end, End::Answered);
        EXPECT_TRUE(answer.line.ends_with(" " + question)) << answer.line;
    }
    EXPECT_LE(Workers().size(), 3U);
}

TEST_F(Pool, ReplacesAWorkerThatCrashesOrLeaves) {
    Run({.worker = Shell(), .jobs = 1}, 10, {{3, "crash"}, {6, "leave"}});
    ASSERT_EQ(answers_.size(), 10U);
    EXPECT_EQ(answers_["crash"].end, End::Crashed);
    EXPECT_EQ(answers_["leave"].end, End::Crashed);
    EXPECT_EQ(answers_["4"].end, End::Answered);
    EXPECT_EQ(Workers().size(), 3U);
}

TEST_F(Pool, EndsAWorkerThatTakesTooLong) {
    const auto start = std::chrono::steady_clock::now();
    Run({.worker = Shell(), .jobs = 2, .mostSeconds = 0.3}, 20, {{3, "hang"}});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    ASSERT_EQ(answers_.size(), 20U);
    EXPECT_EQ(answers_["hang"].end, End::TimedOut);
    EXPECT_GE(answers_["hang"].seconds, 0.3);
    EXPECT_EQ(answers_["20"].end, End::Answered);
}

TEST_F(Pool, AsksNothingWhereTheProgramIsMissing) {
    Run({.worker = {.program = "/nowhere/program"}, .jobs = 2}, 4);
    ASSERT_EQ(answers_.size(), 4U);
    for (const auto& [question, answer] : answers_) EXPECT_EQ(answer.end, End::NotAsked);
}

TEST_F(Pool, AsksNothingWhereThereIsNothing) {
    Run({.worker = Shell(), .jobs = 4}, 0);
    EXPECT_TRUE(answers_.empty());
}

TEST_F(Pool, StopsWhenAskedToAndHearsOfThoseAtWork) {
    onAnswer = [](CWorkerPool& pool) { pool.Stop(30); };
    Run({.worker = Shell(), .jobs = 2}, 1000);
    EXPECT_GE(answers_.size(), 1U);
    EXPECT_LE(answers_.size(), 2U);
}

TEST_F(Pool, EndsThoseAtWorkWhenItsTimeIsOver) {
    onAnswer = [](CWorkerPool& pool) { pool.Stop(0.2); };
    const auto start = std::chrono::steady_clock::now();
    Run({.worker = Shell(), .jobs = 2}, 1000, {{1, "hang"}});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_FALSE(answers_.contains("hang"));
}

TEST_F(Pool, HandsOnWhatIsThrown) {
    onAnswer = [](CWorkerPool&) { throw std::runtime_error("full"); };
    EXPECT_THROW(Run({.worker = Shell(), .jobs = 3}, 100, {{1, "hang"}}), std::runtime_error);
}

TEST(WorkerProcess, MayNotTakeMoreMemoryThanItIsGiven) {
    // A shell that doubles a text fails to, long before the machine does.
    WorkerStart start =
        Shell("read -r line; text=0123456789; while [ ${#text} -lt 100000000 ]; do text=$text$text; done; echo all");
    start.mostMemory = std::size_t{32} << 20;
    CWorkerProcess worker(start);
    ASSERT_TRUE(worker.IsStarted());
    ASSERT_TRUE(worker.Ask("go"));
    EXPECT_FALSE(worker.Answer().has_value());
    EXPECT_NE(worker.Finish(), 0);
}

TEST(WorkerProcess, EndsByItselfWhenNothingMoreCanBeAsked) {
    CWorkerProcess worker(Shell());
    ASSERT_TRUE(worker.Ask("a b"));
    EXPECT_TRUE(worker.Answer()->ends_with(" a b"));
    EXPECT_EQ(worker.Finish(), 0);
    EXPECT_FALSE(worker.Ask("more"));
}

TEST(WorkerProcess, AnswersLongAndManyLines) {
    CWorkerProcess worker(Shell("read -r line; printf '%070000d\\n%s\\n' 7 \"$line\"; echo cut | tr -d '\\n'"));
    const std::string question(50'000, 'q');
    ASSERT_TRUE(worker.Ask(question));
    EXPECT_EQ(worker.Answer()->size(), 70'000U);
    EXPECT_EQ(worker.Answer(), question);
    EXPECT_FALSE(worker.Answer().has_value());  // a line without its end is none
}

TEST(WorkerProcess, TellsWhichProgramRuns) {
    EXPECT_EQ(std::filesystem::read_symlink(OwnProgram()).filename(), "unit_tests");
}

}  // namespace
}  // namespace tradebill::worker_pool_test
