#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <string_view>

#include "export/table.h"
#include "export/table_list.h"
#include "hosts/column_arrays.h"
#include "hosts/host_fixture.h"
#include "hosts/tradebill.h"

namespace tradebill::table_exports_test {
namespace {

using Json = nlohmann::json;

class TableExports : public HostFixture {
protected:
    TableExports() { EXPECT_EQ(host_.Read(), TRADEBILL_DONE) << host_.Error(); }

    [[nodiscard]] std::unique_ptr<TradeBillTable, CloseTable> Open(const char* name) const {
        TradeBillTable* table = nullptr;
        EXPECT_EQ(TradeBillOpenTable(host_.Handle(), name, &table), TRADEBILL_DONE) << name;
        return std::unique_ptr<TradeBillTable, CloseTable>(table);
    }
};

std::int32_t TableCalled(std::string_view name) {
    for (std::int32_t table = 0; table < TradeBillTableCount(); ++table) {
        if (name == TradeBillTableName(table)) return table;
    }
    return -1;
}

std::int32_t ColumnCalled(std::string_view table, std::string_view name) {
    const std::int32_t place = TableCalled(table);
    for (std::int32_t column = 0; column < TradeBillColumnCount(place); ++column) {
        if (name == TradeBillColumnName(place, column)) return column;
    }
    return -1;
}

TEST(TableNames, AreThoseOfAllExports) {
    ASSERT_EQ(TradeBillTableCount(), static_cast<std::int32_t>(Tables().size()));
    std::set<std::string> names;
    for (std::int32_t table = 0; table < TradeBillTableCount(); ++table) {
        EXPECT_TRUE(names.insert(TradeBillTableName(table)).second);
        EXPECT_GT(TradeBillColumnCount(table), 0);
        std::set<std::string> columns;
        for (std::int32_t column = 0; column < TradeBillColumnCount(table); ++column) {
            EXPECT_TRUE(columns.insert(TradeBillColumnName(table, column)).second);
            EXPECT_NE(TradeBillColumnKindOf(table, column), TRADEBILL_NO_COLUMN);
        }
    }
    EXPECT_TRUE(names.contains("days"));
    EXPECT_TRUE(names.contains("trades"));
    EXPECT_TRUE(names.contains("findings"));
}

TEST(TableNames, EndBeyondTheLast) {
    for (const std::int32_t table : {-1, TradeBillTableCount()}) {
        EXPECT_EQ(TradeBillTableName(table), nullptr);
        EXPECT_EQ(TradeBillColumnCount(table), 0);
        EXPECT_EQ(TradeBillColumnName(table, 0), nullptr);
        EXPECT_EQ(TradeBillColumnKindOf(table, 0), TRADEBILL_NO_COLUMN);
    }
    for (const std::int32_t column : {-1, TradeBillColumnCount(0)}) {
        EXPECT_EQ(TradeBillColumnName(0, column), nullptr);
        EXPECT_EQ(TradeBillColumnKindOf(0, column), TRADEBILL_NO_COLUMN);
    }
}

TEST_F(TableExports, HasTheRowsOfStatements) {
    const auto trades = Open("trades");
    ASSERT_EQ(TradeBillRowCount(trades.get()), 4);
    const auto* const days = TradeBillTextsUtf8(trades.get(), ColumnCalled("trades", "BILL_DATE"));
    ASSERT_NE(days, nullptr);
    EXPECT_STREQ(days[0], "2024-01-02");
    EXPECT_STREQ(days[3], "2024-01-03");
    const Json json = Json::parse(host_.Json());
    for (std::int32_t column = 0; column < TradeBillColumnCount(TableCalled("trades")); ++column) {
        const std::string name = TradeBillColumnName(TableCalled("trades"), column);
        const auto* const texts = TradeBillTextsUtf8(trades.get(), column);
        const bool isText = TradeBillColumnKindOf(TableCalled("trades"), column) == TRADEBILL_TEXT;
        if (!isText || !json["matches"][1].contains(name)) continue;
        ASSERT_NE(texts, nullptr) << name;
        const std::string wanted = json["matches"][1][name].get<std::string>();
        EXPECT_EQ(texts[1] == nullptr ? "" : std::string(texts[1]), wanted) << name;
    }
    EXPECT_EQ(TradeBillNumbers(trades.get(), ColumnCalled("trades", "BILL_DATE")), nullptr);
    EXPECT_EQ(TradeBillWholeNumbers(trades.get(), ColumnCalled("trades", "BILL_DATE")), nullptr);
}

TEST_F(TableExports, HasNumbers) {
    const auto days = Open("days");
    ASSERT_EQ(TradeBillRowCount(days.get()), 2);
    const auto* const equity = TradeBillNumbers(days.get(), ColumnCalled("days", "KHQY"));
    ASSERT_NE(equity, nullptr);
    EXPECT_EQ(equity[0], 101500.0);
    EXPECT_EQ(equity[1], 101500.0);
    EXPECT_EQ(TradeBillTextsUtf8(days.get(), ColumnCalled("days", "KHQY")), nullptr);
    const auto units = Open("units");
    ASSERT_EQ(TradeBillRowCount(units.get()), 2);
    const auto* const numbers = TradeBillWholeNumbers(units.get(), ColumnCalled("units", "unit"));
    ASSERT_NE(numbers, nullptr);
    EXPECT_EQ(numbers[0], 100);  // i: 910.0 * 1 lot * 100 = 91000.00
    EXPECT_EQ(numbers[1], 10);   // rb: 4050 * 1 lot * 10 = 40500.00
}

TEST_F(TableExports, OutlivesTheReport) {
    const auto days = Open("days");
    const auto* const texts = TradeBillTextsUtf8(days.get(), 0);
    host_.request.To = "2024-01-02";
    ASSERT_EQ(host_.Read(), TRADEBILL_DONE);
    EXPECT_EQ(TradeBillRowCount(days.get()), 2);
    EXPECT_STREQ(texts[1], "2024-01-03");
    EXPECT_EQ(TradeBillRowCount(Open("days").get()), 1);
}

TEST_F(TableExports, HasNoneOfAnotherName) {
    TradeBillTable* table = nullptr;
    EXPECT_EQ(TradeBillOpenTable(host_.Handle(), "day", &table), TRADEBILL_NO_SUCH_NAME);
    EXPECT_EQ(host_.Error(), "no table, column or chart is called so");
    EXPECT_EQ(table, nullptr);
    EXPECT_EQ(TradeBillOpenTable(host_.Handle(), nullptr, &table), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillOpenTable(host_.Handle(), "days", nullptr), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillOpenTable(nullptr, "days", &table), TRADEBILL_WRONG_ARGUMENT);
    TradeBillCloseTable(nullptr);
    EXPECT_EQ(TradeBillRowCount(nullptr), 0);
    EXPECT_EQ(TradeBillNumbers(nullptr, 0), nullptr);
    EXPECT_EQ(TradeBillWholeNumbers(nullptr, 0), nullptr);
    EXPECT_EQ(TradeBillTextsUtf8(nullptr, 0), nullptr);
    const auto days = Open("days");
    for (const std::int32_t column : {-1, TradeBillColumnCount(TableCalled("days"))}) {
        EXPECT_EQ(TradeBillTextsUtf8(days.get(), column), nullptr);
        EXPECT_EQ(TradeBillNumbers(days.get(), column), nullptr);
        EXPECT_EQ(TradeBillWholeNumbers(days.get(), column), nullptr);
    }
}

TEST(ColumnArrays, KeepsWhatEachKindHasForNothing) {
    constexpr ExportColumn kColumns[] = {{"text", ColumnKind::Text},
                                         {"number", ColumnKind::Number},
                                         {"count", ColumnKind::Count},
                                         {"day", ColumnKind::Day}};
    CColumnArrays columns(kColumns);
    const ExportCell full[] = {GbkCell{"\xD6\xD0"}, std::int64_t{3}, std::int64_t{-7}, DayCell{"20240229"}};
    const ExportCell empty[] = {{}, {}, {}, DayCell{"20230229"}};
    columns.OnRow(full);
    columns.OnRow(empty);
    columns.Finish();
    EXPECT_EQ(columns.RowCount(), 2);
    EXPECT_STREQ(columns.Texts(0)[0], "中");
    EXPECT_EQ(columns.Texts(0)[1], nullptr);
    EXPECT_EQ(columns.Numbers(1)[0], 3.0);
    EXPECT_TRUE(std::isnan(columns.Numbers(1)[1]));
    EXPECT_EQ(columns.WholeNumbers(2)[0], -7);
    EXPECT_EQ(columns.WholeNumbers(2)[1], std::numeric_limits<std::int64_t>::min());
    EXPECT_STREQ(columns.Texts(3)[0], "2024-02-29");
    EXPECT_EQ(columns.Texts(3)[1], nullptr);
}

TEST(ColumnArrays, HasNothingWithoutRows) {
    constexpr ExportColumn kColumns[] = {{"text", ColumnKind::Text}};
    CColumnArrays columns(kColumns);
    columns.Finish();
    EXPECT_EQ(columns.RowCount(), 0);
    EXPECT_EQ(columns.Texts(0), nullptr);
}

}  // namespace
}  // namespace tradebill::table_exports_test
