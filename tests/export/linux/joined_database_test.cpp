// Databases of several tasks that become one.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "export/linux/database_fixture.h"
#include "export/linux/database_reader.h"
#include "export/sqlite_export.h"
#include "support/temp_folder.h"

namespace tradebill::linux_joined_database_test {
namespace {

namespace fs = std::filesystem;

class JoinedDatabase : public DatabaseFixture {
protected:
    DatabaseResult SaveTo(const std::string& path, const std::string& account) {
        return SaveToDatabase(path, {.user = "demo", .account = account}, Source(), 0);
    }

    std::string one_ = folder_.Path("one.db");
    std::string two_ = folder_.Path("two.db");
};

TEST_F(JoinedDatabase, HasTheRowsOfAllAccounts) {
    AddTrade("rb1");
    ASSERT_EQ(SaveTo(one_, "1").end, DatabaseEnd::Done);
    AddTrade("rb2");
    ASSERT_EQ(SaveTo(two_, "2").end, DatabaseEnd::Done);
    ASSERT_EQ(JoinDatabase(path_, one_, 0).end, DatabaseEnd::Done);
    ASSERT_EQ(JoinDatabase(path_, two_, 0).end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT account, CONTRACT FROM trades ORDER BY account, CONTRACT"), "1|rb1|2|rb1|2|rb2|");
    EXPECT_EQ(Read("SELECT count(DISTINCT account) FROM figures"), "2|");
    EXPECT_EQ(CDatabaseReader(two_).Read("SELECT count(*) FROM trades"), "2|");
}

TEST_F(JoinedDatabase, ReplacesTheRowsOfAnAccountAndKeepsThoseOfOthers) {
    AddTrade("old");
    ASSERT_EQ(SaveTo(path_, "1").end, DatabaseEnd::Done);
    ASSERT_EQ(SaveTo(path_, "2").end, DatabaseEnd::Done);
    report.MatchStore.Clear();
    AddTrade("new");
    ASSERT_EQ(SaveTo(one_, "1").end, DatabaseEnd::Done);
    for (int times = 0; times < 2; ++times) ASSERT_EQ(JoinDatabase(path_, one_, 0).end, DatabaseEnd::Done);
    EXPECT_EQ(Read("SELECT account, CONTRACT FROM trades ORDER BY account"), "1|new|2|old|");
}

TEST_F(JoinedDatabase, StaysAsItWasWhereTheOtherIsNone) {
    AddTrade("rb1");
    ASSERT_EQ(SaveTo(path_, "1").end, DatabaseEnd::Done);
    folder_.Write("one.db", "no database at all, and long enough to be looked at as one");
    EXPECT_EQ(JoinDatabase(path_, one_, 0).end, DatabaseEnd::Refused);
    fs::remove(one_);
    folder_.Write("one.db", "");
    CDatabaseReader(one_).Run("CREATE TABLE notes (text)");
    EXPECT_EQ(JoinDatabase(path_, one_, 0).end, DatabaseEnd::Refused);
    EXPECT_EQ(Read("SELECT CONTRACT FROM trades"), "rb1|");
}

}  // namespace
}  // namespace tradebill::linux_joined_database_test
