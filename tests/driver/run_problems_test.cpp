// What a run keeps of all that went wrong on its way, and the words for it.
#include "driver/run_problems.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "driver/run_fixture.h"
#include "platform/paths.h"
#include "platform/system_error.h"

namespace tradebill::run_problems_test {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

TEST(RunProblemsTexts, NameEachOfThem) {
    RunProblems problems;
    EXPECT_TRUE(problems.IsEmpty());
    EXPECT_EQ(ProblemTexts(problems), Lines{});
    problems.inputs = {{"a/chain.ini", FileState::Unreadable, "Input/output error"},
                       {"a/own.ini", FileState::NotAFile, ""},
                       {"a/gone.jpg", FileState::Missing, ""}};
    problems.statements = {{"20240102", "a/b.txt", StatementState::Unreadable, "Permission denied"},
                           {"20240103", "a/c.txt", StatementState::NotAFile, ""},
                           {"20240104", "a/d.txt", StatementState::Missing, "Permission denied"}};
    problems.folders = {{"a/d", ""}};
    problems.pictures = {{"e.jpg", PictureStage::Saving, "a/e.jpg", "no room"},
                         {"f.jpg", PictureStage::Painting, "a/f.jpg", ""},
                         {"g.png", PictureStage::Decoding, "a/g.png", ""},
                         {"i.jpg", PictureStage::Removing, "a/i.jpg", "Permission denied"}};
    problems.page = {"a/h.html", ""};
    problems.taken = {"a", "process 7 on alpha, since 10:22:01"};
    problems.leftover = {"a/.tradebill-x", "Input/output error"};
    EXPECT_EQ(ProblemTexts(problems),
              (Lines{
                  "can't read " + NativePath("a/chain.ini") + ": Input/output error",
                  NativePath("a/own.ini") + " is not a file",
                  NativePath("a/gone.jpg") + " is missing",
                  "20240102: can't read " + NativePath("a/b.txt") + ": Permission denied",
                  "20240103: " + NativePath("a/c.txt") + " is not a file",
                  "20240104: can't write " + NativePath("a/d.txt") + ", which counts as absent then: Permission denied",
                  "can't make the folder " + NativePath("a/d"),
                  "can't write the picture " + NativePath("a/e.jpg") + ": no room",
                  "can't paint the picture f.jpg",
                  "can't read the module's own picture for g.png",
                  "can't remove the picture of an older report " + NativePath("a/i.jpg") + ": Permission denied",
                  "can't write the page " + NativePath("a/h.html"),
                  "nothing is written to a: process 7 on alpha, since 10:22:01 is writing there",
                  "can't remove " + NativePath("a/.tradebill-x") + ", which the next run does: Input/output error",
              }));
    EXPECT_FALSE(problems.IsEmpty());
}

TEST(RunProblemsTexts, TellAnErrorAsFarAsItsPlaceIsKnown) {
    const auto textOf = [](const std::string& day, int line, std::string_view section) {
        return ErrorText({.code = 0x80070057,
                          .text = "no such row",
                          .day = day,
                          .path = day.empty() ? "" : "folder/D1.txt",
                          .place = {.line = line, .section = section}});
    };
    const std::string words = "the run failed with code 0x80070057: no such row";
    EXPECT_EQ(textOf("", 0, ""), words);
    EXPECT_EQ(textOf("20240102", 0, ""), words + " (20240102, D1.txt)");
    EXPECT_EQ(textOf("20240102", 7, "closed"), words + " (20240102, D1.txt, row 7, section closed)");
    EXPECT_EQ(ErrorCodeText(0x5), "0x00000005");
}

class RunProblemsKept : public RunFixture {
protected:
    void PutFolder(const std::string& name) { fs::create_directories(root_.Path("Users/u/Data/Bill/" + name)); }
};

TEST_F(RunProblemsKept, AreNoneOfAWholeReport) {
    PutBothDays();
    const RunResult result = RunAlone();
    EXPECT_TRUE(result.problems.IsEmpty());
    EXPECT_EQ(result.picturesSaved, 14);
    EXPECT_EQ(result.statementsRead, 2);
}

TEST_F(RunProblemsKept, AreNoneOfDaysWithoutAStatement) {
    const RunResult result = RunAlone();
    EXPECT_TRUE(result.problems.IsEmpty());
    EXPECT_EQ(result.statementsRead, 0);
}

TEST_F(RunProblemsKept, NameAFolderInAStatementsPlace) {
    Put("D10086.20240102o.txt", FullStatement("20240102"));
    PutFolder("D10086.20240103o.txt");
    const RunResult result = RunAlone();
    EXPECT_EQ(result.statementsRead, 1);
    ASSERT_EQ(result.problems.statements.size(), 1U);
    EXPECT_EQ(result.problems.statements[0].day, "20240103");
    EXPECT_EQ(result.problems.statements[0].path, root_.Path("Users/u/Data/Bill/D10086.20240103o.txt"));
    EXPECT_EQ(result.problems.statements[0].state, StatementState::NotAFile);
    EXPECT_TRUE(result.pageWritten);
}

TEST_F(RunProblemsKept, NameAChainFileAndATemplateThatCantBeRead) {
    PutBothDays();
    const std::string page = RunAlone().pageWritten ? ReadFile(PageFile()) : "";
    fs::create_directories(root_.Path("sys/chain.ini"));
    fs::create_directories(root_.Path("BillTemplate/own.ini"));
    CopyField(request_.TemplateName, "own");
    const RunResult result = RunAlone();
    ASSERT_EQ(result.problems.inputs.size(), 2U);
    EXPECT_EQ(result.problems.inputs[0].path, root_.Path("sys/chain.ini"));
    EXPECT_EQ(result.problems.inputs[0].state, FileState::NotAFile);
    EXPECT_EQ(result.problems.inputs[1].path, root_.Path("BillTemplate/own.ini"));
    EXPECT_EQ(result.problems.inputs[1].state, FileState::NotAFile);
    EXPECT_FALSE(result.problems.IsEmpty());
    EXPECT_EQ(ReadFile(PageFile()), page);  // as without them
}

TEST_F(RunProblemsKept, NameAPictureThatCantBeSaved) {
    PutBothDays();
    const std::string picture = "Users/u/Data/Bill/Image/Image_files/RiskFigure.jpg";
    root_.Write(picture + "/in the way", "");
    const RunResult result = RunAlone();
    EXPECT_EQ(result.picturesSaved, 13);
    ASSERT_EQ(result.problems.pictures.size(), 1U);
    EXPECT_EQ(result.problems.pictures[0].name, "RiskFigure.jpg");
    EXPECT_EQ(result.problems.pictures[0].path, root_.Path(picture));
    EXPECT_EQ(result.problems.pictures[0].stage, PictureStage::Saving);
    EXPECT_NE(result.problems.pictures[0].reason, "");
    EXPECT_TRUE(result.pageWritten);
}

TEST_F(RunProblemsKept, NameAPageThatCantBeWrittenAndWhy) {
    PutBothDays();
    fs::create_directories(PageFile());
    const RunResult result = RunAlone();
    EXPECT_FALSE(result.pageWritten);
    ASSERT_TRUE(result.problems.page);
    EXPECT_EQ(result.problems.page->path, PageFile());
    EXPECT_NE(result.problems.page->reason, "");
    EXPECT_TRUE(result.problems.pictures.empty());
}

TEST_F(RunProblemsKept, NameTheFirstFolderThatCantBeMade) {
    PutBothDays();
    root_.Write("Users/u/Data/Bill/Image", "a file in its place");
    const RunResult result = RunAlone();
    ASSERT_EQ(result.problems.folders.size(), 1U);
    EXPECT_EQ(result.problems.folders[0].path, root_.Path("Users/u/Data/Bill/Image"));
    EXPECT_NE(result.problems.folders[0].reason, "");
    EXPECT_TRUE(result.problems.page);
    EXPECT_EQ(result.problems.pictures.size(), 14U);
}

TEST_F(RunProblemsKept, NameThePicturesFolderThatCantBeMade) {
    PutBothDays();
    root_.Write("Users/u/Data/Bill/Image/Image_files", "a file in its place");
    const RunResult result = RunAlone();
    ASSERT_EQ(result.problems.folders.size(), 1U);
    EXPECT_EQ(result.problems.folders[0].path, root_.Path("Users/u/Data/Bill/Image/Image_files"));
    EXPECT_FALSE(result.problems.page);
}

/// A template of closed positions that must name a side: the row of 11 columns hasn't the twelfth.
TEST_F(RunProblemsKept, TellDayFileRowAndSectionOfAnErrorDeepInAStatement) {
    root_.Write("BillTemplate/sides.ini",
                Gbk("[DEALFIELD]\r\nMONEY_MODE=9\r\nPING_DETAIL=1\r\n[PING_DETAIL]\r\nSTART_FLAG=平仓\r\n"
                    "END_FLAG=共\r\nSTART_OFFSET=1\r\nEND_OFFSET=0\r\nDELIMITER=|\r\nBID=11\r\nCONTRACT=0\r\n"));
    CopyField(request_.TemplateName, "sides");
    Put("D10086.20240102o.txt", Statement({"平仓", "a|1|2|3|4|5|6|7|8|9|10|11", "----", "共"}));
    Put("D10086.20240103o.txt",
        Statement({"结算单", "", "平仓", "a|1|2|3|4|5|6|7|8|9|10|11", "", "b|1|2|3|4|5|6|7|8|9|10", "共"}));
    root_.Write("Users/u/Data/Bill/Image/TradeBill.html", "the last good page");
    const RunResult result = RunAlone();
    EXPECT_EQ(result.end, RunEnd::Failed);
    EXPECT_EQ(result.days, 2);
    EXPECT_EQ(result.statementsRead, 1);
    ASSERT_TRUE(result.problems.error);
    EXPECT_EQ(result.problems.error->code, 0x80070057U);
    EXPECT_EQ(result.problems.error->day, "20240103");
    EXPECT_EQ(result.problems.error->path, root_.Path("Users/u/Data/Bill/D10086.20240103o.txt"));
    EXPECT_EQ(result.problems.error->place.line, 6);
    EXPECT_EQ(result.problems.error->place.section, "closed");
    EXPECT_EQ(report.PingDetailStore.Count(), 2);  // what came before it
    EXPECT_EQ(ReadFile(PageFile()), "the last good page");
}

TEST_F(RunProblemsKept, TellTheDayOfATemplatesBadDate) {
    root_.Write("BillTemplate/dates.ini", "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20241399\r\n");
    CopyField(request_.TemplateName, "dates");
    PutBothDays();
    const RunResult result = RunAlone();
    ASSERT_TRUE(result.problems.error);
    EXPECT_EQ(result.problems.error->code, 0x80004005U);
    EXPECT_EQ(result.problems.error->day, "20240102");
    EXPECT_EQ(result.problems.error->place.section, "template");
    EXPECT_EQ(result.problems.error->place.line, 0);
}

TEST_F(RunProblemsKept, TellABadDateOfTheRequestWithoutAPlace) {
    SetDates("2024-13-1", "2024-1-3");
    const RunResult result = RunAlone();
    EXPECT_EQ(result.end, RunEnd::Failed);
    ASSERT_TRUE(result.problems.error);
    EXPECT_EQ(result.problems.error->code, 0x80004005U);
    EXPECT_EQ(result.problems.error->day, "");
}

TEST_F(RunProblemsKept, ComeBeforeTheErrorThatEndsTheRun) {
    PutFolder("D10086.20240102o.txt");
    root_.Write("BillTemplate/dates.ini", "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20241399\r\n");
    CopyField(request_.TemplateName, "dates");
    Put("D10086.20240103o.txt", FullStatement("20240103"));
    const RunResult result = RunAlone();
    EXPECT_EQ(result.problems.statements.size(), 1U);
    ASSERT_TRUE(result.problems.error);
    EXPECT_EQ(result.problems.error->day, "20240103");
}

TEST_F(RunProblemsKept, OfAnAccountThatIsReadAreThoseOfItsStatements) {
    Put("D10086.20240102o.txt", FullStatement("20240102"));
    PutFolder("D10086.20240103o.txt");
    const RunResult result = ReadAccount(report, request_, nullptr, {.access = StatementAccess::ReadAlone});
    EXPECT_EQ(result.problems.statements.size(), 1U);
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

class RunsThatNeedAStatement : public RunProblemsKept {
protected:
    RunResult Run() { return RunAlone({.needsStatement = true}); }
    [[nodiscard]] bool HasNothingNew() const {
        return !fs::exists(root_.Path("Users/u/Data/Bill/Image")) && report.MoneyStore.Count() == 0;
    }
};

TEST_F(RunsThatNeedAStatement, WriteNothingWithoutOne) {
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::NothingRead);
    EXPECT_TRUE(result.problems.IsEmpty());
    EXPECT_FALSE(result.pageWritten);
    EXPECT_FALSE(fs::exists(root_.Path("Users/u/Data")));
}

TEST_F(RunsThatNeedAStatement, WriteNothingIfNoneCanBeRead) {
    PutFolder("D10086.20240103o.txt");
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::NothingRead);
    EXPECT_EQ(result.problems.statements.size(), 1U);
    EXPECT_TRUE(HasNothingNew());
}

TEST_F(RunsThatNeedAStatement, WriteNothingOfLiveFiguresAlone) {
    SetDates("", "");
    CopyField(request_.BaseMoney.KHQY, "5.00");
    EXPECT_EQ(Run().end, RunEnd::NothingRead);
    EXPECT_TRUE(HasNothingNew());
}

TEST_F(RunsThatNeedAStatement, WriteTheSamePageOfOne) {
    Put("D10086.20240102o.txt", FullStatement("20240102"));
    EXPECT_TRUE(Run().pageWritten);
    const std::string page = ReadFile(PageFile());
    fs::remove_all(root_.Path("Users/u/Data/Bill/Image"));
    EXPECT_TRUE(RunAlone().pageWritten);
    EXPECT_EQ(ReadFile(PageFile()), page);
}

class RunsWithAnOwnFolder : public RunFixture {
protected:
    std::string out_ = root_.Path("out");
};

TEST_F(RunsWithAnOwnFolder, LeaveTheSamePageAndPicturesThere) {
    PutBothDays();
    ASSERT_TRUE(RunAlone().pageWritten);
    const auto beside = ContentOf(root_.Path("Users/u/Data/Bill/Image"));
    fs::remove_all(root_.Path("Users/u/Data/Bill/Image"));
    const auto before = ContentOf(root_.Path("Users"));
    const RunResult result = RunAlone({.outFolder = out_});
    EXPECT_TRUE(result.problems.IsEmpty());
    EXPECT_EQ(result.pagePath, out_ + "/TradeBill.html");
    EXPECT_EQ(ContentOf(out_), beside);
    EXPECT_EQ(ContentOf(root_.Path("Users")), before);
}

TEST_F(RunsWithAnOwnFolder, TakeOneThatIsThere) {
    root_.Write("out/Image_files/old.jpg", "old");
    PutBothDays();
    EXPECT_TRUE(RunAlone({.outFolder = out_}).problems.IsEmpty());
    EXPECT_EQ(ReadFile(out_ + "/Image_files/old.jpg"), "old");
}

TEST_F(RunsWithAnOwnFolder, MakeOneLevelAlone) {
    PutBothDays();
    const RunResult result = RunAlone({.outFolder = out_ + "/deep"});
    ASSERT_EQ(result.problems.folders.size(), 1U);
    EXPECT_EQ(result.problems.folders[0].path, out_ + "/deep");
    EXPECT_FALSE(result.pageWritten);
    EXPECT_FALSE(fs::exists(out_));
}

TEST(RunProblemsTexts, AreThereForEachOfThemAlone) {
    void (*const kinds[])(RunProblems&) = {
        [](RunProblems& problems) { problems.names = "Account holds a colon"; },
        [](RunProblems& problems) { problems.inputs.emplace_back(); },
        [](RunProblems& problems) { problems.statements.emplace_back(); },
        [](RunProblems& problems) { problems.folders.emplace_back(); },
        [](RunProblems& problems) { problems.pictures.emplace_back(); },
        [](RunProblems& problems) { problems.fonts = "no fonts"; },
        [](RunProblems& problems) { problems.page.emplace(); },
        [](RunProblems& problems) { problems.taken.emplace(); },
        [](RunProblems& problems) { problems.leftover.emplace(); },
        [](RunProblems& problems) { problems.error.emplace(); },
    };
    for (const auto add : kinds) {
        RunProblems problems;
        add(problems);
        EXPECT_FALSE(problems.IsEmpty());
    }
}

}  // namespace
}  // namespace tradebill::run_problems_test
