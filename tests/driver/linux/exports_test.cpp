// What a host learns of statements that the system's rights keep from it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "driver/report_request.h"
#include "driver/run_fixture.h"
#include "support/bound_user.h"
#include "support/failing_file.h"

namespace tradebill::linux_exports_test {
namespace {

class LinuxExports : public RunFixture {
protected:
    LinuxExports() {
        SetRootFolder(root_.Path().c_str());
        PutBothDays();
        SetDates("2024-1-2", "2024-1-3");
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root_.Path())) {
            std::filesystem::permissions(entry.path(), std::filesystem::perms::all);
        }
        std::filesystem::permissions(root_.Path(), std::filesystem::perms::all);
    }
};

TEST_F(LinuxExports, NameAStatementThatCantBeWrittenAndDontCountItAsUnreadable) {
    const std::string path = root_.Path("Users/u/Data/Bill/D10086.20240103o.txt");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    EXPECT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_EQ(std::string(TradeBillLastError()),
              "20240103: can't write " + path + ", which counts as absent then: Permission denied");
    TradeBillCounts counts{};
    counts.Size = sizeof counts;
    TradeBillLastCounts(&counts);
    EXPECT_EQ(counts.Statements, 1U);
    EXPECT_EQ(counts.Unreadable, 0U);
}

TEST_F(LinuxExports, NameAChainFileAndATemplateThatCantBeRead) {
    EXPECT_EQ(TryGenerateBill(&request_), 0U);
    const std::string page = ReadFile(PageFile());
    PutFailingFile(root_.Path("sys/chain.ini"));
    PutFailingFile(root_.Path("BillTemplate/own.ini"));
    CopyField(request_.TemplateName, "own");
    EXPECT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_EQ(std::string(TradeBillLastError()), "can't read " + root_.Path("sys/chain.ini") + ": " + kFailingReason +
                                                     "\ncan't read " + root_.Path("BillTemplate/own.ini") + ": " +
                                                     kFailingReason);
    EXPECT_EQ(ReadFile(PageFile()), page);
}

}  // namespace
}  // namespace tradebill::linux_exports_test
