#include "report/row_store.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/text.h"
#include "report/record_makers.h"
#include "support/store_fixture.h"

namespace tradebill::row_store_test {
namespace {

TEST(RowStore, KeepsRowsInOrderOfAdding) {
    CPingDetailStore store;
    EXPECT_EQ(store.Count(), 0);
    EXPECT_TRUE(store.Add(CopyOf(Closed({{"BILL_DATE", "20240103"}, {"CONTRACT", "b"}}))));
    EXPECT_TRUE(store.Add(CopyOf(Closed({{"BILL_DATE", "20240102"}, {"CONTRACT", "a"}}))));
    ASSERT_EQ(store.Count(), 2);
    EXPECT_EQ(FieldText(store.Rows[0]->CONTRACT), "b");
    EXPECT_EQ(FieldText(store.Rows[1]->CONTRACT), "a");
}

TEST(RowStore, TakesTheSameRowTwice) {
    CPingDetailStore store;
    const PingDetail row = Closed({{"BILL_DATE", "20240102"}, {"CONTRACT", "cu"}});
    EXPECT_TRUE(store.Add(CopyOf(row)));
    EXPECT_TRUE(store.Add(CopyOf(row)));
    EXPECT_EQ(store.Count(), 2);
}

TEST(RowStore, RefusesANullRow) {
    COpiSumStore store;
    EXPECT_FALSE(store.Add(nullptr));
    EXPECT_EQ(store.Count(), 0);
    EXPECT_TRUE(store.Rows.empty());
}

TEST(RowStore, OwnsWhatItTakes) {
    COpiDetailStore store;
    auto row = CopyOf(Open({{"CONTRACT", "cu"}}));
    const OpiDetail* const address = row.get();
    store.Add(std::move(row));
    EXPECT_EQ(store.Rows[0].get(), address);
}

TEST(RowStore, IsAsNewAfterClear) {
    COpiDetailStore store;
    store.Add(CopyOf(Open({{"CONTRACT", "cu"}})));
    store.Clear();
    EXPECT_EQ(store.Count(), 0);
    EXPECT_TRUE(store.Rows.empty());
    store.Add(CopyOf(Open({{"CONTRACT", "al"}})));
    EXPECT_EQ(store.Count(), 1);
}

class RowStores : public StoreFixture {};

TEST_F(RowStores, AreFourApart) {
    report.MatchStore.Add(std::make_unique<MatchRecord>());
    report.OpiSumStore.Add(std::make_unique<OpiSum>());
    report.OpiSumStore.Add(std::make_unique<OpiSum>());
    EXPECT_EQ(report.MatchStore.Count(), 1);
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
    EXPECT_EQ(report.OpiDetailStore.Count(), 0);
    EXPECT_EQ(report.PingDetailStore.Count(), 0);
}

}  // namespace
}  // namespace tradebill::row_store_test
