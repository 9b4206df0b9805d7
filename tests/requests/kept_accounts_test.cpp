#include "requests/kept_accounts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/day.h"
#include "support/temp_folder.h"

namespace tradebill::kept_accounts_test {
namespace {

using Texts = std::vector<std::string>;

class KeptAccounts : public testing::Test {
protected:
    void Put(const std::string& user, const std::string& name) const {
        root_.Write("Users/" + user + "/Data/Bill/" + name, "");
    }
    /// "--user u --account 1: 20240102 to 20240103"
    [[nodiscard]] Texts Found(const WantedAccount& wanted = {}, const CalendarDay& present = {2024, 6, 1}) const {
        Texts found;
        for (const KeptAccount& account : FindKeptAccounts(root_.Path(), wanted, present)) {
            found.push_back(AccountOptions(account.key) + ": " + account.firstDay + " to " + account.lastDay);
        }
        return found;
    }

    CTempFolder root_;
};

TEST_F(KeptAccounts, AreThoseThatHaveStatements) {
    EXPECT_EQ(Found(), Texts{}) << "there is no folder of users";
    std::filesystem::create_directories(root_.Path("Users/empty/Data/Bill"));
    std::filesystem::create_directories(root_.Path("Users/bare"));
    root_.Write("Users/file", "");
    EXPECT_EQ(Found(), Texts{});
    Put("one", "D90010002.20240103o.txt");
    Put("one", "D90010002.20240102o.txt");
    Put("one", "D90010002.20240105o.txt");
    Put("two", "D7.20231229o.txt");
    Put("two", "DWP7.20240102o.txt");
    EXPECT_EQ(Found(), (Texts{"--user one --account 90010002: 20240102 to 20240105",
                              "--user two --account 7: 20231229 to 20231229",
                              "--user two --account 7 --kind foreign: 20240102 to 20240102"}));
}

TEST_F(KeptAccounts, AreAsWanted) {
    for (const char* const user : {"one", "two"}) {
        for (const char* const name : {"D1.20240102o.txt", "DWP1.20240102o.txt", "D2.20240102o.txt"}) Put(user, name);
    }
    EXPECT_EQ(Found().size(), 6U);
    EXPECT_EQ(Found({.user = "two"}).size(), 3U);
    EXPECT_EQ(Found({.account = "1"}).size(), 4U);
    EXPECT_EQ(Found({.isForeign = false}).size(), 4U);
    EXPECT_EQ(Found({.user = "one", .account = "1", .isForeign = true}),
              Texts{"--user one --account 1 --kind foreign: 20240102 to 20240102"});
    EXPECT_EQ(Found({.user = "three"}), Texts{});
}

TEST_F(KeptAccounts, HaveNoDaysOfFilesThatNoReportReads) {
    for (const char* const name : {"D1.20240230o.txt", "D1.2024010o.txt", "D1.20240101o.txt.part", "d1.20240101o.txt",
                                   "D1.20240101.txt", "D.20240101o.txt", "E1.20240101o.txt", "D1.20240101x.txt"}) {
        Put("u", name);
    }
    EXPECT_EQ(Found(), Texts{});
    EXPECT_EQ(Found({}, {2024, 1, 1}), Texts{"--user u --account 1: 20240101 to 20240101"})
        << "unfinished, but today's";
}

TEST(AccountOptions, StayOnOneLine) {
    EXPECT_EQ(AccountOptions({.user = "wang", .account = "1 2", .isForeign = true}),
              "--user wang --account 1 2 --kind foreign");
    EXPECT_EQ(AccountOptions({.user = "x\ny", .account = "\r"}), "--user x\\x0ay --account \\x0d");
}

}  // namespace
}  // namespace tradebill::kept_accounts_test
