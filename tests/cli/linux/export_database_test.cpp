// The program's `export --sqlite`.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "cli/program_fixture.h"
#include "export/linux/database_reader.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::linux_export_database_test {
namespace {

class ExportDatabase : public Program {
protected:
    [[nodiscard]] std::string Export(const std::string& more) const {
        return "export --quiet --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " " + more;
    }
    [[nodiscard]] std::string ToDatabase(const std::string& more = {}) const {
        return Export("--sqlite " + Quoted(path_) + " " + more);
    }
    [[nodiscard]] std::string Read(const std::string& sql) const { return CDatabaseReader(path_).Read(sql); }

    std::string path_ = folder_.Path("帐户 1.db");
};

TEST_F(ExportDatabase, HasSeveralAccountsInOneFile) {
    ASSERT_EQ(Run(ToDatabase()).exit, 0);
    const std::string foreign = std::string(TRADEBILL_SAMPLES) + "/foreign";
    ASSERT_EQ(Run("export --quiet --root " + Quoted(foreign + "/root") + " --request " +
                  Quoted(foreign + "/request.ini") + " --sqlite " + Quoted(path_))
                  .exit,
              0);
    EXPECT_EQ(Read("SELECT user, account, kind, count(*) FROM trades GROUP BY 1, 2, 3"),
              "demo|60010001|foreign|136|demo|90010002|domestic|191|");
    EXPECT_EQ(Read("SELECT count(*) FROM currency_days"), "125|");
    // What the statements' rows of closing trades, 71 of them, add up to; 38 of these sell.
    EXPECT_EQ(Read("SELECT CURRENCY, count(*), sum(OFFSETPL), sum(side = 'long'), sum(tradeSide = 'sell') FROM closed "
                   "WHERE kind = 'foreign' GROUP BY CURRENCY"),
              "EUR|11|-7127.5|9|9|HKD|23|31400.0|9|9|JPY|7|1400000.0|6|6|USD|30|9702.5|14|14|");
    EXPECT_EQ(
        Read("SELECT currency, sum(count), sum(statedPl) FROM contracts WHERE kind = 'foreign' GROUP BY currency"),
        "EUR|11|-7127.5|HKD|23|31400.0|JPY|7|1400000.0|USD|30|9702.5|");
}

TEST_F(ExportDatabase, ReplacesDaysOutsideOfTheNewRange) {
    ASSERT_EQ(Run(ToDatabase()).exit, 0);
    ASSERT_EQ(Run(ToDatabase("--from 2024-01-03 --to 2024-01-04")).exit, 0);
    EXPECT_EQ(Read("SELECT BILL_DATE FROM days ORDER BY 1"), "2024-01-03|2024-01-04|");
}

TEST_F(ExportDatabase, RefusesWhatIsNoneOfItsOwnBeforeItReads) {
    std::ofstream(path_) << "my notes, which are longer than a few bytes";
    const Answer answer = Run(ToDatabase());
    EXPECT_EQ(answer.exit, 2);
    EXPECT_NE(answer.err.find("it is no SQLite database"), std::string::npos) << answer.err;
    EXPECT_EQ(ReadFile(path_), "my notes, which are longer than a few bytes");
}

TEST_F(ExportDatabase, RefusesAnOlderSchema) {
    ASSERT_EQ(Run(ToDatabase()).exit, 0);
    CDatabaseReader(path_).Run("UPDATE meta SET value = '0' WHERE name = 'schema'");
    const std::string before = ReadFile(path_);
    const Answer answer = Run(ToDatabase());
    EXPECT_EQ(answer.exit, 2);
    EXPECT_NE(answer.err.find("schema 0, this program writes schema 1: export into a new file"), std::string::npos);
    EXPECT_EQ(ReadFile(path_), before);
}

TEST_F(ExportDatabase, NeedsAFileForIt) {
    for (const std::string& place : {std::string("-"), std::string("/dev/null"), root_, folder_.Path("missing/x.db")}) {
        const Answer answer = Run(Export("--sqlite " + Quoted(place)));
        EXPECT_EQ(answer.exit, 2) << place;
        EXPECT_NE(answer.err.find("--sqlite: expected a file in a folder that is there"), std::string::npos);
    }
}

TEST_F(ExportDatabase, IsNotPutInThePlaceOfATable) {
    const std::string csv = folder_.Path("csv");
    fs::create_directory(csv);
    EXPECT_EQ(Run(Export("--csv " + Quoted(csv) + " --sqlite " + Quoted(csv + "/days.csv"))).exit, 2);
    EXPECT_EQ(Run(Export("--csv " + Quoted(csv) + " --sqlite " + Quoted(csv + "/all.db"))).exit, 0);
}

TEST_F(ExportDatabase, SaysWhoIsInTheWay) {
    ASSERT_EQ(Run(ToDatabase()).exit, 0);
    const CDatabaseReader other(path_);
    other.Run("BEGIN IMMEDIATE");
    const Answer answer = Run(ToDatabase("--wait 0"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find("another program is using it (--wait SECONDS waits longer)"), std::string::npos)
        << answer.err;
}

TEST_F(ExportDatabase, IsNamedAsTheUserNamesIt) {
    fs::create_directory(folder_.Path("below"));
    path_ = folder_.Path("below/all.db");
    const std::string call = "cd " + Quoted(folder_.Path()) + " && " + Quoted(TRADEBILL_PROGRAM) + " export --root " +
                             Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") +
                             " --sqlite below/../below/all.db --wait 0 >out 2>err";
    ASSERT_EQ(RunShell(call), 0);
    EXPECT_NE(ReadFile(folder_.Path("out")).find("  in below/../below/all.db\n"), std::string::npos);
    const CDatabaseReader other(path_);
    other.Run("BEGIN IMMEDIATE");
    EXPECT_EQ(RunShell(call), 1);
    EXPECT_TRUE(ReadFile(folder_.Path("err")).starts_with("tradebill: can't write below/../below/all.db: another"))
        << ReadFile(folder_.Path("err"));
    other.Run("ROLLBACK");
    std::ofstream(path_, std::ios::trunc) << "my notes";
    EXPECT_EQ(RunShell(call), 2);
    EXPECT_NE(ReadFile(folder_.Path("err")).find("found \"below/../below/all.db\": it is no SQLite database"),
              std::string::npos)
        << ReadFile(folder_.Path("err"));
}

TEST_F(ExportDatabase, IsTheTwinOfTheFoldersOption) {
    const std::string help = Run("export --help").out;
    EXPECT_NE(help.find("--csv"), std::string::npos) << help;
    EXPECT_NE(help.find("--sqlite"), std::string::npos) << help;
}

TEST_F(ExportDatabase, FollowsALink) {
    const std::string link = folder_.Path("link.db");
    fs::create_symlink(path_, link);
    ASSERT_EQ(Run(Export("--sqlite " + Quoted(link))).exit, 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Read("SELECT count(*) FROM days"), "25|");
}

TEST_F(ExportDatabase, LetsTwoProgramsWriteOneAfterTheOther) {
    const std::string command = Quoted(TRADEBILL_PROGRAM) + " " + ToDatabase();
    ASSERT_EQ(
        RunShell(command + " --account 90010002 & first=$!; " + command + "; second=$?; wait $first && exit $second"),
        0);
    EXPECT_EQ(Read("SELECT count(*) FROM trades"), "191|");
}

}  // namespace
}  // namespace tradebill::linux_export_database_test
