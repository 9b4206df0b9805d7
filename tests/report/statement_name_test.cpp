#include "report/statement_name.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill::statement_name_test {
namespace {

TEST(StatementName, HasFamilyAccountAndDay) {
    EXPECT_EQ(StatementName({.user = "demo", .account = "9001"}, "20240102", kFinishedEnding), "D9001.20240102o.txt");
    EXPECT_EQ(StatementName({.user = "demo", .account = "9001"}, "20240102", kPresentEnding), "D9001.20240102.txt");
    EXPECT_EQ(StatementName({.user = "demo", .account = "9001", .isForeign = true}, "20240102", kFinishedEnding),
              "DWP9001.20240102o.txt");
}

TEST(StatementName, IsTakenApart) {
    const auto domestic = PartsOfStatementName("D90-1_a.20240102o.txt");
    ASSERT_TRUE(domestic);
    EXPECT_EQ(domestic->account, "90-1_a");
    EXPECT_FALSE(domestic->isForeign);
    EXPECT_EQ(domestic->day, "20240102");
    EXPECT_EQ(domestic->ending, "o.txt");
    const auto foreign = PartsOfStatementName("DWP1.20240102.txt");
    ASSERT_TRUE(foreign);
    EXPECT_EQ(foreign->account, "1");
    EXPECT_TRUE(foreign->isForeign);
    EXPECT_EQ(foreign->ending, ".txt");
}

TEST(StatementName, IsNoOtherFiles) {
    for (const char* const name : {"", "D", "D.20240102o.txt", "D1.2024010o.txt", "D1.2024010xo.txt", "D120240102o.txt",
                                   "X1.20240102o.txt", "D1.20240102o.txt.part", "TradeBill.html"}) {
        EXPECT_FALSE(PartsOfStatementName(name)) << name;
    }
}

}  // namespace
}  // namespace tradebill::statement_name_test
