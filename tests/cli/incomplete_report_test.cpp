// Reports of which something is missing: each is told on stderr, and none ends with 0; nothing is written over a good
// page that isn't a page of statements.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

#include "cli/file_address.h"
#include "cli/report_fixture.h"
#include "platform/paths.h"
#include "requests/format_choice.h"

namespace tradebill::incomplete_report_test {
namespace {

namespace fs = std::filesystem;

class IncompleteReport : public ReportFixture {
protected:
    [[nodiscard]] std::string StatementFile(const std::string& day) const {
        return root_.Path("Users/demo/Data/Bill/D90010002." + day + "o.txt");
    }
    /// A folder under the name of a statement.
    void PutFolder(const std::string& day) const { fs::create_directories(StatementFile(day)); }
    void PutGoodPage() const { root_.Write("Users/demo/Data/Bill/Image/TradeBill.html", "the last good page"); }
    [[nodiscard]] bool GoodPageStays() const { return ReadFile(PageFile()) == "the last good page"; }
};

TEST_F(IncompleteReport, WithoutAStatementIsWrongUseAndWritesNothing) {
    for (const bool quiet : {false, true}) {
        command_.quiet = quiet;
        const Answer answer = Run();
        EXPECT_EQ(answer.exit, 2);
        EXPECT_EQ(answer.out, "");
        EXPECT_TRUE(Says(answer.err, "no statement was found in the whole range")) << answer.err;
        EXPECT_TRUE(Says(answer.err, "--force")) << answer.err;
        EXPECT_FALSE(fs::exists(root_.Path("Users/demo/Data")));
    }
}

// The look at the trades, which the units come from, goes on where the run has ended.
TEST_F(IncompleteReport, NamesAStatementBehindTheErrorThatEndedIt) {
    root_.Write("BillTemplate/sides.ini",
                Gbk("[DEALFIELD]\r\nMONEY_MODE=9\r\nPING_DETAIL=1\r\n[PING_DETAIL]\r\nSTART_FLAG=平仓\r\n"
                    "END_FLAG=共\r\nSTART_OFFSET=1\r\nEND_OFFSET=0\r\nDELIMITER=|\r\nBID=11\r\n"));
    options_.templateName = "sides";
    root_.Write("Users/demo/Data/Bill/D90010002.20240102o.txt",
                Statement({"平仓", "b|1|2|3|4|5|6|7|8|9|10", "----", "共"}));
    PutFolder("20240103");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "the run failed with code 0x80070057")) << answer.err;
    EXPECT_TRUE(Says(answer.err, "tradebill: " + NativePath(StatementFile("20240103")) + " is not a file\n"))
        << answer.err;
}

TEST_F(IncompleteReport, OfAForeignAccountSaysThatItsTemplateIsntUsed) {
    options_.kind = "foreign";
    options_.templateName = "own";
    EXPECT_TRUE(Run().err.starts_with(
        "tradebill: warning: account 90010002: --template isn't used: foreign statements are read without one\n"));
}

TEST_F(IncompleteReport, WithoutAStatementLeavesPageAndFilesAsTheyWere) {
    PutGoodPage();
    command_.jsonFile = root_.Write("run.json", "old");
    command_.standaloneFile = root_.Write("page.html", "old");
    EXPECT_EQ(Run().exit, 2);
    EXPECT_TRUE(GoodPageStays());
    EXPECT_EQ(ReadFile(*command_.jsonFile), "old");
    EXPECT_EQ(ReadFile(*command_.standaloneFile), "old");
    EXPECT_FALSE(fs::exists(*command_.standaloneFile + ".part"));
}

TEST_F(IncompleteReport, WithoutAStatementIsWrittenByForceAndEndsWith1) {
    PutGoodPage();
    command_.force = true;
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "no statement was found in the whole range")) << answer.err;
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

TEST_F(IncompleteReport, OfStatementsIsNotChangedByForce) {
    PutStatement("20240102", "1500.25");
    command_.force = true;
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
}

TEST_F(IncompleteReport, OfLiveFiguresAloneHasNoStatement) {
    PutGoodPage();
    options_.from.reset();
    options_.to.reset();
    options_.liveFile = root_.Write("live.ini", "[BASE]\nKHQY=5.00\n");
    EXPECT_EQ(Run().exit, 2);
    EXPECT_TRUE(GoodPageStays());
    command_.force = true;
    EXPECT_EQ(Run().exit, 1);
    EXPECT_FALSE(GoodPageStays());
}

TEST_F(IncompleteReport, NamesAStatementThatIsNoFile) {
    PutStatement("20240102", "1500.25");
    PutFolder("20240103");
    for (const bool quiet : {false, true}) {
        command_.quiet = quiet;
        const Answer answer = Run();
        EXPECT_EQ(answer.exit, 1);
        EXPECT_EQ(answer.err, "tradebill: 20240103: " + NativePath(StatementFile("20240103")) + " is not a file\n");
        EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
        if (!quiet) {
            EXPECT_TRUE(Says(answer.out, "statements read   1 (0 days without a file, 1 unreadable)")) << answer.out;
        }
    }
}

TEST_F(IncompleteReport, OfNothingThatCanBeReadIsNotWritten) {
    PutGoodPage();
    PutFolder("20240103");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "is not a file\n")) << answer.err;
    EXPECT_TRUE(Says(answer.err, "no statement could be read: nothing is written")) << answer.err;
    EXPECT_TRUE(GoodPageStays());
    command_.force = true;
    EXPECT_EQ(Run().exit, 1);
    EXPECT_FALSE(GoodPageStays());
}

TEST_F(IncompleteReport, OfNothingThatCanBeReadHasNoMarksToGoBy) {
    PutFolder("20240103");
    options_.format = "auto";
    EXPECT_THROW(Run(), CNothingReadable);  // which the program ends with 1 for
    PutStatement("20240102", "1500.25");
    EXPECT_EQ(Run().exit, 1);
}

TEST_F(IncompleteReport, NamesAPictureThatCantBeSaved) {
    PutStatement("20240102", "1500.25");
    const std::string picture = "Users/demo/Data/Bill/Image/Image_files/AccountFigure.jpg";
    root_.Write(picture + "/in the way", "");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.err.starts_with("tradebill: can't write the picture " + NativePath(root_.Path(picture)) + ": "))
        << answer.err;
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
    fs::remove_all(root_.Path(picture));
    EXPECT_EQ(Run().exit, 0);
}

TEST_F(IncompleteReport, NamesAllPicturesThatCantBeSaved) {
    PutStatement("20240102", "1500.25");
    root_.Write("Users/demo/Data/Bill/Image/Image_files", "a file in the folder's place");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "can't make the folder")) << answer.err;
    EXPECT_EQ(std::ranges::count(answer.err, '\n'), 15) << answer.err;
}

TEST_F(IncompleteReport, TellsDayFileAndRowOfAnErrorDeepInAStatement) {
    root_.Write("BillTemplate/sides.ini",
                Gbk("[DEALFIELD]\r\nMONEY_MODE=9\r\nPING_DETAIL=1\r\n[PING_DETAIL]\r\nSTART_FLAG=平仓\r\n"
                    "END_FLAG=共\r\nSTART_OFFSET=1\r\nEND_OFFSET=0\r\nDELIMITER=|\r\nBID=11\r\nCONTRACT=0\r\n"));
    options_.templateName = "sides";
    root_.Write("Users/demo/Data/Bill/D90010002.20240103o.txt",
                Statement({"结算单", "", "平仓", "----", "b|1|2|3|4|5|6|7|8|9|10", "共"}));
    PutGoodPage();
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "code 0x80070057")) << answer.err;
    EXPECT_TRUE(Says(answer.err, "(20240103, D90010002.20240103o.txt, row 5, section closed)")) << answer.err;
    EXPECT_TRUE(GoodPageStays());
}

TEST_F(IncompleteReport, OfSlipsInTheOptionsLeavesTheGoodPage) {
    PutStatement("20240102", "1500.25");
    PutGoodPage();
    const ReportOptions good = options_;
    const auto slip = [&](auto change) {
        options_ = good;
        change(options_);
        EXPECT_NE(UsageErrorOf([this] { return Run().exit; }), "");
        EXPECT_TRUE(GoodPageStays());
    };
    slip([](ReportOptions& options) { std::swap(options.from, options.to); });
    slip([](ReportOptions& options) { options.from = ""; });
    slip([](ReportOptions& options) { options.account = ""; });
    slip([](ReportOptions& options) { options.templateName = "nope"; });
    options_ = good;
    EXPECT_EQ(Run().exit, 0);
    EXPECT_FALSE(GoodPageStays());
}

class OutFolder : public IncompleteReport {
protected:
    [[nodiscard]] std::string Refusal(const std::string& folder) {
        command_.outFolder = folder;
        return UsageErrorOf([this] { return Run().exit; });
    }
};

TEST_F(OutFolder, HoldsPageAndPicturesAndNothingIsMadeBesideTheStatements) {
    PutStatement("20240102", "1500.25");
    command_.outFolder = root_.Path("january");
    for (const char* const end : {"", "/", "//"}) {
        command_.outFolder = root_.Path("january") + end;
        const Answer answer = Run();
        EXPECT_EQ(answer.exit, 0);
        EXPECT_EQ(answer.err, "");
        EXPECT_TRUE(Says(answer.out, FileAddressOf(root_.Path("january/TradeBill.html")) + "\n")) << answer.out;
    }
    EXPECT_TRUE(ReadFile(root_.Path("january/TradeBill.html")).ends_with("</html>\r\n"));
    EXPECT_TRUE(fs::exists(root_.Path("january/Image_files/AccountFigure.jpg")));
    EXPECT_FALSE(fs::exists(root_.Path("Users/demo/Data/Bill/Image")));
}

TEST_F(OutFolder, KeepsOneMonthFromReplacingAnother) {
    PutStatement("20240102", "1500.25");
    PutGoodPage();
    command_.outFolder = root_.Path("january");
    EXPECT_EQ(Run().exit, 0);
    EXPECT_TRUE(GoodPageStays());
}

TEST_F(OutFolder, IsNotMadeWithoutAStatement) {
    command_.outFolder = root_.Path("january");
    EXPECT_EQ(Run().exit, 2);
    EXPECT_FALSE(fs::exists(root_.Path("january")));
    command_.force = true;
    EXPECT_EQ(Run().exit, 1);
    EXPECT_TRUE(fs::exists(root_.Path("january/TradeBill.html")));
}

TEST_F(OutFolder, IsAFolderThatIsThereOrCanBeMadeInOneStep) {
    PutStatement("20240102", "1500.25");
    EXPECT_PRED2(IsClearLine, Refusal(root_.Path("missing/january")), "--out");
    EXPECT_PRED2(IsClearLine, Refusal(root_.Write("file", "")), "--out");
    EXPECT_PRED2(IsClearLine, Refusal(root_.Path("file/january")), "--out");
    EXPECT_PRED2(IsClearLine, Refusal(""), "--out");
    EXPECT_FALSE(fs::exists(root_.Path("missing")));
    EXPECT_FALSE(fs::exists(root_.Path("Users/demo/Data/Bill/Image")));
}

TEST_F(OutFolder, HasAPathThatTheLongestPictureFitsBehind) {
    PutStatement("20240102", "1500.25");
    const std::size_t longest = 259 - std::string("/Image_files/TradeStatistics.jpg.part").size();
    std::string folder = root_.Path();
    while (folder.size() + 102 < longest) folder += "/" + std::string(99, 'o');
    fs::create_directories(folder);
    folder += "/" + std::string(longest - folder.size() - 1, 'o');
    EXPECT_EQ(Refusal(folder), "");
    EXPECT_TRUE(fs::exists(folder + "/Image_files/TradeStatistics.jpg"));
    EXPECT_PRED2(IsClearLine, Refusal(folder + "o"), "--out");
}

}  // namespace
}  // namespace tradebill::incomplete_report_test
