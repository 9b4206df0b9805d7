// What the JSON tells of the run that made it.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "cli/report_fixture.h"
#include "export/file_digest.h"
#include "support/shell.h"

namespace tradebill::run_facts_test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

/// What the JSON has to say of a file.
Json Told(const std::string& path) {
    const FileDigest digest = DigestOfBytes(path, ReadFile(path));
    return {{"file", digest.file}, {"size", digest.size}, {"sha256", digest.sha256}};
}

class RunFactsOfAReport : public ReportFixture {
protected:
    RunFactsOfAReport() { command_.quiet = true; }

    Json RunOf(int exit = 0) {
        command_.jsonFile = root_.Path("run.json");
        const Answer answer = Run();
        EXPECT_EQ(answer.exit, exit) << answer.err;
        return Json::parse(ReadFile(*command_.jsonFile))["run"];
    }
    [[nodiscard]] std::string StatementFile(const std::string& day) const {
        return root_.Path("Users/demo/Data/Bill/D90010002." + day + "o.txt");
    }
    /// The inputs by their kind, without the table that the program carries.
    static std::vector<std::pair<std::string, Json>> InputsOf(Json run) {
        std::vector<std::pair<std::string, Json>> inputs;
        for (Json& input : run["inputs"]) {
            const std::string kind = input["kind"];
            input.erase("kind");
            if (kind != "carriedUnits") inputs.emplace_back(kind, input);
        }
        return inputs;
    }
};

TEST_F(RunFactsOfAReport, NameEachStatementAndThePage) {
    PutStatement("20240102", "1500.25");
    PutStatement("20240103", "1600.25");
    const Json run = RunOf();
    ASSERT_EQ(run["statements"].size(), 2U);
    for (const std::size_t i : {0U, 1U}) {
        const std::string day = i == 0 ? "20240102" : "20240103";
        Json expected = Told(StatementFile(day));
        expected.update({{"day", day}, {"format", 1}, {"layout", "fund-status"}});
        EXPECT_EQ(run["statements"][i], expected);
    }
    EXPECT_EQ(run["page"], Told(PageFile()));
    EXPECT_EQ(run["days"], Json({{"from", "20240102"}, {"to", "20240103"}, {"walked", 2}, {"read", 2}}));
}

TEST_F(RunFactsOfAReport, NameEveryOtherFileThatWasRead) {
    PutStatement("20240102", "1500.25");
    options_.requestFile = root_.Write("my/request.ini", "[REQUEST]\nuser=demo\n");
    options_.unitFile = root_.Write("my/units.ini", "[UNITS]\ni=100\n");
    options_.productFile = root_.Write("my/products.ini", "[PRODUCTS]\na=b\n");
    options_.liveFile = root_.Write("my/live.ini", "[BASE]\nKHQY=1.00\n");
    const std::string chains = root_.Write("sys/chain.ini", "[CHAIN]\nCOUNT=0\n");
    const auto inputs = InputsOf(RunOf());
    const std::vector<std::pair<std::string, Json>> expected = {{"request", Told(*options_.requestFile)},
                                                                {"units", Told(*options_.unitFile)},
                                                                {"products", Told(*options_.productFile)},
                                                                {"live", Told(*options_.liveFile)},
                                                                {"chains", Told(chains)}};
    EXPECT_EQ(inputs, expected);
}

TEST_F(RunFactsOfAReport, NameTheTemplate) {
    PutStatement("20240102", "1500.25");
    options_.templateName = "mine";
    const std::string file = root_.Write("BillTemplate/mine.ini", "[MINE]\nKEY=1\n");
    const Json run = RunOf();
    EXPECT_EQ(run["template"], "mine");
    EXPECT_EQ(InputsOf(run), (std::vector<std::pair<std::string, Json>>{{"template", Told(file)}}));
}

TEST_F(RunFactsOfAReport, NameNoFileThatIsntThere) {
    PutStatement("20240102", "1500.25");
    const Json run = RunOf();
    EXPECT_TRUE(InputsOf(run).empty());
    EXPECT_EQ(run["inputs"][0]["kind"], "carriedUnits");
}

/// A run without a page tells of none, and a statement that can't be read isn't one that was.
TEST_F(RunFactsOfAReport, LeaveOutWhatCameToNothing) {
    PutStatement("20240102", "1500.25");
    fs::create_directories(StatementFile("20240103"));
    fs::create_directories(PageFile());
    const Json run = RunOf(1);
    EXPECT_EQ(run["statements"].size(), 1U);
    EXPECT_EQ(run["page"], Json());
}

/// A chain file that can't be read is told by the run, which goes on without it.
TEST_F(RunFactsOfAReport, LeaveOutAnUnreadableChainFile) {
    PutStatement("20240102", "1500.25");
    fs::create_directories(root_.Path("sys/chain.ini"));
    EXPECT_TRUE(InputsOf(RunOf(1)).empty());
}

TEST_F(RunFactsOfAReport, AreTheSameWhereverTheFilesLie) {
    PutStatement("20240102", "1500.25");
    RunOf();
    const std::string here = ReadFile(*command_.jsonFile);
    const CTempFolder other;
    fs::copy(root_.Path("Users"), other.Path("Users"), fs::copy_options::recursive);
    fs::remove_all(other.Path("Users/demo/Data/Bill/Image"));
    options_.root = other.Path();
    command_.jsonFile = other.Path("another.json");
    EXPECT_EQ(Run().exit, 0);
    EXPECT_EQ(ReadFile(*command_.jsonFile), here);
    EXPECT_EQ(here.find(root_.Path()), std::string::npos);
}

TEST_F(RunFactsOfAReport, TellTheTradingDaysOfAYear) {
    PutStatement("20240102", "1500.25");
    RunOf();
    EXPECT_EQ(Json::parse(ReadFile(*command_.jsonFile))["analysis"]["tradingDays"], 242);
    command_.tradingDays = 250;
    RunOf();
    EXPECT_EQ(Json::parse(ReadFile(*command_.jsonFile))["analysis"]["tradingDays"], 250);
}

}  // namespace
}  // namespace tradebill::run_facts_test
