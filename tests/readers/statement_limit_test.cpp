#include "readers/statement_limit.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "readers/statement_loader.h"
#include "report/report.h"
#include "support/temp_folder.h"

namespace tradebill::statement_limit_test {
namespace {

TEST(StatementLimit, NamesItselfInTheLargestUnitThatFits) {
    struct Case {
        std::uint64_t most;
        const char* reason;
    };
    for (const Case& tried :
         {Case{0, "larger than 0 bytes"}, Case{1, "larger than 1 byte"}, Case{1023, "larger than 1023 bytes"},
          Case{1024, "larger than 1 KB"}, Case{1025, "larger than 1025 bytes"}, Case{1536 << 10, "larger than 1536 KB"},
          Case{256 << 20, "larger than 256 MB"}, Case{std::uint64_t{3} << 30, "larger than 3 GB"}}) {
        EXPECT_EQ(WhyTooLarge(tried.most, {.mostBytes = tried.most}), std::nullopt) << tried.most;
        EXPECT_EQ(WhyTooLarge(tried.most + 1, {.mostBytes = tried.most}), tried.reason);
    }
    EXPECT_EQ(WhyTooLarge(2, {.mostBytes = 1, .setting = "--most"}), "larger than 1 byte (--most)");
    EXPECT_EQ(WhyTooLarge(std::numeric_limits<std::uint64_t>::max(), {}), std::nullopt);
}

TEST(StatementLimit, KeepsALoaderFromLargerFilesAndFromNoOthers) {
    const CTempFolder folder;
    const std::string path = folder.Write("D1.20240102o.txt", "12345");
    CReport report;
    CStatementLoader within(report, StatementAccess::ReadAndWrite, {.mostBytes = 5});
    EXPECT_EQ(within.Load("20240102", path).state, StatementState::Read);
    CStatementLoader beyond(report, StatementAccess::ReadAndWrite, {.mostBytes = 4});
    const StatementFile file = beyond.Load("20240102", path);
    EXPECT_EQ(file.state, StatementState::Unreadable);
    EXPECT_EQ(file.reason, "larger than 4 bytes");
    EXPECT_EQ(beyond.Load("20240102", folder.Path("missing.txt")).state, StatementState::Missing);
    EXPECT_EQ(beyond.Load("20240102", folder.Path()).state, StatementState::NotAFile);
    CStatementLoader module(report);
    EXPECT_EQ(module.Load("20240102", path).state, StatementState::Read);
}

}  // namespace
}  // namespace tradebill::statement_limit_test
