#include "export/csv_set.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "export/table_list.h"
#include "export/tables_fixture.h"
#include "report/record_makers.h"
#include "support/temp_folder.h"

namespace tradebill::csv_set_test {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

class CsvSet : public TablesFixture {
protected:
    /// All that lies in the folder.
    [[nodiscard]] Files Found() const {
        Files files;
        for (const auto& entry : fs::directory_iterator(folder_.Path())) {
            files[entry.path().filename().string()] = entry.is_directory() ? "folder" : ReadFile(entry.path().string());
        }
        return files;
    }
    std::optional<CsvProblem> Save() {
        const CsvProblems problems = SaveCsvSet(folder_.Path(), Source());
        EXPECT_FALSE(problems.leftover);
        return problems.unwritten;
    }
    void AddTrade(const char* day) {
        FillFields<MatchRecord>(report.MatchStore.Add(), kMatchFields, {{"BILL_DATE", day}, {"CONTRACT", "m2405"}});
    }

    CTempFolder folder_;
};

TEST_F(CsvSet, HasAFileForEachTableAndNothingBesideThem) {
    ASSERT_FALSE(Save());
    const Files files = Found();
    EXPECT_EQ(files.size(), Tables().size());
    for (const ExportTable& table : Tables()) {
        EXPECT_EQ(files.count(std::string(table.name) + ".csv"), 1U) << table.name;
        EXPECT_TRUE(IsCsvName(std::string(table.name) + ".csv"));
        EXPECT_LE(table.name.size() + std::string_view("/.csv.older").size(), kLongestCsvName.size());
    }
    EXPECT_EQ(files.at("units.csv"), "\xEF\xBB\xBFproduct,unit,source\r\n");
}

TEST_F(CsvSet, KnowsItsNames) {
    EXPECT_FALSE(IsCsvName("other.csv"));
    EXPECT_FALSE(IsCsvName("days"));
    EXPECT_FALSE(IsCsvName("days.csv.part"));
}

TEST_F(CsvSet, TakesThePlaceOfAnOlderOne) {
    AddTrade("20240102");
    ASSERT_FALSE(Save());
    folder_.Write("notes.txt", "mine");
    AddTrade("20240103");
    ASSERT_FALSE(Save());
    const Files files = Found();
    EXPECT_EQ(files.size(), Tables().size() + 1);
    EXPECT_EQ(files.at("notes.txt"), "mine");
    EXPECT_NE(files.at("trades.csv").find("2024-01-02,,,m2405"), std::string::npos);
    EXPECT_NE(files.at("trades.csv").find("2024-01-03,,,m2405"), std::string::npos);
}

TEST_F(CsvSet, ClearsUpBehindADeadRun) {
    folder_.Write("days.csv.part", "half");
    folder_.Write("trades.csv.older", "old");
    ASSERT_FALSE(Save());
    EXPECT_EQ(Found().size(), Tables().size());
}

TEST_F(CsvSet, LeavesTheOlderOneWholeIfAFolderBearsTheNameOfATable) {
    AddTrade("20240102");
    ASSERT_FALSE(Save());
    fs::remove(folder_.Path("units.csv"));
    fs::create_directory(folder_.Path("units.csv"));
    const Files before = Found();
    AddTrade("20240103");
    const auto unwritten = Save();
    ASSERT_TRUE(unwritten);
    EXPECT_EQ(unwritten->path, folder_.Path("units.csv"));
    EXPECT_FALSE(unwritten->reason.empty());
    EXPECT_EQ(Found(), before);
}

TEST_F(CsvSet, TellsThatItsFolderIsGone) {
    fs::remove_all(folder_.Path());
    const auto unwritten = Save();
    ASSERT_TRUE(unwritten);
    EXPECT_EQ(unwritten->path, folder_.Path("days.csv"));
}

}  // namespace
}  // namespace tradebill::csv_set_test
