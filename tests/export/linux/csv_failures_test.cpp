// Sets of CSV files that can't be finished, or that replace something odd.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>

#include "export/csv_set.h"
#include "export/tables_fixture.h"
#include "report/record_fields.h"
#include "report/record_makers.h"
#include "report/records.h"
#include "support/bound_user.h"
#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace tradebill::linux_csv_failures_test {
namespace {

namespace fs = std::filesystem;

class CsvFailures : public TablesFixture {
protected:
    [[nodiscard]] std::map<std::string, std::string> Found() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(folder_.Path())) {
            files[entry.path().filename().string()] = ReadFile(entry.path().string());
        }
        return files;
    }
    void AddTrades(int count) {
        for (int i = 0; i < count; ++i) {
            FillFields<MatchRecord>(report.MatchStore.Add(), kMatchFields, {{"BILL_DATE", "20240102"}});
        }
    }

    CTempFolder folder_;
};

TEST_F(CsvFailures, LeaveTheOlderSetWholeOnAFullDisk) {
    ASSERT_TRUE(SaveCsvSet(folder_.Path(), Source()).IsEmpty());
    const auto before = Found();
    AddTrades(10000);
    const CFileSizeLimit limit(4096);
    const auto unwritten = SaveCsvSet(folder_.Path(), Source()).unwritten;
    ASSERT_TRUE(unwritten);
    EXPECT_EQ(unwritten->path, folder_.Path("trades.csv"));
    EXPECT_EQ(unwritten->reason, "File too large");
    EXPECT_EQ(Found(), before);
}

/// What lies in the place of the name that the older file waits under stays, and so does the older file.
TEST_F(CsvFailures, NameAFileThatCannotBeKept) {
    ASSERT_TRUE(SaveCsvSet(folder_.Path(), Source()).IsEmpty());
    folder_.Write("days.csv.older/notes.txt", "mine");
    const std::string before = ReadFile(folder_.Path("days.csv"));
    AddTrades(1);
    const CsvProblems problems = SaveCsvSet(folder_.Path(), Source());
    ASSERT_TRUE(problems.unwritten);
    EXPECT_EQ(problems.unwritten->path, folder_.Path("days.csv"));
    ASSERT_TRUE(problems.leftover);
    EXPECT_EQ(problems.leftover->path, folder_.Path("days.csv.older"));
    EXPECT_EQ(ReadFile(folder_.Path("days.csv")), before);
    EXPECT_EQ(ReadFile(folder_.Path("days.csv.older/notes.txt")), "mine");
}

/// Where everybody may make files and nobody replace those of others: such as he may link, and such as he may read
/// alone.
TEST_F(CsvFailures, TakeBackWhatStandsBesideAFileOfAnother) {
    if (::geteuid() != 0) GTEST_SKIP() << "it takes two users";
    for (const fs::perms rights : {fs::perms(0666), fs::perms(0644)}) {
        for (const auto& [name, content] : Found()) fs::remove(folder_.Path(name));
        ASSERT_TRUE(SaveCsvSet(folder_.Path(), Source()).IsEmpty());
        const std::string before = ReadFile(folder_.Path("trades.csv"));
        for (const auto& [name, content] : Found()) {
            if (name != "trades.csv") fs::remove(folder_.Path(name));
        }
        fs::permissions(folder_.Path(), fs::perms::all | fs::perms::sticky_bit);
        fs::permissions(folder_.Path("trades.csv"), rights);
        AddTrades(1);
        CsvProblems problems;
        {
            const CBoundUser user;
            ASSERT_TRUE(user.IsBound());
            problems = SaveCsvSet(folder_.Path(), Source());
        }
        ASSERT_TRUE(problems.unwritten);
        EXPECT_EQ(problems.unwritten->path, folder_.Path("trades.csv"));
        EXPECT_EQ(problems.unwritten->reason, "Operation not permitted");
        EXPECT_EQ(ReadFile(folder_.Path("trades.csv")), before);
        EXPECT_FALSE(Found().contains("days.csv"));
        EXPECT_FALSE(Found().contains("trades.csv.part"));
        // A second name of a file of another can't be removed where its first can't.
        const bool isLinked = rights == fs::perms(0666);
        EXPECT_EQ(Found().contains("trades.csv.older"), isLinked);
        EXPECT_EQ(problems.leftover.has_value(), isLinked);
    }
}

TEST_F(CsvFailures, KeepTheRightsOfTheOlderFiles) {
    ASSERT_TRUE(SaveCsvSet(folder_.Path(), Source()).IsEmpty());
    ASSERT_EQ(::chmod(folder_.Path("days.csv").c_str(), 0640), 0);
    ASSERT_TRUE(SaveCsvSet(folder_.Path(), Source()).IsEmpty());
    struct stat status {};
    ASSERT_EQ(::stat(folder_.Path("days.csv").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(CsvFailures, ReplaceALinkAndLeaveWhatItLeadsTo) {
    const std::string other = folder_.Write("other.txt", "not ours");
    fs::create_symlink(other, folder_.Path("days.csv"));
    ASSERT_TRUE(SaveCsvSet(folder_.Path(), Source()).IsEmpty());
    EXPECT_EQ(ReadFile(other), "not ours");
    EXPECT_FALSE(fs::is_symlink(folder_.Path("days.csv")));
}

}  // namespace
}  // namespace tradebill::linux_csv_failures_test
