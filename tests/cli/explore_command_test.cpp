// The program's `explore` and `report --explore`, as a user meets them.
#include "cli/explore_command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/program_fixture.h"
#include "explore/page_blocks.h"
#include "requests/usage_error.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::explore_command_test {
namespace {

using Json = nlohmann::json;

class ExploreProgram : public Program {
protected:
    [[nodiscard]] std::string Explore(const std::string& more) const {
        return "explore --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " " + more;
    }
    [[nodiscard]] std::string ToFile(const std::string& more = {}) const {
        return Explore("-o " + Quoted(file_) + " " + more);
    }

    /// What stands in a column of a block; null for nothing.
    static Json CellOf(const Json& column, std::size_t row) {
        if (column.contains("values")) return column["values"][row];
        const int code = column["codes"][row];
        return code < 0 ? Json() : column["texts"][static_cast<std::size_t>(code)];
    }
    /// The same of a row of the JSON.
    static Json CellOf(const Json& row, const Json& column, const std::string& name) {
        if (column.contains("values")) return row["values"][name];
        return row[name] == "" ? Json() : row[name];
    }

    std::string file_ = folder_.Path("explored.html");
};

TEST_F(ExploreProgram, WritesTheSameTablesAsTheJson) {
    const std::string jsonFile = folder_.Path("report.json");
    ASSERT_EQ(Run(Report("--quiet --explore " + Quoted(file_) + " --json " + Quoted(jsonFile))).exit, 0);
    const std::string page = ReadFile(file_);
    const Json head = BlockOf(page, "head");
    const Json json = Json::parse(ReadFile(jsonFile));
    ASSERT_EQ(head["accounts"].size(), 1U);
    const Json& account = head["accounts"][0];
    EXPECT_EQ(head["schema"], 1);
    EXPECT_EQ(head["program"], json["program"]);
    EXPECT_EQ(account["account"], "90010002");
    EXPECT_EQ(account["isSum"], false);
    EXPECT_EQ(account["run"], json["run"]);
    EXPECT_EQ(account["reasons"], json["analysis"]["reasons"]);
    EXPECT_EQ(account["tables"]["trades"], json["matches"].size());
    const Json trades = BlockOf(page, "0.trades");
    ASSERT_EQ(trades["rows"], 191);
    for (const Json& column : trades["columns"]) {
        const std::string name = column["name"];
        if (!json["matches"][0].contains(name)) {  // under what a row is counted, which the JSON doesn't say of rows
            EXPECT_TRUE(name == "product" || name == "productName" || name == "fullContract") << name;
            continue;
        }
        for (std::size_t row = 0; row < 191; ++row) {
            EXPECT_EQ(CellOf(column, row), CellOf(json["matches"][row], column, name)) << name << row;
        }
    }
    const Json findings = json["findings"];
    EXPECT_EQ(account["tables"]["findings"], findings.size());
    EXPECT_EQ(BlockOf(page, "0.closed")["rows"], json["closed"].size());
    EXPECT_EQ(BlockOf(page, "0.days")["rows"], 25);
}

TEST_F(ExploreProgram, HasABlockForEachTableWithRowsAndNoOther) {
    ASSERT_EQ(Run(ToFile()).exit, 0);
    const std::string page = ReadFile(file_);
    const Json tables = BlockOf(page, "head")["accounts"][0]["tables"];
    const auto blocks = PackedBlocksOf(page);
    for (const auto& [name, rows] : tables.items()) EXPECT_EQ(blocks.contains("0." + name), rows != 0) << name;
    EXPECT_EQ(page.find("tradebill data"), std::string::npos);
    EXPECT_TRUE(page.starts_with("<!doctype html>"));
    EXPECT_TRUE(page.ends_with("</html>\n"));
}

TEST_F(ExploreProgram, MakesNoReport) {
    fs::remove_all(root_ + "/Users/demo/Data/Bill/Image");
    const Answer answer = Run(ToFile());
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_NE(answer.out.find("file://"), std::string::npos) << answer.out;
    EXPECT_NE(answer.out.find("/explored.html\n"), std::string::npos) << answer.out;
    EXPECT_FALSE(fs::exists(root_ + "/Users/demo/Data/Bill/Image"));
    EXPECT_EQ(Run(ToFile("--quiet")).out, "");
}

TEST_F(ExploreProgram, WritesTheSameBytesToStandardOutput) {
    ASSERT_EQ(Run(ToFile()).exit, 0);
    const Answer answer = Run(Explore("-o - --quiet"));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(answer.out == ReadFile(file_));  // of half a megabyte
}

TEST_F(ExploreProgram, AsksForAFile) {
    EXPECT_EQ(Run(Explore("")).exit, 2);
    EXPECT_EQ(Run(Explore("-o " + Quoted(folder_.Path("")))).exit, 2);
}

TEST_F(ExploreProgram, TellsWhatCannotBeWritten) {
    for (const std::string& call : {Explore("-o /dev/full"), Report("--explore /dev/full")}) {
        const Answer answer = Run(call);
        EXPECT_EQ(answer.exit, 1) << call;
        EXPECT_NE(answer.err.find("can't write /dev/full"), std::string::npos) << answer.err;
    }
}

TEST_F(ExploreProgram, WritesNothingWithoutAStatement) {
    const std::string days = "--from 2030-01-01 --to 2030-01-03 ";
    EXPECT_EQ(Run(ToFile(days)).exit, 2);
    EXPECT_FALSE(fs::exists(file_));
    EXPECT_EQ(Run(ToFile(days + "--force")).exit, 1);
    EXPECT_EQ(BlockOf(ReadFile(file_), "head")["accounts"][0]["tables"]["days"], 0);
}

TEST_F(ExploreProgram, KeepsItsPlaceApartFromOthers) {
    EXPECT_EQ(Run(Report("--explore " + Quoted(file_) + " --json " + Quoted(file_))).exit, 2);
    EXPECT_EQ(Run(Report("--explore - --standalone -")).exit, 2);
    ASSERT_EQ(Run(Report()).exit, 0);
    const Answer answer = Run(Report("--explore " + Quoted(PageFile())));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(ReadFile(PageFile()).find("octet-stream"), std::string::npos);
}

TEST_F(ExploreProgram, NamesPagesByTheirAddresses) {
    const Answer answer = Run(Report("--explore " + Quoted(folder_.Path("a b#.html"))));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_NE(answer.out.find("  page              file://"), std::string::npos) << answer.out;
    EXPECT_NE(answer.out.find("/a%20b%23.html\n"), std::string::npos) << answer.out;
}

TEST(ExploreCommand, NeedsTheViewer) {
    EXPECT_NO_THROW(RequireViewer("<html>", "explore"));
    try {
        RequireViewer("", "--explore");
        FAIL() << "a program without the viewer takes --explore";
    } catch (const CUsageError& error) {
        EXPECT_STREQ(error.what(), "--explore: this program was built without the viewer");
    }
}

}  // namespace
}  // namespace tradebill::explore_command_test
