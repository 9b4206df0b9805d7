// Statements behind file rights, and what is no file though it bears a statement's name.
#include "readers/statement_loader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "readers/reader_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::linux_statement_loader_test {
namespace {

constexpr std::string_view kFileDay = "20240105";

/// A user whom file rights bind, for as long as it lives: they don't bind root.
class CBoundUser {
public:
    CBoundUser() : former_(::geteuid()) {
        if (former_ == 0) isBound_ = ::seteuid(kNobody) == 0;
    }
    ~CBoundUser() {
        if (former_ == 0 && ::seteuid(former_) != 0) ADD_FAILURE() << "still another user";
    }
    CBoundUser(const CBoundUser&) = delete;
    CBoundUser& operator=(const CBoundUser&) = delete;

    [[nodiscard]] bool IsBound() const { return isBound_; }

private:
    static constexpr uid_t kNobody = 65534;
    uid_t former_;
    bool isBound_ = true;
};

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

TEST_F(LinuxStatementLoader, PassesOverAPipe) {
    const std::string pipe = folder_.Path("D1.20240105o.txt");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(LoadStatement(kFileDay, pipe));  // and doesn't wait for a writer
    EXPECT_TRUE(NothingRead());
}

}  // namespace
}  // namespace tradebill::linux_statement_loader_test
