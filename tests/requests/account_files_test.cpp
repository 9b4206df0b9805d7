// Which files below a root are statements, of whom and of which day.
#include "requests/account_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/temp_folder.h"

namespace tradebill::account_files_test {
namespace {

class AccountFilesBelow : public testing::Test {
protected:
    void Put(const std::string& user, const std::string& name) const {
        root_.Write("Users/" + user + "/Data/Bill/" + name, "x");
    }
    /// "user account family: day ending, ...; " for each account, F for foreign ones.
    [[nodiscard]] std::string Found() const {
        std::string found;
        for (const auto& [key, places] : FindAccountFiles(root_.Path())) {
            found += key.user + " " + key.account + (key.isForeign ? " F:" : " D:");
            for (const StatementPlace& place : places) found.append(" ").append(place.day).append(place.ending);
            found += "; ";
        }
        return found;
    }

    CTempFolder root_;
};

TEST_F(AccountFilesBelow, AreOrderedByAccountAndDay) {
    Put("b", "D7.20240103o.txt");
    Put("b", "D7.20240102.txt");
    Put("a", "DWP7.20240102o.txt");
    Put("a", "D12.5.20240102o.txt");
    EXPECT_EQ(Found(), "a 12.5 D: 20240102o.txt; a 7 F: 20240102o.txt; b 7 D: 20240102.txt 20240103o.txt; ");
}

TEST_F(AccountFilesBelow, NameTheFinishedDayBeforeTheOneThatLasts) {
    Put("a", "D7.20240102.txt");
    Put("a", "D7.20240102o.txt");
    EXPECT_EQ(Found(), "a 7 D: 20240102o.txt 20240102.txt; ");
}

TEST_F(AccountFilesBelow, AreNoFilesOfOtherNames) {
    for (const char* const name : {"7.20240102o.txt", "D7.20240102o.csv", "D20240102o.txt", "D.20240102o.tx",
                                   "D7.2024010xo.txt", "D7-20240102o.txt", "Do.txt", "D.txt", "D"}) {
        Put("a", name);
    }
    EXPECT_EQ(Found(), "");
}

TEST_F(AccountFilesBelow, AreNoneWithoutTheirFolders) {
    EXPECT_EQ(Found(), "") << "no users";
    root_.Write("Users/a/Data/notes.txt", "x");
    root_.Write("Users/notes.txt", "x");
    EXPECT_EQ(Found(), "") << "no statements of theirs";
    Put("b", "D7.20240102o.txt");
    EXPECT_EQ(Found(), "b 7 D: 20240102o.txt; ");
}

}  // namespace
}  // namespace tradebill::account_files_test
