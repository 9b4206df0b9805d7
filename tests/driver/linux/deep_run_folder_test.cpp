// Folders so deep that the system opens no path in one that lies deeper.
#include <gtest/gtest.h>
#include <linux/limits.h>

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>

#include "driver/bill_folders.h"
#include "driver/reset_page.h"
#include "driver/run_files.h"
#include "driver/run_fixture.h"
#include "driver/run_folder.h"

namespace tradebill::linux_deep_run_folder_test {
namespace {

namespace fs = std::filesystem;

class LinuxDeepRunFolder : public RunFixture {
protected:
    LinuxDeepRunFolder() {
        fs::create_directories(deep_);
        report.ReportDocument.BillFolder = deep_;
    }

    static std::string Deepened(std::string folder) {
        constexpr std::size_t kLongestName = 200;
        // The page's name fits behind it, a picture's in the folder of a run doesn't.
        constexpr std::size_t kLength = PATH_MAX - sizeof "/TradeBill.html";
        while (folder.size() < kLength) {
            const std::size_t left = kLength - folder.size() - 1;
            folder += "/" + std::string(left > kLongestName + 1 ? kLongestName : left, 'd');
        }
        return folder;
    }

    std::string deep_ = Deepened(root_.Path());
};

TEST_F(LinuxDeepRunFolder, IsNotMade) {
    const CRunFolder folder(deep_);
    EXPECT_FALSE(folder.IsReady());
    EXPECT_TRUE(folder.IsTooDeep());
    EXPECT_TRUE(fs::is_empty(deep_));
}

TEST_F(LinuxDeepRunFolder, LeavesPageAndPicturesToTheirPlaces) {
    RunResult result;
    CRunFiles files(report, {.forPage = true, .forPictures = true}, result);
    EXPECT_EQ(files.WorkPage(), PagePath(report));
    EXPECT_EQ(report.ReportDocument.WorkFolder, "");
    files.Images().saved.push_back({.name = "RiskFigure.jpg", .width = 500, .height = 250});
    files.ShowPage();
    files.Finish(std::nullopt);
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.picturesSaved, 1);
    EXPECT_TRUE(result.problems.IsEmpty());
    EXPECT_TRUE(fs::is_empty(deep_));  // nothing is brought there or taken away
}

TEST_F(LinuxDeepRunFolder, LeavesThePicturesOfAPageThatFailed) {
    RunResult result;
    CRunFiles files(report, {.forPage = true, .forPictures = true}, result);
    files.Images().saved.push_back({.name = "RiskFigure.jpg", .width = 500, .height = 250});
    files.Finish("the disk is full");
    EXPECT_FALSE(result.pageWritten);
    EXPECT_EQ(result.picturesSaved, 1);
}

TEST_F(LinuxDeepRunFolder, LeavesPicturesNowhereWithoutTheirFolder) {
    RunResult result;
    CRunFiles files(report, {.forPage = true, .forPictures = false}, result);
    EXPECT_EQ(files.WorkPage(), PagePath(report));
    EXPECT_EQ(report.ReportDocument.WorkFolder, std::string(1, '\0'));
    files.FinishPictures();
    EXPECT_EQ(result.picturesSaved, 0);
}

TEST_F(LinuxDeepRunFolder, LeavesAPlaceholderPageToItsPlace) {
    const std::string page = deep_ + "/TradeBill.html";
    EXPECT_FALSE(ResetPage(page, true));
    EXPECT_TRUE(ReadFile(page).ends_with("</html>\r\n"));
    EXPECT_EQ(std::distance(fs::directory_iterator(deep_), {}), 1);
}

}  // namespace
}  // namespace tradebill::linux_deep_run_folder_test
