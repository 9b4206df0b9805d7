// Databases of batches that are cut into tasks.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/batch_fixture.h"
#include "support/shell.h"

namespace tradebill::linux_batch_databases_test {
namespace {

namespace fs = std::filesystem;

constexpr int kAccounts = 4;
constexpr int kTasks = 12;  // more than accounts: some have none

class BatchDatabases : public BatchFixture {
protected:
    BatchDatabases() {
        for (int i = 0; i < kAccounts; ++i) Put(std::to_string(90010000 + i), 1);
    }
    [[nodiscard]] Answer Task(int task) const {
        return Batch("--discover --make json --sqlite " + Quoted(database_) + " --shard " + std::to_string(task) + "/" +
                     std::to_string(kTasks));
    }
    [[nodiscard]] Answer Merge() const {
        return RunProgram(folder_, "batch-merge --out " + Quoted(out_) + " --sqlite " + Quoted(database_));
    }
    [[nodiscard]] std::string DatabaseOf(int task) const {
        return folder_.Path("all-" + std::to_string(task) + "-of-" + std::to_string(kTasks) + ".db");
    }

    std::string database_ = folder_.Path("all.db");
};

TEST_F(BatchDatabases, AreFilledAgainWhereTheyAreLost) {
    const auto batch = [this](const std::string& more) {
        return Batch("--discover --make json --sqlite " + Quoted(database_) + more);
    };
    ASSERT_EQ(batch("").exit, 0);
    EXPECT_TRUE(Says(batch(" --resume").out, "kept from before  4\n"));
    fs::remove(database_);
    const Answer again = batch(" --resume");
    EXPECT_EQ(again.exit, 0) << again.err;
    EXPECT_FALSE(Says(again.out, "kept")) << again.out;
    EXPECT_TRUE(fs::exists(database_));
    EXPECT_TRUE(Says(batch(" --resume").out, "kept from before  4\n"));
}

TEST_F(BatchDatabases, OfTasksWithoutAccountsArentMissed) {
    ASSERT_EQ(Task(1).exit, 0);
    EXPECT_EQ(Merge().exit, 75) << "other tasks haven't begun, and that is worth another try";
    int made = 0;
    int withAccounts = 0;
    for (int task = 2; task <= kTasks; ++task) ASSERT_EQ(Task(task).exit, 0);
    for (int task = 1; task <= kTasks; ++task) {
        made += fs::exists(DatabaseOf(task)) ? 1 : 0;
        if (fs::exists(DatabaseOf(task))) withAccounts = task;
    }
    EXPECT_GT(made, 0);
    EXPECT_LT(made, kTasks);
    const Answer whole = Merge();
    EXPECT_EQ(whole.exit, 0) << whole.err;
    fs::remove(DatabaseOf(withAccounts));
    const Answer lost = Merge();
    EXPECT_EQ(lost.exit, 1);
    EXPECT_TRUE(Says(lost.err, "can't join " + DatabaseOf(withAccounts) + ": it isn't there")) << lost.err;
}

}  // namespace
}  // namespace tradebill::linux_batch_databases_test
