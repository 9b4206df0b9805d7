// Sets of CSV files that can't be finished, or that replace something odd.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <string>

#include "export/csv_set.h"
#include "export/tables_fixture.h"
#include "report/record_fields.h"
#include "report/record_makers.h"
#include "report/records.h"
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
