#include "export/store_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/analysed_account.h"
#include "base/text.h"
#include "export/table_list.h"
#include "export/tables_fixture.h"
#include "report/money_store.h"
#include "report/record_fields.h"
#include "report/record_makers.h"
#include "report/records.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"

namespace tradebill::store_tables_test {
namespace {

class StoreTables : public TablesFixture {};

TEST_F(StoreTables, HaveAllNamesOnceWhateverTheirCase) {
    // SQLite takes "lots" and "LOTS" for one.
    std::set<std::string> tables;
    for (const ExportTable& table : Tables()) {
        EXPECT_TRUE(tables.emplace(table.name).second) << table.name;
        std::set<std::string> columns{"user", "account", "kind"};
        for (const ExportColumn& column : table.columns) {
            std::string name(column.name);
            std::ranges::transform(name, name.begin(), [](unsigned char byte) { return std::tolower(byte); });
            EXPECT_TRUE(columns.insert(name).second) << table.name << "." << name;
        }
        EXPECT_TRUE(std::ranges::any_of(table.columns, &ExportColumn::isKey)) << table.name;
    }
}

TEST_F(StoreTables, HaveNoRowsWithoutStatements) {
    for (const ExportTable& table : Tables()) {
        if (table.name == "figures") continue;
        EXPECT_EQ(RowsOf(table.name, {table.columns.front().name}), TextRows()) << table.name;
    }
}

TEST_F(StoreTables, HaveADayForEachMoneyRecord) {
    report.MoneyStore.Add(CopyOf(Money("20240102", {{"QCQY", "1000.00"}, {"KHQY", "1,234.50"}, {"SXF", ""}}, 1.5)),
                          MoneySource::Statement);
    report.MoneyStore.Add(CopyOf(Money("20240103", {{"KHQY", "-12.345"}, {"SXF", "none"}})), MoneySource::Statement);
    EXPECT_EQ(RowsOf("days", {"BILL_DATE", "QCQY", "KHQY", "SXF", "EXCHANGE_RATE"}),
              (TextRows{{"2024-01-02", "1000.0", "1234.5", "-", "1.5"}, {"2024-01-03", "-", "-12.345", "-", "1.0"}}));
}

TEST_F(StoreTables, NameTheCurrencyOfADayByItsStore) {
    const auto add = [&](const char* day, const char* equity, const char* currency) {
        report.CurrencyMoneyStore.Add(CopyOf(Money(day, {{"KHQY", equity}})), currency, MoneySource::Statement);
    };
    add("20240102", "10", "USD");
    add("20240102", "70", "HKD");
    add("20240103", "11", "USD");
    EXPECT_EQ(RowsOf("currency_days", {"CURRENCY", "BILL_DATE", "KHQY"}),
              (TextRows{{"USD", "2024-01-02", "10.0"}, {"USD", "2024-01-03", "11.0"}, {"HKD", "2024-01-02", "70.0"}}));
}

TEST_F(StoreTables, HaveARowForEachTradeInTheOrderOfReading) {
    MatchRecord& first = report.MatchStore.Add();
    FillFields<MatchRecord>(
        first, kMatchFields,
        {{"BILL_DATE", "20240102"}, {"CONTRACT", Gbk("螺纹钢")}, {"MATCH_PRICE", "3820"}, {"MATCHNO", "00067777"}});
    report.MatchStore.Add() = first;
    EXPECT_EQ(
        RowsOf("trades", {"BILL_DATE", "CONTRACT", "MATCH_PRICE", "MATCHNO"}),
        (TextRows{{"2024-01-02", "螺纹钢", "3820.0", "00067777"}, {"2024-01-02", "螺纹钢", "3820.0", "00067777"}}));
}

TEST_F(StoreTables, HaveARowForEachPositionAndEachSum) {
    report.PingDetailStore.Add() = Closed({{"BILL_DATE", "20240102"}, {"OPEN_DATE", "20231229"}, {"MATCH_VOL", "3"}});
    report.OpiDetailStore.Add() = Open({{"BILL_DATE", "20240103"}, {"POSITION_VOL", "2"}, {"FLOATPL", "-20.00"}});
    report.OpiSumStore.Add() = OpenSum({{"BILL_DATE", "20240104"}, {"DEPOSIT", "8825.60"}, {"BID", Gbk("买")}});
    EXPECT_EQ(RowsOf("closed", {"BILL_DATE", "OPEN_DATE", "MATCH_VOL"}),
              (TextRows{{"2024-01-02", "2023-12-29", "3.0"}}));
    EXPECT_EQ(RowsOf("positions", {"BILL_DATE", "POSITION_VOL", "FLOATPL"}),
              (TextRows{{"2024-01-03", "2.0", "-20.0"}}));
    EXPECT_EQ(RowsOf("position_sums", {"BILL_DATE", "DEPOSIT", "BID"}), (TextRows{{"2024-01-04", "8825.6", "买"}}));
}

// One row of rebar at 10 a point: 2 lots bought at 4000 on the 2nd and sold at 4010 on the 5th. The product's fees
// are 3.00 for 3 lots on the 2nd and 8.00 for 2 lots on the 5th: 1 + 4 a lot.
TEST_F(StoreTables, SayWhatAClosedPositionCameTo) {
    CListedProducts products;
    products.units = {{"rb2405", 10}};
    products.codes = {{"rb", "RB"}};
    report.Products = &products;
    report.Request.StatementFormat = 2;
    const auto trade = [&](const char* day, const char* contract, const char* lots, const char* fee) {
        FillFields<MatchRecord>(report.MatchStore.Add(), kMatchFields,
                                {{"BILL_DATE", day}, {"CONTRACT", contract}, {"MATCH_VOL", lots}, {"POUNDAGE", fee}});
    };
    trade("20240102", "rb2405", "2", "2.00");
    trade("20240102", "rb2410", "1", "1.00");
    trade("20240105", "rb2405", "2", "8.00");
    report.PingDetailStore.Add() = Closed({{"BILL_DATE", "20240105"},
                                           {"CONTRACT", "rb2405"},
                                           {"BID", Gbk("买")},
                                           {"MATCH_VOL", "2"},
                                           {"OPEN_DATE", "20240102"},
                                           {"OPEN_PRICE", "4000"},
                                           {"MATCH_PRICE", "4010"}});
    report.PingDetailStore.Add() = Closed({{"BILL_DATE", "20240105"}, {"CONTRACT", "rb2410"}, {"MATCH_VOL", "1"}});
    EXPECT_EQ(
        RowsOf("closed", {"product", "productName", "fullContract", "side", "pl", "holdingDays", "fees"}),
        (TextRows{{"RB", "rb", "rb2405", "long", "200.0", "3", "10.0"}, {"RB", "rb", "rb2410", "-", "-", "-", "-"}}));
}

TEST_F(StoreTables, SayUnderWhatTradesAndPositionsAreCounted) {
    report.Request.StatementFormat = 1;  // product and month stand apart
    FillFields<MatchRecord>(report.MatchStore.Add(), kMatchFields, {{"CONTRACT", "m"}, {"DELIVERY", "2405"}});
    report.OpiDetailStore.Add() = Open({{"CONTRACT", "m2405-C-3200"}});
    report.OpiSumStore.Add() = OpenSum({{"CONTRACT", Gbk("豆粕")}, {"DELIVERY", "2405"}});
    const std::vector<std::string_view> columns{"product", "productName", "fullContract"};
    EXPECT_EQ(RowsOf("trades", columns), (TextRows{{"m", "-", "m2405"}}));
    EXPECT_EQ(RowsOf("positions", columns), (TextRows{{"m", "-", "m2405-C-3200"}}));
    EXPECT_EQ(RowsOf("position_sums", columns), (TextRows{{"豆粕", "-", "豆粕2405"}}));
}

TEST_F(StoreTables, HaveARowForEachDepositExerciseAndDelivery) {
    SideRecords& side = report.SideRecords;
    side.Cash.push_back({.BILL_DATE = "20240102",
                         .CASH_DATE = "20240101",
                         .CASH_TYPE = Gbk("银期转账"),
                         .CASH_IN = "1,000.00",
                         .CASH_OUT = "--"});
    side.Exercises.push_back({.BILL_DATE = "20240103", .CONTRACT = "i2405-C-800", .EXERCISE_PL = "-20.50"});
    side.Deliveries.push_back({.BILL_DATE = "20240104", .CONTRACT = "2405", .DELIVERED_VOL = "3"});
    EXPECT_EQ(RowsOf("cash", {"BILL_DATE", "CASH_DATE", "CASH_TYPE", "CASH_IN", "CASH_OUT", "NOTE"}),
              (TextRows{{"2024-01-02", "2024-01-01", "银期转账", "1000.0", "-", "-"}}));
    EXPECT_EQ(RowsOf("exercises", {"BILL_DATE", "EXERCISE_DATE", "CONTRACT", "EXERCISE_PL", "EXERCISE_FEE"}),
              (TextRows{{"2024-01-03", "-", "i2405-C-800", "-20.5", "-"}}));
    EXPECT_EQ(RowsOf("deliveries", {"BILL_DATE", "CONTRACT", "DELIVERED_VOL", "DELIVERY_PL"}),
              (TextRows{{"2024-01-04", "2405", "3.0", "-"}}));
}

// The foreign family's rows are in a store of their own, and name the closing trade's side.
TEST_F(StoreTables, HaveARowForEachClosedPositionOfAForeignAccount) {
    report.Request.StatementKind = kForeignKind;
    report.ForeignClosedStore.Add() = Closed({{"BILL_DATE", "20240102"},
                                              {"CONTRACT", "NK2403"},
                                              {"BID", Gbk("卖")},
                                              {"MATCH_VOL", "3"},
                                              {"OFFSETPL", "-510000.00"},
                                              {"CURRENCY", "JPY"}});
    report.ForeignClosedStore.Add() = Closed({{"BILL_DATE", "20240103"}, {"CONTRACT", "S2403"}, {"BID", Gbk("买")}});
    report.ForeignClosedStore.Add() = Closed({{"BILL_DATE", "20240104"}, {"CONTRACT", "MHI2403"}});
    EXPECT_EQ(RowsOf("closed", {"BILL_DATE", "CONTRACT", "BID", "side", "tradeSide", "MATCH_VOL", "OFFSETPL",
                                "CURRENCY", "OPEN_PRICE"}),
              (TextRows{{"2024-01-02", "NK2403", "卖", "long", "sell", "3.0", "-510000.0", "JPY", "-"},
                        {"2024-01-03", "S2403", "买", "short", "buy", "-", "-", "-", "-"},
                        {"2024-01-04", "MHI2403", "-", "-", "-", "-", "-", "-", "-"}}));
}

TEST_F(StoreTables, TellBothSidesOfAClosedPosition) {
    report.PingDetailStore.Add() = Closed({{"BID", Gbk("买")}});
    report.PingDetailStore.Add() = Closed({{"BID", Gbk(" 卖出")}});
    EXPECT_EQ(RowsOf("closed", {"side", "tradeSide"}), (TextRows{{"long", "sell"}, {"short", "buy"}}));
}

}  // namespace
}  // namespace tradebill::store_tables_test
