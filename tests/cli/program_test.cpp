// The program itself: exit codes, and what it says on its two outputs.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>

#include "cli/file_address.h"
#include "cli/program_fixture.h"
#include "driver/place_guard.h"
#include "platform/local_time.h"
#include "platform/lock_file.h"
#include "platform/paths.h"

namespace tradebill::program_test {
namespace {

TEST_F(Program, MakesTheReportOfASample) {
    const Answer answer = Run(Report("--units " + Quoted(std::string(TRADEBILL_SAMPLES) + "/units.ini")));
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(Says(answer.out, "25 (10 days without a file)")) << answer.out;  // 35 days, of them 25 of trading
    EXPECT_TRUE(Says(answer.out, "771053.71")) << answer.out;                    // as the last statement closes
    EXPECT_TRUE(Says(answer.out, FileAddressOf(PageFile()) + "\n")) << answer.out;
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

TEST_F(Program, TakesAllSettingsAsOptions) {
    folder_.Write("sample/root/BillTemplate/none.ini", "");
    const Answer answer = Run(Options() + " --kind domestic --template none --dpi 120 --margin-offset");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_TRUE(Says(answer.out, "2 (0 days without a file)")) << answer.out;
}

TEST_F(Program, LeavesStatementsAsTheyWere) {
    const std::string bill = "/Users/demo/Data/Bill";
    ASSERT_EQ(Run(Report()).exit, 0);
    int statements = 0;
    for (const auto& entry : fs::directory_iterator(std::string(TRADEBILL_SAMPLES) + "/fund-status/root" + bill)) {
        if (!entry.is_regular_file()) continue;
        const std::string name = entry.path().filename().string();
        EXPECT_EQ(ReadFile(root_ + bill + "/" + name), ReadFile(entry.path().string())) << name;
        ++statements;
    }
    EXPECT_EQ(statements, 25);
}

TEST_F(Program, SaysNothingIfQuiet) {
    const Answer answer = Run(Report("--quiet"));
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

TEST_F(Program, WritesJson) {
    const std::string file = folder_.Path("run.json");
    ASSERT_EQ(Run(Report("--quiet --json " + Quoted(file))).exit, 0);
    const auto json = nlohmann::json::parse(ReadFile(file));
    EXPECT_EQ(json["money"]["Count"], 25);
    EXPECT_EQ(json["money"]["ClosingEquity"], 771053.71);
    EXPECT_EQ(json["money"]["Records"][24]["BILL_DATE"], "20240205");
    EXPECT_EQ(json["money"]["Records"][24]["PCYK"], "-3710.00");
    EXPECT_EQ(json["days"].size(), 25U);
    EXPECT_EQ(json["matches"].back()["CONTRACT"], "rb");
}

TEST_F(Program, LetsOptionsWinOverTheRequestFile) {
    const Answer answer = Run(Report("--from 2024-01-31 --to 2024-02-01"));
    EXPECT_EQ(answer.exit, 0);
    EXPECT_TRUE(Says(answer.out, "2024-01-31")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "2 (0 days without a file)")) << answer.out;
}

TEST_F(Program, TakesDatesThatRollOver) {
    const Answer answer = Run(Report("--from 2024-2-30 --to 2024-3-1 --force"));
    EXPECT_EQ(answer.exit, 1);  // of a day without a statement
    EXPECT_TRUE(Says(answer.out, "from 2024-03-01 to 2024-03-01")) << answer.out;
}

TEST_F(Program, ReportsTodayWithoutDates) {
    const std::string live = Quoted(sample_ + "/live.ini");
    const std::string today = DashedDayText(LocalDayOf(PresentTime()));
    const Answer answer =
        Run("report --root " + Quoted(root_) + " --user demo --account 1 --format 1 --force --live " + live);
    EXPECT_EQ(answer.exit, 1);  // without a statement
    EXPECT_TRUE(Says(answer.out, "from " + today + " to " + today)) << answer.out;
    EXPECT_TRUE(Says(answer.out, "1 money")) << answer.out;
}

TEST_F(Program, RefusesWhatItDoesntKnow) {
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --colour red"), "--colour"));
    EXPECT_TRUE(IsWrongUse(Run(Options() + " more"), "more"));
    EXPECT_TRUE(IsWrongUse(Run("explode"), "explode"));
    EXPECT_TRUE(IsWrongUse(Run(""), "a command"));
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --dpi"), "--dpi"));
}

TEST_F(Program, RefusesMissingOptions) {
    EXPECT_TRUE(IsWrongUse(Run(Options("--root")), "--root"));
    EXPECT_TRUE(IsWrongUse(Run("report"), "--root"));
}

TEST_F(Program, FindsWhatItIsntTold) {
    for (const char* const option : {"--user", "--account", "--format", "--from", "--to"}) {
        EXPECT_EQ(Run(Options(option)).exit, 0) << option;
    }
    const Answer answer = Run("report --root " + Quoted(root_));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "from 2024-01-02 to 2024-02-05")) << answer.out;
    EXPECT_TRUE(Says(answer.err, "reading format 1 (fund-status), by the marks")) << answer.err;
}

TEST_F(Program, RefusesABadDate) {
    EXPECT_TRUE(IsWrongUse(Run(Options("--from", "2024-13-1")), "--from"));
    EXPECT_TRUE(IsWrongUse(Run(Options("--to", "2024-1-32")), "--to"));
    EXPECT_TRUE(IsWrongUse(Run(Options("--from", "1969-12-30")), "--from"));
    EXPECT_FALSE(fs::exists(PageFile()));
}

TEST_F(Program, TakesAFormatWithoutReaderOnlyWithATemplate) {
    EXPECT_TRUE(IsWrongUse(Run(Options("--format", "7")), "--format"));
    folder_.Write("sample/root/BillTemplate/songta.ini", "");
    EXPECT_EQ(Run(Options("--format", "7") + " --template songta").exit, 0);
    EXPECT_TRUE(IsWrongUse(Run(Options("--format", "one") + " --template songta"), "--format"));
}

TEST_F(Program, RefusesFoldersThatArentThere) {
    EXPECT_TRUE(IsWrongUse(Run(Options("--root", folder_.Path("missing"))), "--root"));
    EXPECT_TRUE(IsWrongUse(Run(Options("--user", "nobody")), "--user"));
    EXPECT_FALSE(fs::exists(folder_.Path("missing")));
    EXPECT_FALSE(fs::exists(root_ + "/Users/nobody"));
}

TEST_F(Program, RefusesABrokenIniFileWithItsLine) {
    const std::string broken = folder_.Write("broken.ini", "; of the host\n[UNITS]\nrb=10\nwhat is this\n");
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --units " + Quoted(broken)), "broken.ini, line 4"));
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --products " + Quoted(broken)), "broken.ini, line 4"));
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --live " + Quoted(broken)), "broken.ini, line 4"));
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --request " + Quoted(broken)), "broken.ini, line 4"));
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --units " + Quoted(folder_.Path("missing.ini"))), "missing.ini"));
}

TEST_F(Program, RefusesNamesThatDontFit) {
    EXPECT_TRUE(IsWrongUse(Run(Options("--account", "12345678901234567")), "--account"));
    EXPECT_TRUE(IsWrongUse(Run(Options("--user", std::string(128, 'u'))), "--user"));
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --template 12345678901"), "--template"));
    EXPECT_TRUE(IsWrongUse(Run(Options("--account", "../1")), "--account"));
    EXPECT_TRUE(IsWrongUse(Run(Options("--user", "demo/Data")), "--user"));
    EXPECT_TRUE(IsWrongUse(Run(Options("--user", "..\\demo")), "--user"));
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --template a/b"), "--template"));
}

TEST_F(Program, RefusesAStartAfterTheEnd) {
    EXPECT_TRUE(IsWrongUse(Run(Options("--from", "2024-02-01")), "--from"));
    EXPECT_FALSE(fs::exists(PageFile()));
}

TEST_F(Program, RefusesATemplateThatIsntThere) {
    EXPECT_TRUE(IsWrongUse(Run(Options() + " --template nope"), "--template"));
    EXPECT_FALSE(fs::exists(PageFile()));
}

TEST_F(Program, WritesNothingForARangeWithoutStatements) {
    const Answer answer = Run(Report("--from 2023-01-01 --to 2023-01-31"));
    EXPECT_EQ(answer.exit, 2);
    EXPECT_EQ(answer.err,
              "tradebill: no statement was found in the whole range: nothing is written (--force writes a page all "
              "the same)\n");
    EXPECT_FALSE(fs::exists(PageFile()));
    const Answer forced = Run(Report("--from 2023-01-01 --to 2023-01-31 --force"));
    EXPECT_EQ(forced.exit, 1);
    EXPECT_EQ(forced.err, "tradebill: warning: account 90010002: no statement was found in the whole range\n");
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

TEST_F(Program, WritesTheSamePageIntoAFolderOfItsOwn) {
    EXPECT_EQ(Run(Report("--out " + Quoted(folder_.Path(kOddName)))).exit, 0);
    EXPECT_FALSE(fs::exists(PageFile()));
    EXPECT_EQ(Run(Report()).exit, 0);
    EXPECT_EQ(ReadFile(folder_.Path(kOddName + "/TradeBill.html")), ReadFile(PageFile()));
    const fs::path pictures = fs::path(PageFile()).parent_path() / "Image_files";
    for (const auto& entry : fs::directory_iterator(pictures)) {
        const std::string name = entry.path().filename().string();
        EXPECT_EQ(ReadFile(folder_.Path(kOddName + "/Image_files/" + name)), ReadFile(entry.path().string())) << name;
    }
}

TEST_F(Program, NamesAFolderInAStatementsPlace) {
    const std::string statement = root_ + "/Users/demo/Data/Bill/D90010002.20240104o.txt";
    fs::remove(statement);
    fs::create_directories(statement);
    const Answer answer = Run(Report());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, "tradebill: 20240104: " + NativePath(statement) + " is not a file\n");
}

TEST_F(Program, FailsIfThePageCantBeWritten) {
    fs::create_directories(PageFile());
    const Answer answer = Run(Report());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_TRUE(answer.err.starts_with("tradebill: can't write the page " + NativePath(PageFile()) + ": "))
        << answer.err;
    EXPECT_EQ(std::ranges::count(answer.err, '\n'), 1) << answer.err;
}

TEST_F(Program, WritesNothingWhereAnotherProgramDoes) {
    ASSERT_EQ(Run(Report("--quiet")).exit, 0);
    const std::string page = ReadFile(PageFile());
    const std::string folder = FolderOf(PageFile());
    const CPlaceGuard other(folder, 0);
    ASSERT_TRUE(other.IsHeld());
    const std::string holder = HolderIn(folder + "/.tradebill.lock");
    ASSERT_TRUE(holder.starts_with("process ")) << holder;

    const std::string json = folder_.Path("run.json");
    const Answer report = Run(Report("--dpi 120 --wait 0 --json " + Quoted(json)));
    EXPECT_EQ(report.exit, 1);
    EXPECT_EQ(report.out, "");
    EXPECT_EQ(report.err, "tradebill: nothing is written to " + NativePath(folder) + ": " + holder +
                              " is writing there\ntradebill: --wait SECONDS waits longer for the other run\n");
    EXPECT_FALSE(fs::exists(json));

    const Answer reset = Run("reset --wait 0 " + Quoted(PageFile()));
    EXPECT_EQ(reset.exit, 1);
    EXPECT_EQ(reset.err, "tradebill: can't write the page " + PageFile() + ": " + holder +
                             " is writing there (--wait SECONDS waits longer)\n");
    EXPECT_EQ(ReadFile(PageFile()), page);
    EXPECT_TRUE(IsWrongUse(Run(Report("--wait -1")), "--wait"));
    for (const char* const days : {"0", "367", "-1", "2.5", "many"}) {
        EXPECT_TRUE(IsWrongUse(Run(Report("--trading-days " + std::string(days))), "--trading-days")) << days;
    }
    EXPECT_TRUE(IsWrongUse(Run(Report("--wait soon")), "--wait"));
}

TEST_F(Program, ListsItsOptions) {
    const Answer answer = Run("report --help");
    EXPECT_EQ(answer.exit, 0);
    for (const char* const option :
         {"--root", "--user", "--account", "--from", "--to", "--format", "--kind", "--template", "--dpi",
          "--margin-offset", "--units", "--products", "--live", "--json", "--quiet", "--request"}) {
        EXPECT_TRUE(Says(answer.out, option)) << option;
    }
    EXPECT_EQ(Run("--version").exit, 0);
}

}  // namespace
}  // namespace tradebill::program_test
