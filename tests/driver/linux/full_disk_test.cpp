// Runs whose files can't be written to their end.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "driver/run_fixture.h"
#include "support/file_size_limit.h"

namespace tradebill::linux_full_disk_test {
namespace {

namespace fs = std::filesystem;

class FullDisk : public RunFixture {
protected:
    FullDisk() { PutBothDays(); }

    static constexpr rlim_t kTooLittle = 4096;  // for a page, and for each picture but the buttons
    CMessageWindow window_;
};

TEST_F(FullDisk, DoesntKeepTheMessageBack) {
    request_.HostWindow = window_.Handle();
    const CFileSizeLimit limit(kTooLittle);
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::Finished);
    EXPECT_FALSE(result.pageWritten);
    ASSERT_TRUE(result.problems.page);
    EXPECT_EQ(result.problems.page->reason, "File too large");
    EXPECT_EQ(result.picturesSaved, 0);
    EXPECT_EQ(window_.messages.size(), 1U);
}

TEST_F(FullDisk, LeavesTheReportOfBefore) {
    Run();
    const std::string page = Page();
    const std::string picture = root_.Path("Users/u/Data/Bill/Image/Image_files/RiskFigure.jpg");
    const std::string painted = ReadFile(picture);
    ASSERT_NE(painted, "");
    {
        const CFileSizeLimit limit(kTooLittle);
        EXPECT_FALSE(Run().pageWritten);
    }
    EXPECT_EQ(Page(), page);
    EXPECT_EQ(ReadFile(picture), painted);
}

// A host that stops the run looks at the page then.
TEST_F(FullDisk, LeavesThePageOfBeforeForAStopToo) {
    Run();
    const std::string page = Page();
    const UniqueEvent stop(CreateHostEvent(kAutoReset));
    const UniqueEvent acknowledge(CreateHostEvent(kManualReset));
    request_.StopEvent = stop.get();
    request_.AckEvent = acknowledge.get();
    watcher_.onStage = [&](const std::string& stage) {
        if (stage == "page") SignalHostEvent(stop.get());
    };
    const CFileSizeLimit limit(kTooLittle);
    const RunResult result = Run();
    EXPECT_TRUE(IsSignalled(acknowledge));
    EXPECT_FALSE(result.pageWritten);
    EXPECT_EQ(Page(), page);
}

TEST_F(FullDisk, LeavesNothingBehind) {
    {
        const CFileSizeLimit limit(kTooLittle);
        Run();
    }
    for (const auto& entry : fs::directory_iterator(root_.Path("Users/u/Data/Bill/Image"))) {
        EXPECT_EQ(entry.path().filename(), "Image_files");
        EXPECT_TRUE(fs::is_empty(entry.path()));
    }
}

}  // namespace
}  // namespace tradebill::linux_full_disk_test
