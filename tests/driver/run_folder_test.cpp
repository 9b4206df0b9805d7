#include "driver/run_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "images/report_images.h"
#include "platform/lock_file.h"
#include "platform/paths.h"
#include "support/temp_folder.h"

namespace tradebill::run_folder_test {
namespace {

namespace fs = std::filesystem;

class RunFolder : public testing::Test {
protected:
    [[nodiscard]] std::size_t CountEntries() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(place_.Path()), {}));
    }

    CTempFolder place_;
};

TEST_F(RunFolder, LiesInItsPlaceAndGoesWithItsFiles) {
    {
        const CRunFolder folder(place_.Path());
        ASSERT_TRUE(folder.IsReady());
        EXPECT_EQ(FolderOf(folder.Path()), NativePath(place_.Path()));
        EXPECT_TRUE(FileNameOf(folder.Path()).starts_with(".tradebill-"));
        EXPECT_TRUE(fs::is_directory(folder.Path()));
        std::ofstream(folder.PathOf(kWorkPage)) << "page";
        std::ofstream(folder.PathOf("RiskFigure.jpg")) << "picture";
    }
    EXPECT_EQ(CountEntries(), 0U);
}

TEST_F(RunFolder, IsAnotherOneForEveryRun) {
    const CRunFolder one(place_.Path());
    const CRunFolder other(place_.Path());
    EXPECT_NE(one.Path(), other.Path());
    EXPECT_TRUE(fs::is_directory(one.Path()));
    EXPECT_TRUE(fs::is_directory(other.Path()));
}

TEST_F(RunFolder, RemovesThoseOfTheDead) {
    place_.Write(".tradebill-killed/lock", "");
    place_.Write(".tradebill-killed/page.html", "half a pa");
    place_.Write(".tradebill-killed/copy.html", "half a pa");
    for (const std::string_view picture : ReportPictureNames()) {
        place_.Write(".tradebill-killed/" + std::string(picture), "picture");
    }
    place_.Write(".tradebill-withoutlock/RiskFigure.jpg", "picture");
    fs::create_directory(place_.Path(".tradebill-empty"));
    { const CRunFolder folder(place_.Path()); }
    EXPECT_EQ(CountEntries(), 0U);
}

TEST_F(RunFolder, LeavesThoseOfTheLivingAlone) {
    place_.Write(".tradebill-alive/page.html", "half a pa");
    const CLockFile lock(place_.Path(".tradebill-alive/lock"), CLockFile::Which::MadeIfMissing);
    ASSERT_TRUE(lock.IsHeld());
    { const CRunFolder folder(place_.Path()); }
    EXPECT_EQ(ReadFile(place_.Path(".tradebill-alive/page.html")), "half a pa");
}

TEST_F(RunFolder, LeavesADeadOneWithWhatIsNoFile) {
    place_.Write(".tradebill-dead/page.html/diary.txt", "mine");
    place_.Write(".tradebill-dead/copy.html", "half a pa");
    place_.Write(".tradebill-dead/lock", "");
    { const CRunFolder folder(place_.Path()); }
    EXPECT_EQ(ReadFile(place_.Path(".tradebill-dead/page.html/diary.txt")), "mine");
    EXPECT_EQ(std::distance(fs::directory_iterator(place_.Path(".tradebill-dead")), {}), 1);
}

// Whoever may hold it.
TEST_F(RunFolder, LeavesThoseWhoseLockCantBeOpened) {
    place_.Write(".tradebill-odd/lock/diary.txt", "mine");
    place_.Write(".tradebill-odd/page.html", "half a pa");
    { const CRunFolder folder(place_.Path()); }
    EXPECT_EQ(ReadFile(place_.Path(".tradebill-odd/page.html")), "half a pa");
}

TEST_F(RunFolder, LeavesWhatNoRunHasMade) {
    place_.Write(".tradebill-notes/diary.txt", "mine");
    place_.Write("tradebill-old/page.html", "mine");
    place_.Write(".tradebill-file", "mine");
    { const CRunFolder folder(place_.Path()); }
    EXPECT_EQ(ReadFile(place_.Path(".tradebill-notes/diary.txt")), "mine");
    EXPECT_EQ(ReadFile(place_.Path("tradebill-old/page.html")), "mine");
    EXPECT_EQ(ReadFile(place_.Path(".tradebill-file")), "mine");
}

TEST_F(RunFolder, IsNotReadyWhereNothingCanBeMade) {
    const CRunFolder folder(place_.Path("missing"));
    EXPECT_FALSE(folder.IsReady());
    EXPECT_FALSE(folder.IsTooDeep());
    EXPECT_NE(folder.Reason(), "");
    EXPECT_FALSE(fs::exists(place_.Path("missing")));
}

#if !defined(_WIN32)
TEST_F(RunFolder, FollowsNoLink) {
    const std::string diary = place_.Write("elsewhere/page.html", "mine");
    fs::create_directory(place_.Path("place"));
    fs::create_directory_symlink(place_.Path("elsewhere"), place_.Path("place/.tradebill-link"));
    { const CRunFolder folder(place_.Path("place")); }
    EXPECT_EQ(ReadFile(diary), "mine");
    EXPECT_TRUE(fs::is_symlink(place_.Path("place/.tradebill-link")));
}
#endif

}  // namespace
}  // namespace tradebill::run_folder_test
