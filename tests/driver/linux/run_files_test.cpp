// Pictures in a folder that nothing may be moved to or taken from.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "driver/run_fixture.h"
#include "support/bound_user.h"

namespace tradebill::linux_run_files_test {
namespace {

namespace fs = std::filesystem;

class LinuxRunFiles : public RunFixture {
protected:
    void MayDo(const std::string& path, fs::perms rights) const { fs::permissions(root_.Path(path), rights); }
};

TEST_F(LinuxRunFiles, TellOfOlderPicturesThatCantBeTakenAway) {
    PutBothDays();
    ASSERT_EQ(Run().picturesSaved, 14);
    for (const auto& entry : fs::recursive_directory_iterator(root_.Path())) {
        fs::permissions(entry.path(), fs::perms::all);
    }
    MayDo("", fs::perms::all);
    const std::string pictures = "Users/u/Data/Bill/Image/Image_files";
    MayDo(pictures, fs::perms{0555});
    RunResult result;
    {
        const CBoundUser user;
        ASSERT_TRUE(user.IsBound());
        result = Run();
    }
    MayDo(pictures, fs::perms::all);
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.picturesSaved, 0);
    EXPECT_EQ(result.problems.pictures.size(), 28U);
    EXPECT_EQ(std::ranges::count(result.problems.pictures, PictureStage::Saving, &PictureFailure::stage), 14);
    EXPECT_EQ(std::ranges::count(result.problems.pictures, PictureStage::Removing, &PictureFailure::stage), 14);
    for (const PictureFailure& failure : result.problems.pictures) EXPECT_EQ(failure.reason, "Permission denied");
}

}  // namespace
}  // namespace tradebill::linux_run_files_test
