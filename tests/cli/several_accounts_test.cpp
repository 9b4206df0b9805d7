// The program's `explore` over several accounts, as a user meets it.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "explore/page_blocks.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::several_accounts_test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

const std::string kBills = "/Users/demo/Data/Bill";

class SeveralAccounts : public testing::Test {
protected:
    SeveralAccounts() {
        Put("fund-status");
        Put("client-bill");
    }

    /// The statements of a sample beside those that are there, below `user`.
    void Put(const std::string& sample, const std::string& user = "demo") const {
        const std::string bills = root_ + "/Users/" + user + "/Data/Bill";
        fs::create_directories(bills);
        for (const auto& entry :
             fs::directory_iterator(std::string(TRADEBILL_SAMPLES) + "/" + sample + "/root" + kBills)) {
            if (!entry.is_regular_file()) continue;
            fs::copy_file(entry.path(), bills + "/" + entry.path().filename().string());
        }
    }
    [[nodiscard]] Answer Explore(const std::string& more) const {
        return RunProgram(folder_, "explore --root " + Quoted(root_) + " -o " + Quoted(file_) + " " + more);
    }
    [[nodiscard]] Json Block(const std::string& name) const { return BlockOf(ReadFile(file_), name); }

    /// A column of numbers of a block, by days.
    [[nodiscard]] std::map<std::string, double> ByDay(const std::string& block, const std::string& name) const {
        std::map<std::string, double> values;
        const Json table = Block(block);
        const Json& days = ColumnOf(table, "day");
        const Json& column = ColumnOf(table, name);
        for (std::size_t row = 0; row < table["rows"]; ++row) {
            const std::size_t code = days["codes"][row];
            values[days["texts"][code]] = column["values"][row];
        }
        return values;
    }
    static const Json& ColumnOf(const Json& table, const std::string& name) {
        for (const Json& column : table["columns"]) {
            if (column["name"] == name) return column;
        }
        throw std::runtime_error("no column " + name);
    }
    [[nodiscard]] std::vector<std::string> Accounts() const {
        std::vector<std::string> accounts;
        const Json head = Block("head");
        for (const Json& account : head["accounts"]) accounts.push_back(account["account"]);
        return accounts;
    }

    CTempFolder folder_;
    std::string root_ = folder_.Path("root");
    std::string file_ = folder_.Path("explored.html");
};

TEST_F(SeveralAccounts, AreOnOnePageWithTheirSum) {
    const Answer answer = Explore("--account 90010005 --account 90010002");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_NE(answer.out.find("Read 50 statements of 2 accounts\n"), std::string::npos) << answer.out;
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"90010002", "90010005", ""}));
    const Json sum = Block("head")["accounts"][2];
    EXPECT_EQ(sum["isSum"], true);
    EXPECT_EQ(sum["kind"], "domestic");
    EXPECT_FALSE(sum["tables"].contains("trades"));
    for (const std::string name : {"equity", "cashFlow", "pl", "margin", "fees", "turnover", "lots"}) {
        const auto first = ByDay("0.days", name);
        const auto second = ByDay("1.days", name);
        const auto both = ByDay("2.days", name);
        ASSERT_EQ(both.size(), 25U);
        for (const auto& [day, value] : both) EXPECT_NEAR(value, first.at(day) + second.at(day), 1e-6) << name << day;
    }
    double opening = 0;
    for (const std::string block : {"0.figures", "1.figures"}) {
        const Json figures = Block(block);
        const Json& names = ColumnOf(figures, "name")["texts"];
        for (std::size_t row = 0; row < names.size(); ++row) {
            if (names[row] == "money.OpeningEquity") opening += ColumnOf(figures, "value")["values"][row].get<double>();
        }
    }
    EXPECT_GT(opening, 0);
    EXPECT_EQ(sum["opening"], opening);
}

TEST_F(SeveralAccounts, AreAllThatThereAreWhereAllAreAskedFor) {
    Put("tabulated");
    EXPECT_EQ(Explore("--all-accounts").exit, 0);
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"90010002", "90010004", "90010005", ""}));
    EXPECT_EQ(Explore("--all-accounts --user demo --kind domestic --account 90010002").exit, 2);
}

TEST_F(SeveralAccounts, HaveNoSumWhereOneIsAlone) {
    EXPECT_EQ(Explore("--account 90010005").exit, 0);
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"90010005"}));
    EXPECT_EQ(Explore("").exit, 2);  // which of the two
}

TEST_F(SeveralAccounts, MayHaveOneNumberBelowDifferentUsers) {
    Put("fund-status", "other");
    EXPECT_EQ(Explore("--account 90010002 --account 90010005").exit, 0);
    const Json accounts = Block("head")["accounts"];
    ASSERT_EQ(accounts.size(), 4U);
    EXPECT_EQ(accounts[0]["user"], "demo");
    EXPECT_EQ(accounts[2]["user"], "other");
    EXPECT_EQ(accounts[2]["account"], "90010002");
}

TEST_F(SeveralAccounts, AreRefusedWhereTheyCanNotBeAddedUp) {
    Put("foreign");
    const Answer mixed = Explore("--all-accounts");
    EXPECT_EQ(mixed.exit, 2);
    EXPECT_NE(mixed.err.find("--kind is missing: expected accounts of one kind"), std::string::npos) << mixed.err;
    EXPECT_EQ(Explore("--all-accounts --kind foreign").exit, 0);
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"60010001"}));
    EXPECT_EQ(Explore("--all-accounts --kind domestic").exit, 0);
    EXPECT_EQ(Accounts().size(), 3U);
}

TEST_F(SeveralAccounts, AreAllThereOrRefused) {
    const Answer missing = Explore("--account 90010005 --account 90019999");
    EXPECT_EQ(missing.exit, 2);
    EXPECT_NE(missing.err.find("found \"90019999\""), std::string::npos) << missing.err;
    EXPECT_FALSE(fs::exists(file_));
    folder_.Write("live.ini", "[BASE]\n");
    EXPECT_EQ(Explore("--all-accounts --live " + Quoted(folder_.Path("live.ini"))).exit, 2);
    EXPECT_EQ(Explore("--all-accounts --request -").exit, 2);
}

TEST_F(SeveralAccounts, AreThoseOfTheDaysThatAreAskedFor) {
    for (const auto& entry : fs::directory_iterator(root_ + kBills)) {
        if (entry.path().filename().string().starts_with("D90010005.202401")) fs::remove(entry.path());
    }
    const std::string days = " --from 2024-01-02 --to 2024-01-05 ";
    const Answer named = Explore("--account 90010002 --account 90010005" + days);
    EXPECT_EQ(named.exit, 2);
    EXPECT_NE(named.err.find("of these days"), std::string::npos) << named.err;
    EXPECT_FALSE(fs::exists(file_));
    const Answer all = Explore("--all-accounts" + days);
    EXPECT_EQ(all.exit, 0);
    EXPECT_NE(all.err.find("--account 90010005 has no statement of these days and is left out"), std::string::npos)
        << all.err;
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"90010002"}));
}

TEST_F(SeveralAccounts, NameTheOneThatHasNothingToGoBy) {
    for (const auto& entry : fs::directory_iterator(root_ + kBills)) {
        if (entry.path().filename().string().starts_with("D90010005.2024010")) fs::remove(entry.path());
    }
    folder_.Write("root" + kBills + "/D90010005.20230102o.txt", "");
    const std::string days = " --from 2024-01-02 --to 2024-01-05 ";
    const Answer unknown = Explore("--all-accounts" + days);
    EXPECT_EQ(unknown.exit, 2);
    EXPECT_NE(unknown.err.find("--account 90010005: --format auto"), std::string::npos) << unknown.err;
    const Answer empty = Explore("--all-accounts --format 2" + days);
    EXPECT_EQ(empty.exit, 2);
    EXPECT_NE(empty.err.find("nothing is written"), std::string::npos) << empty.err;
    EXPECT_FALSE(fs::exists(file_));
    EXPECT_EQ(Explore("--all-accounts --format 2 --force" + days).exit, 1);
    const Json head = Block("head");
    EXPECT_EQ(head["accounts"][1]["tables"]["days"], 0);
    EXPECT_EQ(head["accounts"][2]["isSum"], true);
}

TEST_F(SeveralAccounts, TellAStatementOfOneThatCanNotBeRead) {
    const std::string statement = root_ + kBills + "/D90010005.20240103o.txt";
    fs::remove(statement);
    fs::create_directory(statement);
    const Answer answer = Explore("--all-accounts");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find("D90010005.20240103o.txt is not a file"), std::string::npos) << answer.err;
    EXPECT_EQ(Accounts().size(), 3U);
}

TEST_F(SeveralAccounts, MayBeImportedFirst) {
    const std::string out = folder_.Path("made");
    const std::string files = Quoted(root_ + kBills) + " -o " + Quoted(file_) + " --out " + Quoted(out);
    const Answer several = RunProgram(folder_, "explore " + files);
    EXPECT_EQ(several.exit, 2);
    EXPECT_NE(several.err.find("the files are of several accounts"), std::string::npos) << several.err;
    const Answer all = RunProgram(folder_, "explore --all-accounts " + files);
    EXPECT_EQ(all.exit, 0) << all.err;
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"90010002", "90010005", ""}));
    EXPECT_EQ(RunProgram(folder_, "explore --account 90010005 " + files).exit, 0);
    EXPECT_EQ(Accounts(), (std::vector<std::string>{"90010005"}));
    EXPECT_EQ(RunProgram(folder_, "explore --account 90010005 --account 7 " + files).exit, 1);
    folder_.Write("rubbish.txt", "no statement");
    EXPECT_EQ(RunProgram(folder_, "explore --all-accounts " + Quoted(folder_.Path("rubbish.txt")) + " " + files).exit,
              3);
    EXPECT_EQ(RunProgram(folder_, "explore -o " + Quoted(file_) + " " + Quoted(root_ + kBills)).exit, 2);  // no --out
    EXPECT_EQ(Explore("--all-accounts --out " + Quoted(out)).exit, 2);  // and none to import
}

}  // namespace
}  // namespace tradebill::several_accounts_test
