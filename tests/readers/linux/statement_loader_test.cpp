// Statements behind file rights, and what is no file though it bears a statement's name.
#include "readers/statement_loader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <string_view>

#include "readers/reader_fixture.h"
#include "support/bound_user.h"
#include "support/temp_folder.h"

namespace tradebill::linux_statement_loader_test {
namespace {

constexpr std::string_view kFileDay = "20240105";

class LinuxStatementLoader : public ReaderFixture {
protected:
    LinuxStatementLoader() { report.Request.StatementFormat = 1; }

    CTempFolder folder_;
};

TEST_F(LinuxStatementLoader, PassesOverAFileThatCantBeWritten) {
    const std::string text =
        Statement({"结算单", "日  期:20240102", "资金状况", "----------", "客户权益: 1", "出入金: 2", "----------"});
    const std::string path = folder_.Write("D1.20240105o.txt", text);
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    {
        const CBoundUser user;
        ASSERT_TRUE(user.IsBound());
        ASSERT_EQ(ReadFile(path), text);
        EXPECT_FALSE(LoadStatement(kFileDay, path));
    }
    EXPECT_TRUE(NothingRead());
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    const CBoundUser user;
    EXPECT_TRUE(LoadStatement(kFileDay, path));
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(LinuxStatementLoader, FindsAFileThatCantBeWrittenMissingUnlessItReadsAlone) {
    const std::string path = folder_.Write("D1.20240105o.txt", "text");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    const StatementFile file = CStatementLoader(report).Load(kFileDay, path);
    EXPECT_EQ(file.state, StatementState::Missing);
    EXPECT_EQ(file.reason, "Permission denied");
    EXPECT_EQ(CStatementLoader(report, StatementAccess::ReadAlone).Load(kFileDay, path).state, StatementState::Read);
    EXPECT_EQ(CStatementLoader(report).Load(kFileDay, folder_.Path("nothing.txt")).reason, "");
}

TEST_F(LinuxStatementLoader, FindsAFileThatCantBeReadUnreadable) {
    const std::string path = folder_.Write("D1.20240105o.txt", "text");
    ASSERT_EQ(::chmod(path.c_str(), 0000), 0);
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    for (const StatementAccess access : {StatementAccess::ReadAlone, StatementAccess::ReadAndWrite}) {
        const StatementFile file = CStatementLoader(report, access).Load(kFileDay, path);
        EXPECT_EQ(file.state, StatementState::Unreadable);
        EXPECT_EQ(file.reason, "Permission denied");
    }
}

TEST_F(LinuxStatementLoader, PassesOverAPipe) {
    const std::string pipe = folder_.Path("D1.20240105o.txt");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(LoadStatement(kFileDay, pipe));  // and doesn't wait for a writer
    for (const StatementAccess access : {StatementAccess::ReadAlone, StatementAccess::ReadAndWrite}) {
        EXPECT_EQ(CStatementLoader(report, access).Load(kFileDay, pipe).state, StatementState::NotAFile);
    }
    EXPECT_TRUE(NothingRead());
}

}  // namespace
}  // namespace tradebill::linux_statement_loader_test
