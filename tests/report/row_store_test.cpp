#include "report/row_store.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "report/record_makers.h"
#include "support/store_fixture.h"

namespace tradebill::row_store_test {
namespace {

TEST(RowStore, KeepsRowsInOrderOfAdding) {
    CPingDetailStore store;
    EXPECT_EQ(store.Count(), 0);
    store.Add() = Closed({{"BILL_DATE", "20240103"}, {"CONTRACT", "b"}});
    store.Add() = Closed({{"BILL_DATE", "20240102"}, {"CONTRACT", "a"}});
    ASSERT_EQ(store.Count(), 2);
    EXPECT_EQ(FieldText(store.Rows[0].CONTRACT), "b");
    EXPECT_EQ(FieldText(store.Rows[1].CONTRACT), "a");
}

TEST(RowStore, TakesTheSameRowTwice) {
    CPingDetailStore store;
    const PingDetail row = Closed({{"BILL_DATE", "20240102"}, {"CONTRACT", "cu"}});
    store.Add() = row;
    store.Add() = row;
    EXPECT_EQ(store.Count(), 2);
}

TEST(RowStore, AddsRowsWithoutATextInThem) {
    COpiSumStore store;
    store.Add() = OpenSum({{"CONTRACT", "cu"}, {"DEPOSIT", "5"}});
    store.Clear();
    const OpiSum& row = store.Add();
    EXPECT_STREQ(row.CONTRACT, "");
    EXPECT_STREQ(row.DEPOSIT, "");
}

TEST(RowStore, CountsNoRowThatIsNotKept) {
    COpiDetailStore store;
    (void)store.Rows.NewRow();
    EXPECT_EQ(store.Count(), 0);
    EXPECT_TRUE(store.Rows.empty());
}

TEST(RowStore, IsAsNewAfterClear) {
    COpiDetailStore store;
    store.Add() = Open({{"CONTRACT", "cu"}});
    store.Clear();
    EXPECT_EQ(store.Count(), 0);
    EXPECT_TRUE(store.Rows.empty());
    store.Add() = Open({{"CONTRACT", "al"}});
    EXPECT_EQ(store.Count(), 1);
}

class RowStores : public StoreFixture {};

TEST_F(RowStores, AreFourApart) {
    report.MatchStore.Add();
    report.OpiSumStore.Add();
    report.OpiSumStore.Add();
    EXPECT_EQ(report.MatchStore.Count(), 1);
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
    EXPECT_EQ(report.OpiDetailStore.Count(), 0);
    EXPECT_EQ(report.PingDetailStore.Count(), 0);
}

}  // namespace
}  // namespace tradebill::row_store_test
