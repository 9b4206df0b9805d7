#include "report/currency_money_store.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/record_makers.h"
#include "support/store_fixture.h"

namespace tradebill::currency_money_store_test {
namespace {

using Names = std::vector<std::string>;

class CurrencyMoneyStoreTest : public StoreFixture {
protected:
    bool Add(std::string_view currency, const MoneyRecord& record, MoneySource source = MoneySource::Statement) {
        return report.CurrencyMoneyStore.Add(CopyOf(record), currency, source);
    }
};

TEST_F(CurrencyMoneyStoreTest, MakesAStorePerCurrencyInOrderOfFirstAppearance) {
    EXPECT_TRUE(Add("USD", Money("20240102", {{"QMJC", "1"}})));
    EXPECT_TRUE(Add("HKD", Money("20240102", {{"QMJC", "2"}})));
    EXPECT_TRUE(Add("USD", Money("20240103", {{"QMJC", "3"}})));
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD", "HKD"}));
    ASSERT_EQ(report.CurrencyMoneyStore.Stores.size(), 2U);
    EXPECT_EQ(report.CurrencyMoneyStore.Stores[0]->Count(), 2);
    EXPECT_EQ(report.CurrencyMoneyStore.Stores[0]->ClosingEquity, 3);
    EXPECT_EQ(report.CurrencyMoneyStore.Stores[1]->Count(), 1);
    EXPECT_EQ(report.CurrencyMoneyStore.Stores[1]->ClosingEquity, 2);
}

TEST_F(CurrencyMoneyStoreTest, FindsAStoreByTheWholeName) {
    Add("USD", Money("20240102", {}));
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD"), report.CurrencyMoneyStore.Stores[0].get());
    EXPECT_EQ(report.CurrencyMoneyStore.Find("usd"), nullptr);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("US"), nullptr);
    EXPECT_EQ(report.CurrencyMoneyStore.Find(""), nullptr);
}

TEST_F(CurrencyMoneyStoreTest, TakesAnEmptyNameToo) {
    Add("", Money("20240102", {}));
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{""}));
    EXPECT_NE(report.CurrencyMoneyStore.Find(""), nullptr);
}

TEST_F(CurrencyMoneyStoreTest, HandsTheSourceOn) {
    Add("USD", Money("20240102", {{"HOST_FROZEN_A", "7"}}), MoneySource::Live);
    Add("HKD", Money("20240102", {{"HOST_FROZEN_A", "7"}}), MoneySource::Statement);
    Add("USD", Money("20240103", {{"HOST_FROZEN_A", "5"}}), MoneySource::Live);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->FrozenA, 12);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("HKD")->FrozenA, 0);
}

TEST_F(CurrencyMoneyStoreTest, LeavesTheAccountsStoreAlone) {
    Add("USD", Money("20240102", {{"PCYK", "1"}}));
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 0);
}

TEST_F(CurrencyMoneyStoreTest, MakesAnEmptyStoreForANullRecordOfANewCurrency) {
    EXPECT_TRUE(report.CurrencyMoneyStore.Add(nullptr, "USD", MoneySource::Statement));
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD"}));
    ASSERT_NE(report.CurrencyMoneyStore.Find("USD"), nullptr);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->Count(), 0);
}

TEST_F(CurrencyMoneyStoreTest, PutsAnEmptyStoreInTheOldOnesPlaceForANullRecord) {
    Add("USD", Money("20240102", {}));
    Add("HKD", Money("20240102", {}));
    EXPECT_TRUE(report.CurrencyMoneyStore.Add(nullptr, "USD", MoneySource::Live));
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"HKD", "USD"}));
    ASSERT_EQ(report.CurrencyMoneyStore.Stores.size(), 3U);  // the old one stays
    EXPECT_EQ(report.CurrencyMoneyStore.Stores[0]->Count(), 1);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD"), report.CurrencyMoneyStore.Stores[2].get());
    EXPECT_EQ(report.CurrencyMoneyStore.Stores[2]->Count(), 0);
    Add("USD", Money("20240103", {}));
    EXPECT_EQ(report.CurrencyMoneyStore.Stores[2]->Count(), 1);
}

TEST_F(CurrencyMoneyStoreTest, IsAsNewAfterClear) {
    Add("USD", Money("20240102", {}));
    report.CurrencyMoneyStore.Clear();
    EXPECT_TRUE(report.CurrencyMoneyStore.Stores.empty());
    EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty());
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD"), nullptr);
    Add("HKD", Money("20240102", {}));
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"HKD"}));
}

}  // namespace
}  // namespace tradebill::currency_money_store_test
