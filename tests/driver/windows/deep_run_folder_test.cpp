// Folders so deep that the system opens no path in one that lies deeper.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include "driver/run_fixture.h"
#include "driver/run_folder.h"

namespace tradebill::windows_deep_run_folder_test {
namespace {

namespace fs = std::filesystem;

class DeepRunFolder : public RunFixture {
protected:
    DeepRunFolder() {
        PutBothDays();
        fs::create_directory(deep_);
    }

    // 259 bytes hold the longest picture in Image_files behind it, also as a part, but not in the folder of a run.
    static constexpr std::size_t kLength = 220;
    std::string deep_ = root_.Path(std::string(kLength - root_.Path().size() - 1, 'd'));
};

TEST_F(DeepRunFolder, IsNotMade) {
    const CRunFolder folder(deep_);
    EXPECT_FALSE(folder.IsReady());
    EXPECT_TRUE(folder.IsTooDeep());
    EXPECT_TRUE(fs::is_empty(deep_));
}

TEST_F(DeepRunFolder, LeavesPageAndPicturesToTheirPlaces) {
    const RunResult result = RunAlone({.outFolder = deep_});
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.picturesSaved, 14);
    EXPECT_TRUE(result.problems.IsEmpty());
    EXPECT_EQ(ReadFile(deep_ + "/TradeBill.html"), ReadFile(result.pagePath));
    EXPECT_NE(ReadFile(deep_ + "/Image_files/TradeStatistics.jpg"), "");
}

}  // namespace
}  // namespace tradebill::windows_deep_run_folder_test
