// Which statements are copied, and what is said of the others.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/anonymise_command.h"
#include "cli/cli_fixture.h"
#include "requests/account_files.h"
#include "support/gbk_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::anonymise_choice_test {
namespace {

namespace fs = std::filesystem;

class AnonymiseChoice : public CliFixture {
protected:
    AnonymiseChoice() {
        command_.root = root_.Path();
        command_.out = out_.Path();
        command_.seed = "5";
    }
    Answer Run() {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        Answer answer{};
        std::string refusal;
        try {
            answer.exit = RunAnonymiseCommand(command_);
        } catch (const CUsageError& error) {
            answer.exit = 2;
            refusal = error.what();
        }
        answer.out = testing::internal::GetCapturedStdout();
        answer.err = testing::internal::GetCapturedStderr() + refusal;
        return answer;
    }
    /// A statement that has the marks of its layout.
    void PutSample(const std::string& name = "D90010002.20240103o.txt") const {
        Put(name, ReadFile(std::string(TRADEBILL_SAMPLES) +
                           "/fund-status/root/Users/demo/Data/Bill/D90010002.20240103o.txt"));
    }
    void PutForeign() const {
        const std::string name = "DWP60010001.20240103o.txt";
        Put(name, ReadFile(std::string(TRADEBILL_SAMPLES) + "/foreign/root/Users/demo/Data/Bill/" + name));
    }
    void Put(const std::string& name, std::string_view text) const {
        root_.Write("Users/demo/Data/Bill/" + name, text);
    }
    [[nodiscard]] std::string PlaceOf(const std::string& name) const {
        return root_.Path("Users/demo/Data/Bill/" + name);
    }
    [[nodiscard]] bool HasCopyOf(bool isForeign) const {
        const AccountFiles files = FindAccountFiles(out_.Path());
        return files.size() == 1 && files.begin()->first.isForeign == isForeign;
    }

    CTempFolder out_;
    AnonymiseCommand command_;
};

TEST_F(AnonymiseChoice, TakesAllThatAnEmptyNameLeavesOpen) {
    PutSample();
    command_.user = command_.account = command_.templateName = "";
    command_.format = "auto";
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(answer.out.starts_with("1 statement of 1 account: ")) << answer.out;
}

TEST_F(AnonymiseChoice, TakesOneFamilyOrBoth) {
    PutSample();
    PutForeign();
    for (const bool isForeign : {false, true}) {
        command_.kind = isForeign ? "foreign" : "domestic";
        const Answer answer = Run();
        EXPECT_TRUE(answer.out.starts_with("1 statement of 1 account: ")) << answer.out << answer.err;
        EXPECT_TRUE(HasCopyOf(isForeign));
        fs::remove_all(out_.Path());
    }
    command_.kind.reset();
    EXPECT_TRUE(Run().out.starts_with("2 statements of 2 accounts: "));
}

TEST_F(AnonymiseChoice, TakesAUserByHisFoldersName) {
    PutSample();
    command_.user = "demo";
    EXPECT_EQ(Run().exit, 0);
    fs::remove_all(out_.Path());
    command_.user = "other";
    EXPECT_TRUE(IsClearLine(Run().err, "ROOT"));
}

TEST_F(AnonymiseChoice, TakesFromARequestWhatTheCommandLineLeavesOpen) {
    PutSample();
    PutSample("D7.20240103o.txt");
    command_.requestFile = root_.Write("request.ini", "[REQUEST]\naccount=7\nformat=1\nkind=\n");
    EXPECT_TRUE(Run().out.starts_with("1 statement of 1 account: "));
    EXPECT_EQ(FindAccountFiles(out_.Path()).begin()->first.account.size(), 1u);
    EXPECT_FALSE(Says(ReadFile(out_.Path("request.ini")), "account=7\n"));
    fs::remove_all(out_.Path());
    command_.account = "90010002";
    EXPECT_TRUE(Run().out.starts_with("1 statement of 1 account: "));
    EXPECT_EQ(FindAccountFiles(out_.Path()).begin()->first.account.size(), 8u);
}

TEST_F(AnonymiseChoice, WantsASeedOfDigits) {
    PutSample();
    command_.seed = "";
    EXPECT_TRUE(IsClearLine(Run().err, "--seed"));
}

TEST_F(AnonymiseChoice, LeavesOutWhatIsLargerThanAStatementMayBe) {
    command_.format = "1";
    PutStatement("20240102", "1500.25");
    PutSample();
    command_.maxStatement = "1K";
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.out.starts_with("1 statement of 1 account: ")) << answer.out;
    EXPECT_TRUE(Says(answer.err, "D90010002.20240103o.txt: it is ")) << answer.err;
}

TEST_F(AnonymiseChoice, LeavesOutTheLastingDayWhereTheFinishedOneIsThere) {
    PutSample();
    PutSample("D90010002.20240103.txt");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.out.starts_with("1 statement of 1 account: ")) << answer.out;
    EXPECT_TRUE(Says(answer.err, "D90010002.20240103.txt: there is a statement of the finished day, too\n"))
        << answer.err;
}

TEST_F(AnonymiseChoice, LeavesOutAnAccountWithoutTheMarksOfALayout) {
    Put("D1.20240102o.txt", "rubbish\r\n");
    Put("D1.20240103o.txt", "other rubbish\r\n");
    PutSample();
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.out.starts_with("1 statement of 1 account: ")) << answer.out;
    EXPECT_TRUE(Says(answer.err, "left out account 1 of demo: ")) << answer.err;
    EXPECT_TRUE(Says(answer.err, "D1.20240102o.txt")) << "the first of them: " << answer.err;
    EXPECT_FALSE(Says(answer.err, "D1.20240103o.txt")) << answer.err;
}

TEST_F(AnonymiseChoice, LeavesOutAnAccountOfNothingButDamage) {
    command_.format = "1";
    Put("D1.20240102o.txt", "rubbish\r\n");
    PutSample();
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.out.starts_with("1 statement of 1 account: ")) << answer.out;
    EXPECT_TRUE(Says(answer.err, "D1.20240102o.txt: nothing in it is recognised")) << answer.err;
}

TEST_F(AnonymiseChoice, LeavesOutAnAccountOfNothingButFolders) {
    fs::create_directories(PlaceOf("D1.20240102o.txt"));
    PutSample();
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.out.starts_with("1 statement of 1 account: ")) << answer.out;
    EXPECT_TRUE(Says(answer.err, "D1.20240102o.txt: it isn't a file\n")) << answer.err;
}

TEST_F(AnonymiseChoice, LeavesOutAnAccountWhoseNumberNoReportTakes) {
    PutSample("D12345678901234567.20240103o.txt");  // 17 digits
    PutSample("D1234567890123456.20240103o.txt");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.out.starts_with("1 statement of 1 account: ")) << answer.out;
    EXPECT_TRUE(Says(answer.err, "account 12345678901234567 of demo: its number is longer")) << answer.err;
}

TEST_F(AnonymiseChoice, MovesTheChangeDayOfATemplateIfItIsOne) {
    command_.format = "1";
    command_.templateName = "own";
    command_.shiftWeeks = "1";
    PutStatement("20240102", "1500.25");
    for (const auto& [day, moved] : {std::pair{"20300101", "20300108"}, std::pair{"soon", "soon"}}) {
        root_.Write("BillTemplate/own.ini", "[BILLFORMAT]\nBILLFORMAT_NEWDATE=" + std::string(day));  // no line end
        EXPECT_EQ(Run().exit, 0);
        EXPECT_EQ(ReadFile(out_.Path("BillTemplate/own.ini")),
                  "[BILLFORMAT]\nBILLFORMAT_NEWDATE=" + std::string(moved));
        fs::remove_all(out_.Path());
    }
}

}  // namespace
}  // namespace tradebill::anonymise_choice_test
