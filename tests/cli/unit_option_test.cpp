// Where the program takes contract units from, seen from outside.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>

#include "cli/program_fixture.h"
#include "support/gbk_text.h"

namespace tradebill::unit_option_test {
namespace {

using Json = nlohmann::json;

class UnitOption : public Program {
protected:
    /// Makes another sample's account the one at hand.
    void UseSample(const std::string& name) {
        fs::remove_all(sample_);
        fs::copy(std::string(TRADEBILL_SAMPLES) + "/" + name, sample_, fs::copy_options::recursive);
    }
    /// The page of a report with `more` behind its options; its units are in `units_` then.
    std::string Page(const std::string& more) {
        const std::string file = folder_.Path("run.json");
        const Answer answer = Run(Report("--quiet --json " + Quoted(file) + " " + more));
        EXPECT_EQ(answer.exit, 0) << answer.err;
        doubts_ = answer.err;
        units_ = Json::parse(ReadFile(file))["run"]["units"];
        return ReadFile(PageFile());
    }
    [[nodiscard]] std::string FileOfSample() const { return "--units " + Quoted(sample_ + "/units.ini"); }
    [[nodiscard]] std::set<std::string> Sources() const {
        std::set<std::string> sources;
        for (const Json& used : units_) sources.insert(used["source"]);
        return sources;
    }
    [[nodiscard]] std::map<std::string, int> Units() const {
        std::map<std::string, int> units;
        for (const Json& used : units_) units[used["product"]] = used["unit"];
        return units;
    }
    /// Takes all lines that begin with `word` from a file.
    static void DropLines(const std::string& path, const std::string& word) {
        std::istringstream lines(ReadFile(path));
        std::string kept;
        int dropped = 0;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(word)) {
                ++dropped;
            } else {
                kept += line + "\n";
            }
        }
        ASSERT_GT(dropped, 0);
        std::ofstream(path, std::ios::binary) << kept;
    }

    Json units_;
    std::string doubts_;  ///< what the run said on stderr
};

TEST_F(UnitOption, NeedsntBeGivenForWhatTheTradesTell) {
    const std::string expected = Page(FileOfSample());
    EXPECT_EQ(Sources(), (std::set<std::string>{"file"}));
    const auto units = Units();
    EXPECT_TRUE(Page("") == expected);
    EXPECT_EQ(Sources(), (std::set<std::string>{"trades"}));
    EXPECT_EQ(Units(), units);
    EXPECT_EQ(units.at("i"), 100);
}

TEST_F(UnitOption, CanSayThatUnitsAreOne) {
    const std::string file = folder_.Write("ones.ini", "[UNITS]\n");
    const std::string ones = Page("--units " + Quoted(file));
    EXPECT_TRUE(Says(doubts_, "error unit: The unit of i isn't what the account's own trades say.")) << doubts_;
    EXPECT_TRUE(Page("--units none") == ones);
    EXPECT_EQ(doubts_, "");
    EXPECT_EQ(Sources(), (std::set<std::string>{"none"}));
    EXPECT_EQ(Units().at("i"), 1);
    EXPECT_FALSE(Page("") == ones);
}

TEST_F(UnitOption, DecidesAgainstTheTradesIfItIsAFile) {
    const std::string expected = Page("");
    EXPECT_FALSE(Page("--units " + Quoted(folder_.Write("wrong.ini", "[UNITS]\ni=10\n"))) == expected);
    EXPECT_TRUE(Says(doubts_, "unit of i isn't what the account's own trades say. Expected 100, found 10.")) << doubts_;
    EXPECT_EQ(Units().at("i"), 10);
    EXPECT_EQ(Units().at("m"), 1);
    EXPECT_EQ(Sources(), (std::set<std::string>{"file", "none"}));
}

// The page asks for index futures by their code, where trades and readers go by the name.
TEST_F(UnitOption, NeedsntBeGivenForNamesEither) {
    UseSample("fund-class");
    const std::string expected = Page(FileOfSample());
    EXPECT_TRUE(Page("") == expected);
    EXPECT_EQ(Sources(), (std::set<std::string>{"trades"}));
    EXPECT_EQ(Units().at("股指"), 300);
    EXPECT_EQ(Units().at("IF"), 300);
    EXPECT_EQ(Units().at("豆粕P"), 10);
}

TEST_F(UnitOption, LeavesTheTableForTradesWithoutTurnover) {
    UseSample("template-pairs");
    DropLines(root_ + "/BillTemplate/songta.ini", "TURNOVER=");
    const std::string expected = Page(FileOfSample());
    const auto units = Units();
    EXPECT_TRUE(Page("") == expected);
    EXPECT_EQ(Sources(), (std::set<std::string>{"table"}));
    EXPECT_EQ(Units(), units);
}

TEST_F(UnitOption, MeansNothingToTheForeignFamily) {
    UseSample("foreign");
    const std::string expected = Page("--units none");
    EXPECT_TRUE(units_.empty());
    EXPECT_TRUE(Page("") == expected);
    EXPECT_TRUE(units_.empty());
}

// The trade that tells the unit is of a day behind that of the closed row.
TEST_F(UnitOption, NeedsntBeGivenForWhatLaterTradesTell) {
    const std::string bill = root_ + "/Users/demo/Data/Bill/D90010002.";
    const auto statement = [](const std::string& trade, const std::string& closed) {
        return Statement({"资金状况", "----------", "上日结存: 1.00 当日结存: 1.00", "客户权益: 1.00 可用资金: 1.00",
                          "----------", "成交记录", "----------", "成交日期 交易所 品种 ...", trade, "共 1条",
                          "平仓明细", "----------", "平仓日期 交易所 品种 ...", closed, "共 1条"});
    };
    const std::string trade = "20240103 大商所 xx 2405 卖 平 200 1 1400.00 0.00 0.00 投";
    const std::string closed = "20240102 大商所 xx 2405 投 卖 200 20231229 100 1 100 100.00";
    std::ofstream(bill + "20240102o.txt", std::ios::binary) << statement("none", closed);
    std::ofstream(bill + "20240103o.txt", std::ios::binary) << statement(trade, "none");
    const std::string file = folder_.Path("run.json");
    ASSERT_EQ(Run(Options() + " --quiet --json " + Quoted(file)).exit, 0);
    const Json json = Json::parse(ReadFile(file));
    EXPECT_EQ(json["run"]["units"], Json::parse(R"([{"product": "xx", "unit": 7, "source": "trades"}])"));
    EXPECT_EQ(json["offsets"][0]["LONG_WIN_PL"], 700);  // 200 - 100 for one lot of 7
}

TEST_F(UnitOption, MeansTheSameToCharts) {
    const auto chart = [&](const std::string& more) {
        const std::string file = folder_.Path("chart.png");
        EXPECT_EQ(Run("chart realised --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") +
                      " -o " + Quoted(file) + " " + more)
                      .exit,
                  0);
        return ReadFile(file);
    };
    EXPECT_TRUE(chart("") == chart(FileOfSample()));
    EXPECT_TRUE(chart("--units none").starts_with("\x89PNG"));
    EXPECT_TRUE(
        IsWrongUse(Run("chart realised --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") +
                       " -o " + Quoted(folder_.Path("c.png")) + " --units " + Quoted(folder_.Path("missing.ini"))),
                   "missing.ini"));
}

}  // namespace
}  // namespace tradebill::unit_option_test
