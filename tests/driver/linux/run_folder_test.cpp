// Folders of runs where others make and clear theirs, and where rights keep a run from clearing.
#include "driver/run_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>
#include <vector>

#include "support/bound_user.h"
#include "support/temp_folder.h"

namespace tradebill::linux_run_folder_test {
namespace {

namespace fs = std::filesystem;

// Each takes those of the others for dead between their making and their locking, and may come to the same names.
TEST(LinuxRunFolder, IsMadeHoweverManyOthersMakeAndClearTheirs) {
    constexpr int kFolders = 500;
    const CTempFolder place;
    std::atomic<int> made = 0;
    std::vector<std::thread> runs;
    for (int run = 0; run < 4; ++run) {
        runs.emplace_back([&] {
            for (int i = 0; i < kFolders; ++i) {
                CRunFolder folder(place.Path());
                const bool isOwn = folder.IsReady() && fs::exists(folder.PathOf("lock"));
                if (isOwn && folder.Remove()) ++made;
            }
        });
    }
    for (std::thread& run : runs) run.join();
    EXPECT_EQ(made, 4 * kFolders);
    EXPECT_TRUE(fs::is_empty(place.Path()));
}

TEST(LinuxRunFolder, LeavesADeadOneWhoseLockCantBeRemoved) {
    const CTempFolder place;
    const fs::path lock = place.Write(".tradebill-dead/lock", "");
    fs::permissions(place.Path(), fs::perms::all);
    fs::permissions(lock, fs::perms::all);
    fs::permissions(lock.parent_path(), fs::perms{0555});
    {
        const CBoundUser user;
        ASSERT_TRUE(user.IsBound());
        const CRunFolder folder(place.Path());
        EXPECT_TRUE(folder.IsReady());
    }
    fs::permissions(lock.parent_path(), fs::perms::all);
    EXPECT_TRUE(fs::exists(lock));
}

}  // namespace
}  // namespace tradebill::linux_run_folder_test
