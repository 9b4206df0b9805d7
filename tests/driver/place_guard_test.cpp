#include "driver/place_guard.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "driver/run_fixture.h"
#include "platform/lock_file.h"
#include "platform/process.h"
#include "support/temp_folder.h"

namespace tradebill::place_guard_test {
namespace {

namespace fs = std::filesystem;

TEST(PlaceGuard, HoldsAFolderAndLeavesNothingInIt) {
    const CTempFolder folder;
    {
        const CPlaceGuard guard(folder.Path(), 0);
        EXPECT_TRUE(guard.IsHeld());
        EXPECT_EQ(guard.Holder(), "");
        EXPECT_TRUE(HolderIn(folder.Path(".tradebill.lock")).starts_with(OwnProcessName() + ", since "));
    }
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST(PlaceGuard, NamesWhoHoldsTheFolder) {
    const CTempFolder folder;
    const CPlaceGuard guard(folder.Path(), 0);
    const CPlaceGuard other(folder.Path(), 0);
    EXPECT_FALSE(other.IsHeld());
    EXPECT_TRUE(other.Holder().starts_with("process ")) << other.Holder();
}

TEST(PlaceGuard, TellsThatAFolderIsTakenBySomebodyWithoutAName) {
    const CTempFolder folder;
    const CLockFile lock(folder.Path(".tradebill.lock"), CLockFile::Which::MadeIfMissing);
    ASSERT_TRUE(lock.IsHeld());
    const CPlaceGuard guard(folder.Path(), 0);
    EXPECT_FALSE(guard.IsHeld());
    EXPECT_EQ(guard.Holder(), "another program");
}

TEST(PlaceGuard, WaitsAsLongAsItIsTold) {
    const CTempFolder folder;
    const CPlaceGuard guard(folder.Path(), 0);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(CPlaceGuard(folder.Path(), 1).IsHeld());
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
}

TEST(PlaceGuard, SaysWhyAFolderCantBeHeld) {
    const CTempFolder folder;
    const CPlaceGuard guard(folder.Path("missing"), 0);
    EXPECT_FALSE(guard.IsHeld());
    EXPECT_EQ(guard.Holder(), "");
    EXPECT_NE(guard.Reason(), "");
}

class GuardedRun : public RunFixture {
protected:
    GuardedRun() { PutBothDays(); }
    [[nodiscard]] RunResult RunWaiting(int seconds) { return RunAlone({.wait = seconds}); }
    [[nodiscard]] std::string Folder() const { return root_.Path("Users/u/Data/Bill/Image"); }
};

TEST_F(GuardedRun, WritesNothingWhereAnotherDoes) {
    Run();
    const std::string page = Page();
    Put("D10086.20240103o.txt", FundsOf("20240103", "20.00"));
    const CPlaceGuard other(Folder(), 0);
    ASSERT_TRUE(other.IsHeld());
    const RunResult result = RunWaiting(0);
    EXPECT_EQ(result.end, RunEnd::PlaceTaken);
    EXPECT_FALSE(result.pageWritten);
    EXPECT_EQ(result.picturesSaved, 0);
    ASSERT_TRUE(result.problems.taken);
    EXPECT_EQ(result.problems.taken->folder, Folder());
    EXPECT_TRUE(result.problems.taken->holder.starts_with("process "));
    EXPECT_EQ(Page(), page);
}

TEST_F(GuardedRun, GoesOnOnceTheOtherIsDone) {
    EXPECT_TRUE(RunWaiting(0).pageWritten);
    std::optional<CPlaceGuard> other(std::in_place, Folder(), 0);
    std::thread leaving([&other] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.reset();
    });
    const RunResult result = RunWaiting(60);
    leaving.join();
    EXPECT_EQ(result.end, RunEnd::Finished);
    EXPECT_TRUE(result.pageWritten);
    EXPECT_FALSE(fs::exists(Folder() + "/.tradebill.lock"));
}

TEST_F(GuardedRun, IsThatOfAProgramAlone) {
    fs::create_directories(Folder());
    const CPlaceGuard other(Folder(), 0);
    EXPECT_TRUE(Run().pageWritten);  // a host's run doesn't look for others
}

}  // namespace
}  // namespace tradebill::place_guard_test
