#include "platform/lock_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "platform/system_error.h"
#include "support/temp_folder.h"

namespace tradebill::lock_file_test {
namespace {

namespace fs = std::filesystem;
using Which = CLockFile::Which;

class LockFile : public testing::Test {
protected:
    CTempFolder folder_;
    std::string path_ = folder_.Path("lock");
};

TEST_F(LockFile, IsMadeAndGoesWithItsHolder) {
    {
        const CLockFile lock(path_, Which::MadeIfMissing);
        EXPECT_TRUE(lock.IsHeld());
        EXPECT_FALSE(lock.IsTaken());
        EXPECT_TRUE(fs::exists(path_));
    }
    EXPECT_FALSE(fs::exists(path_));
}

TEST_F(LockFile, HasOneHolder) {
    std::optional<CLockFile> first(std::in_place, path_, Which::MadeIfMissing);
    {
        const CLockFile second(path_, Which::MadeIfMissing);
        EXPECT_FALSE(second.IsHeld());
        EXPECT_TRUE(second.IsTaken());
        const CLockFile third(path_, Which::FoundOnly);
        EXPECT_TRUE(third.IsTaken());
    }
    EXPECT_TRUE(first->IsHeld());
    EXPECT_TRUE(fs::exists(path_));  // which those who got nothing leave alone
    first.reset();
    EXPECT_TRUE(CLockFile(path_, Which::MadeIfMissing).IsHeld());
}

TEST_F(LockFile, CanBeHeldWhereADeadOneLeftIt) {
    folder_.Write("lock", "process 1");
    {
        const CLockFile lock(path_, Which::FoundOnly);
        EXPECT_TRUE(lock.IsHeld());
    }
    EXPECT_FALSE(fs::exists(path_));
}

TEST_F(LockFile, IsNotMadeIfItHasToBeThere) {
    const CLockFile lock(path_, Which::FoundOnly);
    EXPECT_TRUE(MeansMissing(LastSystemError()));
    EXPECT_FALSE(lock.IsHeld());
    EXPECT_FALSE(lock.IsTaken());
    EXPECT_FALSE(fs::exists(path_));
}

TEST_F(LockFile, IsNeitherHeldNorTakenWhereNoneCanBe) {
    const CLockFile lock(folder_.Path("missing/lock"), Which::MadeIfMissing);
    EXPECT_NE(LastSystemError(), 0U);
    EXPECT_FALSE(lock.IsHeld());
    EXPECT_FALSE(lock.IsTaken());
}

TEST_F(LockFile, SaysWhoHoldsIt) {
    EXPECT_EQ(HolderIn(path_), "");
    {
        const CLockFile lock(path_, Which::MadeIfMissing);
        EXPECT_EQ(HolderIn(path_), "");
        lock.Name("a long name of somebody");
        lock.Name("process 4711");
        EXPECT_EQ(HolderIn(path_), "process 4711");
    }
    EXPECT_EQ(HolderIn(path_), "");
}

TEST_F(LockFile, IsGoneOnceItIsReleased) {
    CLockFile lock(path_, Which::MadeIfMissing);
    EXPECT_TRUE(lock.Release());
    EXPECT_FALSE(lock.IsHeld());
    EXPECT_FALSE(fs::exists(path_));
    const CLockFile next(path_, Which::MadeIfMissing);
    EXPECT_TRUE(lock.Release());  // once more changes nothing
    EXPECT_TRUE(fs::exists(path_));
}

}  // namespace
}  // namespace tradebill::lock_file_test
