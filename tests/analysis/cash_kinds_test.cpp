#include "analysis/cash_kinds.h"

#include <gtest/gtest.h>

#include <vector>

#include "report/report.h"
#include "report/side_records.h"

namespace tradebill::cash_kinds_test {

TEST(CashKinds, AddUpInTheOrderInWhichTheyComeUp) {
    CReport report;
    report.SideRecords.Cash = {
        {.CASH_TYPE = "wire", .CASH_IN = "1,000.00", .CASH_OUT = "0.00"},
        {.CASH_TYPE = "fee", .CASH_IN = "", .CASH_OUT = "5.25"},
        {.CASH_TYPE = "wire", .CASH_IN = "0.10", .CASH_OUT = "300.00"},
        {.CASH_TYPE = "", .CASH_IN = "--", .CASH_OUT = "x"},
    };
    const std::vector<CashKind> kinds = CashKindsOf(report);
    ASSERT_EQ(kinds.size(), 3U);
    EXPECT_EQ(kinds[0].type, "wire");
    EXPECT_EQ(kinds[0].count, 2);
    EXPECT_EQ(kinds[0].cashIn, 1000.1);
    EXPECT_EQ(kinds[0].cashOut, 300);
    EXPECT_EQ(kinds[1].type, "fee");
    EXPECT_EQ(kinds[1].count, 1);
    EXPECT_EQ(kinds[1].cashIn, 0);
    EXPECT_EQ(kinds[1].cashOut, 5.25);
    EXPECT_EQ(kinds[2].type, "");
    EXPECT_EQ(kinds[2].count, 1);
    EXPECT_EQ(kinds[2].cashIn, 0);
    EXPECT_EQ(kinds[2].cashOut, 0);
}

TEST(CashKinds, AreNoneWithoutRows) {
    EXPECT_TRUE(CashKindsOf(CReport()).empty());
}

}  // namespace tradebill::cash_kinds_test
