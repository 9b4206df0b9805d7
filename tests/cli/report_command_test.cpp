#include "cli/report_command.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "cli/file_address.h"
#include "cli/report_fixture.h"
#include "platform/paths.h"

namespace tradebill::report_command_test {
namespace {

namespace fs = std::filesystem;

class Command : public ReportFixture {};

TEST_F(Command, MakesTheReportAndSumsItUp) {
    PutStatement("20240102", "1500.25");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(Says(answer.out, "2024-01-02"));
    EXPECT_TRUE(Says(answer.out, "2024-01-03"));
    EXPECT_TRUE(Says(answer.out, "statements read   1 (1 day without a file)")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "1 money, 0 trades, 0 closed, 1 positions, 0 position sums")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "closing equity    1500.25")) << answer.out;
    EXPECT_TRUE(Says(answer.out, FileAddressOf(PageFile()) + "\n"));
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

TEST_F(Command, CountsTheClosedRowsThatTheForeignFamilyOnlyTallies) {
    options_.kind = "foreign";
    options_.format.reset();
    root_.Write("Users/demo/Data/Bill/DWP90010002.20240102o.txt",
                Statement({"平仓明细", "-", "-", "-", "20240102 S2403 开仓 1     2 3.5 0.00 USD",
                           "20240102 S2403 平仓 1     2 3.5 10.00 USD", "20240102 C2403 开仓 1     2 3.5 0.00 USD",
                           "20240102 C2403 平仓 1     2 3.5 -5.00 USD", "-", "持仓明细"}));
    EXPECT_TRUE(Says(Run().out, "0 money, 0 trades, 2 closed, 0 positions"));
}

TEST_F(Command, CountsCurrenciesOfTheForeignFamily) {
    options_.kind = "foreign";
    options_.from.reset();
    options_.to.reset();
    options_.liveFile = root_.Write("live.ini", "[BASE]\nCURRENCY=HKD\n[CURRENCY1]\nCURRENCY=USD\n");
    command_.force = true;  // there is no statement
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.out, "2 currencies")) << answer.out;
}

TEST_F(Command, IsSilentIfQuiet) {
    PutStatement("20240102", "1500.25");
    command_.quiet = true;
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

TEST_F(Command, ShowsNoProgressIfNobodyWatches) {
    PutStatement("20240102", "1500.25");
    const Answer answer = Run();
    EXPECT_FALSE(Says(answer.err, "\r"));
    EXPECT_FALSE(Says(answer.err, "day"));
    EXPECT_FALSE(Says(answer.out, "\r"));
}

TEST_F(Command, WarnsOfStatementsOfAnotherLayout) {
    root_.Write("Users/demo/Data/Bill/D90010002.20240102o.txt", "nothing that is known");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 0);
    EXPECT_TRUE(Says(answer.err, "warning: account 90010002: nothing was recognised")) << answer.err;
}

TEST_F(Command, ThrowsForWrongUseBeforeAnythingIsDone) {
    options_.account = "1/2";
    EXPECT_THROW(Run(), CUsageError);
    EXPECT_FALSE(fs::exists(root_.Path("Users/demo/Data")));
}

TEST_F(Command, FailsIfThePageCantBeWritten) {
    PutStatement("20240102", "1500.25");
    fs::create_directories(PageFile());
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "can't write the page " + NativePath(PageFile()))) << answer.err;
    EXPECT_EQ(answer.out, "");
}

TEST_F(Command, FailsIfThePagesFolderCantBeMade) {
    PutStatement("20240102", "1500.25");
    root_.Write("Users/demo/Data/Bill/Image", "a file in its place");
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "can't make the folder")) << answer.err;
    EXPECT_TRUE(Says(answer.err, "can't write the page")) << answer.err;
}

TEST_F(Command, WritesJsonOfTheRun) {
    PutStatement("20240102", "1500.25");
    command_.jsonFile = root_.Path("run.json");
    EXPECT_EQ(Run().exit, 0);
    const auto json = nlohmann::json::parse(ReadFile(*command_.jsonFile));
    EXPECT_EQ(json["money"]["ClosingEquity"], 1500.25);
    EXPECT_EQ(json["money"]["Records"].size(), 1U);
    EXPECT_EQ(json["money"]["StartDateText"], "2024-01-02");
    EXPECT_EQ(json["positions"][0]["BID"], "买");
    EXPECT_EQ(json["usage"][0]["inner"]["Positions"][0]["Product"], "i");
    EXPECT_EQ(json["account"]["inner"]["InitialEquity"], 1500.25);
}

TEST_F(Command, ReplacesTheJsonOfAnEarlierRun) {
    PutStatement("20240102", "1500.25");
    command_.jsonFile = root_.Write("run.json", std::string(100000, 'x'));
    EXPECT_EQ(Run().exit, 0);
    EXPECT_EQ(nlohmann::json::parse(ReadFile(*command_.jsonFile))["money"]["Count"], 1);
}

TEST_F(Command, LeavesNothingBesideTheJson) {
    PutStatement("20240102", "1500.25");
    const std::string json = root_.Path("json/run.json");
    fs::create_directories(root_.Path("json"));
    command_.jsonFile = json;
    EXPECT_EQ(Run().exit, 0);
    std::string names;
    for (const auto& entry : fs::directory_iterator(root_.Path("json"))) names += entry.path().filename().string();
    EXPECT_EQ(names, "run.json");
}

TEST_F(Command, FailsIfTheJsonCantBeWritten) {
    PutStatement("20240102", "1500.25");
    command_.jsonFile = root_.Path("run.json");
    fs::create_directories(*command_.jsonFile + ".part");  // stands where it is written before it gets its name
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "can't write " + *command_.jsonFile)) << answer.err;
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

TEST_F(Command, RefusesAJsonFileThatCantBe) {
    for (const std::string& path : {std::string(), root_.Path(), root_.Path("missing/run.json")}) {
        command_.jsonFile = path;
        EXPECT_PRED2(IsClearLine, UsageErrorOf([this] { return Run().exit; }), "--json") << path;
    }
    EXPECT_FALSE(fs::exists(root_.Path("Users/demo/Data")));
}

TEST_F(Command, WritesNothingOutsideTheUsersDataButTheJson) {
    PutStatement("20240102", "1500.25");
    command_.jsonFile = root_.Path("run.json");
    Run();
    std::vector<std::string> top;
    for (const auto& entry : fs::directory_iterator(root_.Path())) top.push_back(entry.path().filename().string());
    std::ranges::sort(top);
    EXPECT_EQ(top, (std::vector<std::string>{"Users", "run.json"}));
    std::vector<std::string> user;
    for (const auto& entry : fs::directory_iterator(root_.Path("Users/demo")))
        user.push_back(entry.path().filename().string());
    EXPECT_EQ(user, (std::vector<std::string>{"Data"}));
}

}  // namespace
}  // namespace tradebill::report_command_test
