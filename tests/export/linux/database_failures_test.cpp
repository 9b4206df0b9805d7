// Databases that others use, that can't be written, and whose export is killed.
#include <gtest/gtest.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "export/linux/database_fixture.h"
#include "export/linux/database_reader.h"
#include "export/sqlite_export.h"
#include "support/bound_user.h"
#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace tradebill::linux_database_failures_test {
namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

class DatabaseFailures : public DatabaseFixture {
protected:
    /// Lets a process of its own save the account, and kills it. Returns whether it was still alive.
    [[nodiscard]] bool KillWhileSaving(microseconds delay) const {
        const pid_t child = ::fork();
        if (child == 0) {
            const bool isDone = Save().end == DatabaseEnd::Done;
            ::_exit(isDone ? 0 : 1);
        }
        std::this_thread::sleep_for(delay);
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFSIGNALED(status);
    }
};

TEST_F(DatabaseFailures, SayThatAnotherProgramIsInTheWay) {
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    const std::string before = ReadFile(path_);
    const CDatabaseReader other(path_);
    other.Run("BEGIN IMMEDIATE");
    EXPECT_EQ(Save().end, DatabaseEnd::Taken);
    other.Run("ROLLBACK; BEGIN; SELECT * FROM meta");  // it reads
    EXPECT_EQ(Save().end, DatabaseEnd::Taken);
    other.Run("ROLLBACK");
    EXPECT_EQ(ReadFile(path_), before);
    EXPECT_EQ(Save().end, DatabaseEnd::Done);
}

TEST_F(DatabaseFailures, SayThatSomebodyReadsADatabaseWithALog) {
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    const CDatabaseReader other(path_);
    other.Run("PRAGMA journal_mode = WAL; BEGIN; SELECT * FROM meta");
    EXPECT_EQ(Save().end, DatabaseEnd::Taken);
    other.Run("ROLLBACK");
}

TEST_F(DatabaseFailures, WaitForAnotherProgram) {
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    const CDatabaseReader other(path_);
    other.Run("BEGIN IMMEDIATE");
    std::thread end([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        other.Run("ROLLBACK");
    });
    EXPECT_EQ(Save("1", 60).end, DatabaseEnd::Done);
    end.join();
}

TEST_F(DatabaseFailures, LeaveTheDatabaseAsItWasOnAFullDisk) {
    AddTrade("a");
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    const std::string before = ReadFile(path_);
    AddTrades(5000, "b");
    DatabaseResult result;
    {
        const CFileSizeLimit limit(before.size() + 20000);
        result = Save();
    }
    EXPECT_EQ(result.end, DatabaseEnd::Failed);
    EXPECT_FALSE(result.reason.empty());
    EXPECT_EQ(Read("SELECT CONTRACT FROM trades"), "a|");
    EXPECT_EQ(Read("PRAGMA integrity_check"), "ok|");
    EXPECT_EQ(Names(), (std::vector<std::string>{"out.db"}));
}

TEST_F(DatabaseFailures, LeaveNoFileWhereNoneWasOnAFullDisk) {
    {
        const CFileSizeLimit limit(10000);
        EXPECT_EQ(Save().end, DatabaseEnd::Failed);
    }
    EXPECT_EQ(Names(), std::vector<std::string>());
}

TEST_F(DatabaseFailures, SayThatTheFolderIsGone) {
    path_ = folder_.Path("missing/out.db");
    const DatabaseResult result = Save();
    EXPECT_EQ(result.end, DatabaseEnd::Failed);
    EXPECT_EQ(result.reason, "No such file or directory");
}

TEST_F(DatabaseFailures, SayThatNoFileMayBeMadeInTheFolder) {
    std::filesystem::create_directory(folder_.Path("locked"));
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder_.Path("locked"), std::filesystem::perms(0555));
    path_ = folder_.Path("locked/out.db");
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    const DatabaseResult result = Save();
    EXPECT_EQ(result.end, DatabaseEnd::Failed);
    EXPECT_EQ(result.reason, "Permission denied");
}

TEST_F(DatabaseFailures, LeaveItAsBeforeOrWholeWheneverTheProgramIsKilled) {
    AddTrades(3000, "old");
    ASSERT_EQ(Save("2").end, DatabaseEnd::Done);
    ASSERT_EQ(Save("1").end, DatabaseEnd::Done);
    report.Clear();
    AddTrades(6000, "new");
    const std::string before = ReadFile(path_);
    const auto begin = steady_clock::now();
    ASSERT_EQ(Save("1").end, DatabaseEnd::Done);
    const auto length = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
    std::mt19937 dice(15);
    std::uniform_int_distribution<std::int64_t> moment(0, length.count());
    int killed = 0;
    for (int round = 0; round < 25; ++round) {
        std::filesystem::remove(path_ + "-journal");  // of the database of the round before
        folder_.Write("out.db", before);
        killed += KillWhileSaving(microseconds(moment(dice))) ? 1 : 0;
        const std::string found = Read("SELECT account, CONTRACT, count(*) FROM trades GROUP BY 1, 2 ORDER BY 1");
        EXPECT_TRUE(found == "1|old|3000|2|old|3000|" || found == "1|new|6000|2|old|3000|") << found;
        EXPECT_EQ(Read("PRAGMA integrity_check"), "ok|");
    }
    EXPECT_GT(killed, 0);
    EXPECT_EQ(Save().end, DatabaseEnd::Done);
    EXPECT_EQ(Names(), (std::vector<std::string>{"out.db"}));
}

TEST_F(DatabaseFailures, LeaveAnEmptyDatabaseAtMostWhenTheFirstExportIsKilled) {
    AddTrades(3000, "new");
    int killed = 0;
    for (int round = 0; round < 10; ++round) {
        std::filesystem::remove(path_);
        killed += KillWhileSaving(microseconds(2000 * round)) ? 1 : 0;
        ASSERT_EQ(LookAtDatabase(path_).end, DatabaseEnd::Done);
        ASSERT_EQ(Save().end, DatabaseEnd::Done);
        EXPECT_EQ(Read("SELECT count(*) FROM trades"), "3000|");
    }
    EXPECT_GT(killed, 0);
}

}  // namespace
}  // namespace tradebill::linux_database_failures_test
