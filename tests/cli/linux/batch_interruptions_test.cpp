// What ends a batch, or keeps it from its work, and what of it stays.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "batch/results_file.h"
#include "cli/linux/batch_process.h"
#include "support/sanitized.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::linux_batch_interruptions_test {
namespace {

namespace fs = std::filesystem;

constexpr int kAccounts = 14;

class BatchInterruptions : public BatchProcess {
protected:
    BatchInterruptions() {
        for (int i = 0; i < kAccounts; ++i) Put(std::to_string(90010000 + i), 1);
    }
    [[nodiscard]] Answer BatchWith(const std::string& before, const std::string& arguments) const {
        // A shell of its own: the outer one needs more files for the outputs.
        WriteFile(folder_.Path("run.sh"), before + "\nexec " + Quoted(TRADEBILL_PROGRAM) + " batch --root " +
                                              Quoted(root_) + " --out " + Quoted(out_) + " " + arguments + "\n");
        const std::string command = "sh " + Quoted(folder_.Path("run.sh"));
        const int exit = RunWithOutputs(command, folder_.Path("out1"), folder_.Path("err1"));
        return {.exit = exit, .out = ReadFile(folder_.Path("out1")), .err = ReadFile(folder_.Path("err1"))};
    }
};

TEST_F(BatchInterruptions, ThatKeepItFromStartingProcessesLeaveItsResults) {
    if (kSanitized) GTEST_SKIP() << "objects can't be looked at with so few files";
    ASSERT_EQ(Batch("--discover --make json").exit, 0);
    const std::string results = ReadFile(out_ + "/results.jsonl");
    const Answer answer = BatchWith("ulimit -n 7", "--discover --make json --jobs 1 --resume");
    EXPECT_EQ(answer.exit, 75) << answer.err;
    EXPECT_TRUE(Says(answer.err, "can't start a process")) << answer.err;
    EXPECT_EQ(ReadFile(out_ + "/results.jsonl"), results);
    EXPECT_TRUE(Says(Batch("--discover --make json --resume").out, "kept from before  14\n"));
}

TEST_F(BatchInterruptions, ThatKeepItFromStartingSomeProcessesLeaveTheWorkToOthers) {
    if (kSanitized) GTEST_SKIP() << "objects can't be looked at with so few files";
    const Answer answer = BatchWith("ulimit -n 24", "--discover --make json --jobs 64");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_EQ(Lines(), kAccounts);
}

TEST_F(BatchInterruptions, ByTheEndOfASessionArePassedOverWhereTheyAreIgnored) {
    StartProgram(TRADEBILL_PROGRAM, "--discover --jobs 1", "trap '' HUP INT; ");
    ASSERT_TRUE(Becomes([this] { return HasLines(1); }));
    ::kill(batch_, SIGHUP);
    ::kill(batch_, SIGINT);
    EXPECT_EQ(End(), 0);
    EXPECT_EQ(Lines(), kAccounts);
}

TEST_F(BatchInterruptions, WhileItLooksForAccountsAreWorthAnotherTry) {
    const std::string manifest = folder_.Path("rows");
    ASSERT_EQ(::mkfifo(manifest.c_str(), 0600), 0);
    Start("--manifest - 0<>" + Quoted(manifest));  // nobody ever writes
    ASSERT_TRUE(Becomes([this] { return Catches(SIGTERM); }));
    ::kill(batch_, SIGTERM);
    EXPECT_EQ(End(), 75);
    EXPECT_FALSE(fs::exists(out_));
}

TEST_F(BatchInterruptions, ThatTakeTheProgramAwayDontMatter) {
    const std::string copy = folder_.Path("copy");
    fs::copy_file(TRADEBILL_PROGRAM, copy);
    StartProgram(copy, "--discover --jobs 1");
    ASSERT_TRUE(Becomes([this] { return HasLines(2); }));
    fs::remove(copy);
    for (const pid_t worker : Workers()) ::kill(worker, SIGKILL);
    EXPECT_EQ(End(), 0) << ReadFile(folder_.Path("err1"));
    EXPECT_EQ(Lines(), kAccounts);
}

TEST_F(BatchInterruptions, OfAVolumeKeepTheResultsOfItsUsersAndAreTold) {
    Put("70000000", 1, "li");
    ASSERT_EQ(Batch("--discover --make json").exit, 0);
    fs::rename(root_ + "/Users/li", folder_.Path("unmounted"));
    fs::create_symlink(folder_.Path("nowhere"), root_ + "/Users/li");
    const Answer answer = Batch("--discover --make json --resume");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "tradebill: can't read " + root_ + "/Users/li: it leads nowhere")) << answer.err;
    EXPECT_EQ(Results().size(), static_cast<std::size_t>(kAccounts) + 1);
    for (const char* const shard : {"1/2", "2/2"}) {
        EXPECT_EQ(Batch(std::string("--discover --make json --shard ") + shard).exit, 1);
    }
    const Answer merged = RunProgram(folder_, "batch-merge --out " + Quoted(out_));
    EXPECT_EQ(merged.exit, 1);
    EXPECT_TRUE(Says(merged.err, "/Users/li: it leads nowhere")) << merged.err;
}

}  // namespace
}  // namespace tradebill::linux_batch_interruptions_test
