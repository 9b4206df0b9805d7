#include "driver/bill_folders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "base/text.h"
#include "driver/run_fixture.h"
#include "report/request_copy.h"

namespace tradebill::bill_folders_test {
namespace {

namespace fs = std::filesystem;

class BillFolders : public RunFixture {
protected:
    BillFolders() { report.Request = CopyRequest(request_); }
};

TEST_F(BillFolders, AreMadeOneInTheOther) {
    PrepareBillFolders(report);
    EXPECT_TRUE(fs::is_directory(root_.Path("Users/u/Data/Bill/Image/Image_files")));
    EXPECT_EQ(report.ReportDocument.BillFolder, root_.Path("Users/u/Data/Bill/Image"));
    EXPECT_EQ(report.ReportDocument.ImageFolderName, "Image_files");
    EXPECT_EQ(PagePath(report), PageFile());
}

TEST_F(BillFolders, KeepWhatIsInThem) {
    root_.Write("Users/u/Data/Bill/Image/Image_files/old.jpg", "picture");
    root_.Write("Users/u/Data/other.txt", "text");
    PrepareBillFolders(report);
    EXPECT_EQ(ReadFile(root_.Path("Users/u/Data/Bill/Image/Image_files/old.jpg")), "picture");
    EXPECT_EQ(ReadFile(root_.Path("Users/u/Data/other.txt")), "text");
    EXPECT_EQ(report.ReportDocument.BillFolder, root_.Path("Users/u/Data/Bill/Image"));
}

TEST_F(BillFolders, DontIncludeTheUsersFolder) {
    report.ReportDocument.ImageFolderName = "earlier";
    CopyField(report.Request.UserFolder, "nobody");
    PrepareBillFolders(report);
    EXPECT_FALSE(fs::exists(root_.Path("Users/nobody")));
    EXPECT_EQ(report.ReportDocument.BillFolder, root_.Path("Users/nobody/Data"));
    EXPECT_EQ(report.ReportDocument.ImageFolderName, "earlier");
}

TEST_F(BillFolders, EndAtTheLevelThatCantBeMade) {
    const std::string levels[] = {"Users/u/Data", "Users/u/Data/Bill", "Users/u/Data/Bill/Image"};
    for (const std::string& level : levels) {
        fs::remove_all(root_.Path("Users/u/Data"));
        root_.Write(level, "a file in its place");
        report.ReportDocument.ImageFolderName = "earlier";
        PrepareBillFolders(report);
        EXPECT_EQ(report.ReportDocument.BillFolder, root_.Path(level));
        EXPECT_EQ(report.ReportDocument.ImageFolderName, "earlier");
        EXPECT_EQ(PagePath(report), root_.Path(level) + "/TradeBill.html");
        EXPECT_EQ(ReadFile(root_.Path(level)), "a file in its place");
    }
}

TEST_F(BillFolders, NameThePicturesFolderEvenIfItCantBeMade) {
    root_.Write("Users/u/Data/Bill/Image/Image_files", "a file in its place");
    PrepareBillFolders(report);
    EXPECT_EQ(report.ReportDocument.BillFolder, root_.Path("Users/u/Data/Bill/Image"));
    EXPECT_EQ(report.ReportDocument.ImageFolderName, "Image_files");
}

TEST_F(BillFolders, NameStatementsByFamilyAndDay) {
    const std::string bill = root_.Path("Users/u/Data/Bill/");
    const CalendarDay day{2024, 1, 2};
    EXPECT_EQ(StatementPath(report, day, false), bill + "D10086.20240102o.txt");
    EXPECT_EQ(StatementPath(report, day, true), bill + "D10086.20240102.txt");
    report.Request.StatementKind = 2;
    EXPECT_EQ(StatementPath(report, day, false), bill + "DWP10086.20240102o.txt");
    EXPECT_EQ(StatementPath(report, day, true), bill + "DWP10086.20240102.txt");
}

TEST_F(BillFolders, HavePathsOfAtMost259Bytes) {
    const std::string tail = "/Users/u/Data/Bill/D10086.20240102o.txt";
    const std::string fits(259 - tail.size(), 'r');
    report.RootFolder = fits;
    EXPECT_EQ(StatementPath(report, {2024, 1, 2}, false), fits + tail);
    report.RootFolder = fits + "r";
    EXPECT_EQ(StatementPath(report, {2024, 1, 2}, false), (fits + "r" + tail).substr(0, 259));

    report.ReportDocument.BillFolder = std::string(259 - 15, 'b');
    EXPECT_EQ(PagePath(report), report.ReportDocument.BillFolder + "/TradeBill.html");
    report.ReportDocument.BillFolder += "b";
    EXPECT_EQ(PagePath(report), report.ReportDocument.BillFolder + "/TradeBill.htm");
}

TEST_F(BillFolders, ThatCantBeMadeDontStopTheRun) {
    CMessageWindow window;
    request_.HostWindow = window.Handle();
    CopyField(request_.UserFolder, "nobody");
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::Finished);
    EXPECT_FALSE(result.pageWritten);
    EXPECT_EQ(result.pagePath, root_.Path("Users/nobody/Data/TradeBill.html"));
    EXPECT_EQ(window.messages.size(), 1U);
    EXPECT_FALSE(fs::exists(root_.Path("Users/nobody")));
}

TEST_F(BillFolders, AreNotNeededToReadStatements) {
    PutBothDays();
    root_.Write("Users/u/Data/Bill/Image", "a file in its place");
    const RunResult result = Run();
    EXPECT_EQ(result.statementsRead, 2);
    EXPECT_FALSE(result.pageWritten);
    EXPECT_EQ(report.MatchStore.Count(), 4);
}

}  // namespace
}  // namespace tradebill::bill_folders_test
