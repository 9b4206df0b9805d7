// What befalls a batch: signals, crashes, folders and disks that don't do as they should.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "batch/results_file.h"
#include "cli/linux/batch_process.h"
#include "support/sanitized.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::linux_batch_faults_test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr int kAccounts = 14;

class BatchFaults : public BatchProcess {
protected:
    BatchFaults() {
        for (int i = 0; i < kAccounts; ++i) Put(Number(i), 1);
    }
    static std::string Number(int i) { return std::to_string(90010000 + i); }

    /// All accounts are there once, and nothing else is.
    void ExpectAllOnce() const {
        EXPECT_EQ(Lines(), kAccounts);
        EXPECT_EQ(Results().size(), static_cast<std::size_t>(kAccounts));
        for (int i = 0; i < kAccounts; ++i) {
            EXPECT_TRUE(fs::exists(FolderOfAccount(Number(i)) + "/TradeBill.html")) << i;
            EXPECT_TRUE(fs::exists(FolderOfAccount(Number(i)) + "/report.json")) << i;
        }
        EXPECT_FALSE(fs::exists(out_ + "/.work"));
    }
};

TEST_F(BatchFaults, ASignalLetsTheAccountsInWorkBeFinished) {
    Start("--discover --jobs 2");
    ASSERT_TRUE(Becomes([this] { return HasLines(2); }));
    ::kill(batch_, SIGTERM);
    EXPECT_EQ(End(), 75);
    const ResultsByAccount before = Results();
    EXPECT_LT(before.size(), static_cast<std::size_t>(kAccounts));
    for (const auto& [key, result] : before) EXPECT_EQ(result.status, AccountStatus::Ok) << result.reason;
    EXPECT_TRUE(Says(ReadFile(folder_.Path("out1")), " left (--resume goes on)\n"));
    EXPECT_TRUE(Says(ReadFile(folder_.Path("err1")), "tradebill: stopping: "));
    EXPECT_FALSE(fs::exists(out_ + "/.work"));
    const Answer answer = Batch("--discover --resume");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "kept from before  " + std::to_string(before.size()) + "\n")) << answer.out;
    ExpectAllOnce();
}

TEST_F(BatchFaults, ASignalDoesntWaitLongerThanItIsTold) {
    Start("--discover --jobs 1 --stop-after 0");
    ASSERT_TRUE(Becomes([this] { return HasLines(1); }));
    ::kill(batch_, SIGINT);
    EXPECT_EQ(End(), 75);
    EXPECT_EQ(Batch("--discover --resume").exit, 0);
    ExpectAllOnce();
}

TEST_F(BatchFaults, AKilledBatchLosesTheAccountsInWorkAlone) {
    Start("--discover --jobs 2");
    ASSERT_TRUE(Becomes([this] { return HasLines(3); }));
    const std::vector<pid_t> workers = Workers();
    ::kill(batch_, SIGKILL);
    EXPECT_EQ(End(), -SIGKILL);
    for (const pid_t worker : workers) {
        EXPECT_TRUE(Becomes([worker] { return ::kill(worker, 0) != 0; })) << "a worker outlives its batch";
    }
    const std::size_t before = Results().size();
    EXPECT_GE(before, 3U);
    for (const auto& [key, result] : Results()) {
        EXPECT_TRUE(fs::exists(FolderOfAccount(key.account) + "/report.json"));
    }
    const Answer answer = Batch("--discover --resume");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "kept from before  " + std::to_string(before) + "\n")) << answer.out;
    ExpectAllOnce();
}

TEST_F(BatchFaults, AKilledWorkerIsReplacedAndCostsNoOtherAccount) {
    Start("--discover --jobs 1");
    ASSERT_TRUE(Becomes([this] { return HasLines(2); }));
    for (const pid_t worker : Workers()) ::kill(worker, SIGKILL);
    EXPECT_EQ(End(), 0) << ReadFile(folder_.Path("err1"));  // it had answered before, so the account was asked again
    ExpectAllOnce();
}

TEST_F(BatchFaults, AWorkerThatNeedsMoreThanItMayCostsItsAccount) {
    if (kSanitized) GTEST_SKIP() << "no process has so little memory here";
    const std::string path = Bills() + "/D" + Number(3) + ".20240102o.txt";
    std::ofstream(path, std::ios::app | std::ios::binary) << std::string(60U << 20U, ' ');
    const Answer answer = Batch("--discover --jobs 1 --memory 60M");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(ResultOf(Number(3)).status, AccountStatus::Crashed);
    EXPECT_EQ(ResultOf(Number(3)).reason, "it took more memory than it may (--memory), or than there is");
    for (int i = 0; i < kAccounts; ++i) {
        if (i == 3) continue;
        EXPECT_EQ(ResultOf(Number(i)).status, AccountStatus::Ok) << ResultOf(Number(i)).reason;
    }
    EXPECT_EQ(Lines(), kAccounts);
}

TEST_F(BatchFaults, AFolderThatCannotBeReadCostsItsAccounts) {
    fs::create_directories(fs::path(Bills("closed")).parent_path());
    fs::create_symlink("Bill", Bills("closed"));  // it leads nowhere but to itself
    const Answer found = Batch("--discover");
    EXPECT_EQ(found.exit, 1);
    EXPECT_TRUE(Says(found.err, "tradebill: can't read " + Bills("closed"))) << found.err;
    EXPECT_EQ(Results().size(), static_cast<std::size_t>(kAccounts));
    const Answer listed = Batch(PutManifest("user,account\nclosed,90010001\ndemo,90010002\n"));
    EXPECT_EQ(listed.exit, 1);
    EXPECT_EQ(Ends(), (Names{"closed/90010001 failed", "demo/90010002 ok"}));
}

TEST_F(BatchFaults, AFullDiskIsToldAndGoneOnFrom) {
    const std::string command = "ulimit -f 60; exec " + Quoted(TRADEBILL_PROGRAM) + " batch --root " + Quoted(root_) +
                                " --out " + Quoted(out_) + " --discover";
    const int exit = RunWithOutputs("trap '' XFSZ; " + command, folder_.Path("out1"), folder_.Path("err1"));
    EXPECT_EQ(exit, 1);
    const std::string told = ReadFile(folder_.Path("err1"));
    EXPECT_TRUE(Says(told, ": failed: can't write ")) << told;
    EXPECT_EQ(Results().size(), static_cast<std::size_t>(kAccounts));  // none of them is whole, each is told
    EXPECT_FALSE(fs::exists(FolderOfAccount(Number(0)) + "/TradeBill.html"));
    EXPECT_EQ(Batch("--discover --resume").exit, 0);
    ExpectAllOnce();
}

TEST_F(BatchFaults, ResultsThatCannotBeKeptEndIt) {
    // Beyond this size no file grows: the results' own, since each account's files are smaller.
    const std::string manifest = "--discover --make json --kind domestic";
    const std::string command = "ulimit -f 64; exec " + Quoted(TRADEBILL_PROGRAM) + " batch --root " + Quoted(root_) +
                                " --out " + Quoted(out_) + " " + manifest;
    fs::create_directories(out_);
    for (int i = kAccounts; i < 120; ++i) Put(Number(i), 1);
    const int exit = RunWithOutputs("trap '' XFSZ; " + command, folder_.Path("out1"), folder_.Path("err1"));
    EXPECT_EQ(exit, 1);
    EXPECT_TRUE(Says(ReadFile(folder_.Path("err1")), "tradebill: can't write " + out_ + "/results.jsonl"))
        << ReadFile(folder_.Path("err1"));
    const std::size_t before = Results().size();
    EXPECT_LT(before, 120U);
    const Answer answer = Batch(manifest + " --resume");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "kept from before  " + std::to_string(before) + "\n")) << answer.out;
    EXPECT_EQ(Results().size(), 120U);
    EXPECT_EQ(Lines(), 120);
}

TEST_F(BatchFaults, AnOutputThatIsntAFolderIsRefused) {
    std::ofstream(out_) << "x";
    EXPECT_EQ(Batch("--discover").exit, 2);
    EXPECT_EQ(ReadFile(out_), "x");
}

TEST_F(BatchFaults, AnotherZoneAndAnotherClockChangeNothing) {
    ASSERT_EQ(Batch("--discover --today 2024-01-02").exit, 0);
    const ResultsByAccount before = Results();
    const std::string command = "TZ=Pacific/Kiritimati exec " + Quoted(TRADEBILL_PROGRAM) + " batch --root " +
                                Quoted(root_) + " --out " + Quoted(out_) + " --discover --resume";
    EXPECT_EQ(RunWithOutputs(command, folder_.Path("out1"), folder_.Path("err1")), 0);
    EXPECT_EQ(Results(), before);
}

}  // namespace
}  // namespace tradebill::linux_batch_faults_test
