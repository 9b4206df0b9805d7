#include "explore/table_columns.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "export/table.h"

namespace tradebill::table_columns_test {
namespace {

constexpr ExportColumn kColumns[] = {
    {"text"}, {"number", ColumnKind::Number}, {"count", ColumnKind::Count}, {"day", ColumnKind::Day}};

std::string JsonOf(const std::vector<std::vector<ExportCell>>& rows) {
    CTableColumns columns(kColumns);
    for (const auto& row : rows) columns.OnRow(row);
    EXPECT_EQ(columns.Rows(), rows.size());
    std::string json;
    columns.WriteJson([&](std::string_view piece) { json += piece; });
    return json;
}

TEST(TableColumns, HaveAPlaceForEachRow) {
    EXPECT_EQ(JsonOf({{Utf8Cell{"b"}, 1.5, std::int64_t{3}, DayCell{"20240103"}},
                      {Utf8Cell{"a"}, -2.0, std::int64_t{-4}, DayCell{"2024-01-02"}},
                      {Utf8Cell{"b"}, 0.1, std::int64_t{0}, DayCell{"2024-01-03"}}}),
              R"({"rows":3,"columns":[)"
              R"({"name":"text","kind":"text","texts":["b","a"],"codes":[0,1,0]},)"
              R"({"name":"number","kind":"number","values":[1.5,-2,0.1]},)"
              R"({"name":"count","kind":"count","values":[3,-4,0]},)"
              R"({"name":"day","kind":"day","texts":["20240103","20240102"],"codes":[0,1,0]}]})");
}

TEST(TableColumns, HaveNothingWhereARowHasNothing) {
    const std::vector<ExportCell> nothing = {
        Utf8Cell{""}, std::numeric_limits<double>::infinity(), {}, DayCell{"no day"}};
    EXPECT_EQ(JsonOf({nothing, {{}, {}, {}, {}}}), R"({"rows":2,"columns":[)"
                                                   R"({"name":"text","kind":"text","texts":[],"codes":[-1,-1]},)"
                                                   R"({"name":"number","kind":"number","values":[null,null]},)"
                                                   R"({"name":"count","kind":"count","values":[null,null]},)"
                                                   R"({"name":"day","kind":"day","texts":[],"codes":[-1,-1]}]})");
}

TEST(TableColumns, AreEmptyWithoutRows) {
    EXPECT_EQ(nlohmann::json::parse(JsonOf({}))["columns"][1]["values"], nlohmann::json::array());
}

TEST(TableColumns, DecodeAndQuoteTexts) {
    const auto json = nlohmann::json::parse(JsonOf({{GbkCell{"\xC2\xF2"}, {}, {}, {}},  // 买
                                                    {GbkCell{"a\"\\\n\x01</script>"}, {}, {}, {}},
                                                    {GbkCell{"\xFF"}, {}, {}, {}}}));
    EXPECT_EQ(json["columns"][0]["texts"], (std::vector<std::string>{"买", "a\"\\\n\x01</script>", "\xEF\xBF\xBD"}));
}

TEST(TableColumns, GiveBackTheSameNumber) {
    const std::vector<double> numbers = {
        0.1 + 0.2, 1e300, -5e-324, 1.0 / 3, 123456789012345.67, std::numeric_limits<double>::max()};
    std::vector<std::vector<ExportCell>> rows;
    for (const double number : numbers) rows.push_back({{}, number, std::numeric_limits<std::int64_t>::max(), {}});
    const auto json = nlohmann::json::parse(JsonOf(rows));
    EXPECT_EQ(json["columns"][1]["values"].get<std::vector<double>>(), numbers);
    EXPECT_EQ(json["columns"][2]["values"][0].get<std::int64_t>(), std::numeric_limits<std::int64_t>::max());
}

}  // namespace
}  // namespace tradebill::table_columns_test
