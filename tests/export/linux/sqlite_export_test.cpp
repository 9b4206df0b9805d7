#include "export/sqlite_export.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "export/linux/database_fixture.h"
#include "export/linux/database_reader.h"
#include "export/table.h"
#include "export/table_list.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::linux_sqlite_export_test {
namespace {

namespace fs = std::filesystem;

class SqliteExport : public DatabaseFixture {};

TEST_F(SqliteExport, HasTypedColumnsBehindThoseOfTheAccount) {
    AddTrade(Gbk("螺纹钢"));
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT user, account, kind, BILL_DATE, CONTRACT, DELIVERY, MATCH_PRICE, typeof(MATCH_PRICE), "
                   "typeof(BILL_DATE), typeof(DELIVERY) FROM trades"),
              "demo|1|domestic|2024-01-02|螺纹钢|-|3820.5|real|text|null|");
    EXPECT_EQ(Read("SELECT type FROM pragma_table_info('units')"), "TEXT|TEXT|TEXT|TEXT|INTEGER|TEXT|");
}

TEST_F(SqliteExport, TellsItsProgramAndSchema) {
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT value FROM meta WHERE name IN ('program', 'schema') ORDER BY name"), "tradebill|1|");
    EXPECT_EQ(Read("PRAGMA journal_mode"), "delete|");
    EXPECT_EQ(Names(), (std::vector<std::string>{"out.db"}));
}

TEST_F(SqliteExport, LeavesDatabasesOfOthers) {
    for (const char* const made : {"CREATE TABLE notes (text)", "CREATE TABLE meta (value)", "CREATE TABLE meta (name)",
                                   "CREATE TABLE meta (name, value)"}) {
        fs::remove(path_);
        folder_.Write("out.db", "");
        CDatabaseReader(path_).Run(made);
        const DatabaseResult result = Save();
        EXPECT_EQ(result.end, DatabaseEnd::Refused) << made;
        EXPECT_EQ(result.reason, "it is a database of something else") << made;
    }
}

TEST_F(SqliteExport, LeavesADatabaseThatTellsNoSchema) {
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    CDatabaseReader(path_).Run("UPDATE meta SET value = NULL WHERE name = 'schema'");
    EXPECT_EQ(Save().end, DatabaseEnd::Refused);
    CDatabaseReader(path_).Run("DELETE FROM meta WHERE name = 'schema'");
    const DatabaseResult result = Save();
    EXPECT_EQ(result.end, DatabaseEnd::Refused);
    EXPECT_EQ(result.reason, "its tables are of schema none, this program writes schema 1: export into a new file");
}

TEST_F(SqliteExport, HasEveryTableWithAnIndexByAccount) {
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    for (const ExportTable& table : Tables()) {
        const std::string plan = Read("EXPLAIN QUERY PLAN SELECT * FROM " + std::string(table.name) +
                                      " WHERE user = 'a' AND account = 'b' AND kind = 'c'");
        EXPECT_NE(plan.find("USING INDEX"), std::string::npos) << table.name << ": " << plan;
    }
}

TEST_F(SqliteExport, ReplacesTheRowsOfOneAccountAlone) {
    AddTrade("a", "20230105");
    ASSERT_EQ(Save("1").end, DatabaseEnd::Done);
    ASSERT_EQ(Save("2").end, DatabaseEnd::Done);
    report.Clear();
    AddTrade("b");
    ASSERT_EQ(Save("1").end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT account, CONTRACT FROM trades ORDER BY account"), "1|b|2|a|");
}

TEST_F(SqliteExport, TakesUserAccountAndKindForTheAccount) {
    AddTrade("a");
    const auto save = [&](const char* user, bool isForeign) {
        return SaveToDatabase(path_, {.user = user, .account = "1", .isForeign = isForeign}, Source(), 0).end;
    };
    ASSERT_EQ(save("one", false), DatabaseEnd::Done);
    ASSERT_EQ(save("two", false), DatabaseEnd::Done);
    ASSERT_EQ(save("one", true), DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT user, kind FROM trades ORDER BY user, kind"), "one|domestic|one|foreign|two|domestic|");
}

TEST_F(SqliteExport, KeepsTheSameRowTwice) {
    AddTrade("a");
    AddTrade("a");
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT count(*) FROM trades"), "2|");
}

TEST_F(SqliteExport, TakesTextsThatLookLikeSql) {
    AddTrade("'); DROP TABLE trades; --");
    ASSERT_EQ(Save("1'; --").end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT account, CONTRACT FROM trades"), "1'; --|'); DROP TABLE trades; --|");
}

TEST_F(SqliteExport, RefusesWhatIsNoDatabase) {
    folder_.Write("out.db", std::string(5000, 'x'));
    EXPECT_EQ(LookAtDatabase(path_).end, DatabaseEnd::Refused);
    EXPECT_EQ(Save().end, DatabaseEnd::Refused);
    EXPECT_EQ(ReadFile(path_), std::string(5000, 'x'));
}

TEST_F(SqliteExport, RefusesADatabaseOfSomethingElse) {
    for (const char* const sql : {"CREATE TABLE meta (name TEXT, value TEXT); INSERT INTO meta VALUES ('program', 'x')",
                                  "CREATE TABLE meta (a TEXT)", "CREATE TABLE trades (a TEXT)"}) {
        folder_.Write("out.db", "");
        CDatabaseReader(path_).Run(sql);
        const std::string before = ReadFile(path_);
        EXPECT_EQ(LookAtDatabase(path_).end, DatabaseEnd::Refused);
        EXPECT_EQ(Save().reason, "it is a database of something else");
        EXPECT_EQ(ReadFile(path_), before);
    }
}

TEST_F(SqliteExport, RefusesAnotherSchema) {
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    for (const char* const schema : {"0", "2"}) {
        CDatabaseReader(path_).Run(std::string("UPDATE meta SET value = '") + schema + "' WHERE name = 'schema'");
        const DatabaseResult look = LookAtDatabase(path_);
        EXPECT_EQ(look.end, DatabaseEnd::Refused);
        EXPECT_EQ(look.reason, std::string("its tables are of schema ") + schema +
                                   ", this program writes schema 1: export into a new file");
        EXPECT_EQ(Save().end, DatabaseEnd::Refused);
    }
}

TEST_F(SqliteExport, TakesAnEmptyFileAndAnEmptyDatabase) {
    folder_.Write("out.db", "");
    EXPECT_EQ(LookAtDatabase(path_).end, DatabaseEnd::Done);
    EXPECT_EQ(Save().end, DatabaseEnd::Done);
    folder_.Write("out.db", "");
    CDatabaseReader(path_).Run("CREATE TABLE a (b); DROP TABLE a; VACUUM");
    EXPECT_EQ(LookAtDatabase(path_).end, DatabaseEnd::Done);
    EXPECT_EQ(Save().end, DatabaseEnd::Done);
}

TEST_F(SqliteExport, AddsWhatAProgramOfTheSameSchemaLacked) {
    AddTrade("a");
    ASSERT_EQ(Save("1").end, DatabaseEnd::Done);
    CDatabaseReader(path_).Run("DROP TABLE units; ALTER TABLE trades DROP COLUMN ROYALTY");
    ASSERT_EQ(Save("2").end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT account, ROYALTY FROM trades ORDER BY account"), "1|-|2|-|");
    EXPECT_EQ(Read("SELECT count(*) FROM units"), "0|");
}

TEST_F(SqliteExport, LeavesNoOldRowsInTablesOfALaterProgram) {
    ASSERT_EQ(Save("1").end, DatabaseEnd::Done);
    CDatabaseReader(path_).Run(
        "CREATE TABLE later (user TEXT, account TEXT, kind TEXT, x REAL); "
        "INSERT INTO meta VALUES ('table later', 'later'); "
        "INSERT INTO later VALUES ('demo', '1', 'domestic', 1), ('demo', '2', 'domestic', 2); "
        "CREATE TABLE notes (user TEXT, account TEXT, kind TEXT, x REAL); "
        "INSERT INTO notes VALUES ('demo', '1', 'domestic', 1)");
    ASSERT_EQ(Save("1").end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT account FROM later"), "2|");
    EXPECT_EQ(Read("SELECT account FROM notes"), "1|");
}

TEST_F(SqliteExport, TurnsOffTheLogOfADatabaseThatHasOne) {
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    CDatabaseReader(path_).Run("PRAGMA journal_mode = WAL; CREATE TABLE x (y)");
    ASSERT_EQ(Save().end, DatabaseEnd::Done);
    EXPECT_EQ(Read("PRAGMA journal_mode"), "delete|");
    EXPECT_EQ(Names(), (std::vector<std::string>{"out.db"}));
}

}  // namespace
}  // namespace tradebill::linux_sqlite_export_test
