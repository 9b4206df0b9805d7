// Statements and folders that file rights keep from the user.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "cli/report_fixture.h"
#include "requests/input_file.h"
#include "support/bound_user.h"

namespace tradebill::linux_read_only_archive_test {
namespace {

namespace fs = std::filesystem;

class ReadOnlyArchive : public ReportFixture {
protected:
    ReadOnlyArchive() {
        PutStatement("20240102", "1000.00");  // what the next day opens with
        PutStatement("20240103", "1600.25");
        fs::permissions(root_.Path(), fs::perms::all);
    }

    /// Takes every right to write from what lies below "Users".
    void Lock() const {
        for (const auto& entry : fs::recursive_directory_iterator(root_.Path("Users"))) {
            fs::permissions(entry.path(), entry.is_directory() ? fs::perms{0555} : fs::perms{0444});
        }
    }
    void TakeAllRights(const std::string& day) const {
        const std::string path = root_.Path("Users/demo/Data/Bill/D90010002." + day + "o.txt");
        fs::permissions(path, fs::perms::none);
    }
    Answer RunBound() {
        const CBoundUser user;
        EXPECT_TRUE(user.IsBound());
        return Run();
    }
};

TEST_F(ReadOnlyArchive, IsReadWithAnOwnFolderForThePage) {
    Lock();
    command_.outFolder = root_.Path("out");
    const Answer answer = RunBound();
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(Says(answer.out, "statements read   2 (0 days without a file)")) << answer.out;
    EXPECT_TRUE(ReadFile(root_.Path("out/TradeBill.html")).ends_with("</html>\r\n"));
}

TEST_F(ReadOnlyArchive, TakesNoPageAndSaysSo) {
    Lock();
    const Answer answer = RunBound();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(
        Says(answer.err, "can't make the folder " + root_.Path("Users/demo/Data/Bill/Image") + ": Permission denied\n"))
        << answer.err;
    EXPECT_TRUE(Says(answer.err, "can't write the page ")) << answer.err;
}

TEST_F(ReadOnlyArchive, NamesAStatementThatMayNotBeRead) {
    TakeAllRights("20240103");
    command_.outFolder = root_.Path("out");
    const Answer answer = RunBound();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, "tradebill: 20240103: can't read " +
                              root_.Path("Users/demo/Data/Bill/D90010002.20240103o.txt") + ": Permission denied\n");
    EXPECT_TRUE(fs::exists(root_.Path("out/TradeBill.html")));
}

TEST_F(ReadOnlyArchive, OfStatementsThatMayNotBeReadIsNoEmptyOne) {
    TakeAllRights("20240102");
    TakeAllRights("20240103");
    command_.outFolder = root_.Path("out");
    const Answer answer = RunBound();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "no statement could be read: nothing is written")) << answer.err;
    EXPECT_FALSE(Says(answer.err, "no statement was found")) << answer.err;
    EXPECT_FALSE(fs::exists(root_.Path("out")));
}

TEST_F(ReadOnlyArchive, NamesAPipeInAStatementsPlace) {
    const std::string pipe = root_.Path("Users/demo/Data/Bill/D90010002.20240103o.txt");
    fs::remove(pipe);
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, "tradebill: 20240103: " + pipe + " is not a file\n");
}

TEST_F(ReadOnlyArchive, PassesOverALinkThatLeadsNowhere) {
    const std::string link = root_.Path("Users/demo/Data/Bill/D90010002.20240103o.txt");
    fs::remove(link);
    fs::create_symlink("nowhere", link);
    const Answer answer = Run();
    EXPECT_EQ(answer.exit, 0);
    EXPECT_EQ(answer.err, "");
}

TEST_F(ReadOnlyArchive, NeedsATemplateThatMayBeRead) {
    options_.templateName = "closed";
    const std::string path = root_.Write("BillTemplate/closed.ini", "[DEALFIELD]\n");
    fs::permissions(path, fs::perms::none);
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    try {
        static_cast<void>(Run());
        ADD_FAILURE() << "goes by the format's own layout";
    } catch (const CUnreadableInput& error) {
        EXPECT_EQ(error.what(), "can't read " + path + ": Permission denied");
    }
}

}  // namespace
}  // namespace tradebill::linux_read_only_archive_test
