#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "readers/template_fixture.h"

namespace tradebill::template_tables_test {
namespace {

// clang-format off
constexpr KeyedColumn kTradeKeys[] = {
    {"MATCH_DATE", 13, "MATCH_DATE"},   {"EXCH_NAME", 11, "EXCH_NAME"}, {"CONTRACT", 9, "CONTRACT"},
    {"DELIVERY", 7, "DELIVERY"},        {"HEDGE", 5, "HEDGE"},          {"BID", 3, "BID"},
    {"OFFSET", 1, "OFFSET"},            {"MATCH_PRICE", 0, "MATCH_PRICE"}, {"MATCH_VOL", 2, "MATCH_VOL"},
    {"TURNOVER", 4, "TURNOVER"},        {"POUNDAGE", 6, "POUNDAGE"},    {"OFFSETPL", 8, "OFFSETPL"},
    {"ROYALTY", 10, "ROYALTY"},         {"MATCHNO", 12, "MATCHNO"},
};
constexpr KeyedColumn kClosedKeys[] = {
    {"MATCH_DATE", 12, "MATCH_DATE"},   {"EXCH_NAME", 10, "EXCH_NAME"}, {"CONTRACT", 8, "CONTRACT"},
    {"DELIVERY", 6, "DELIVERY"},        {"MATCH_PRICE", 4, "MATCH_PRICE"}, {"MATCH_VOL", 2, "MATCH_VOL"},
    {"OPEN_DATE", 0, "OPEN_DATE"},      {"OPEN_PRICE", 1, "OPEN_PRICE"}, {"SETTLE_PRICE", 3, "SETTLE_PRICE"},
    {"POUNDAGE", 5, "POUNDAGE"},        {"HEDGE", 7, "HEDGE"},          {"OFFSETPL", 9, "OFFSETPL"},
};
constexpr KeyedColumn kOpenKeys[] = {
    {"EXCH_NAME", 12, "EXCH_NAME"},     {"CONTRACT", 10, "CONTRACT"},   {"DELIVERY", 8, "DELIVERY"},
    {"OPEN_DATE", 6, "OPEN_DATE"},      {"HEDGE", 4, "HEDGE"},          {"BID", 2, "BID"},
    {"POSITION_VOL", 0, "POSITION_VOL"}, {"OPEN_PRICE", 1, "OPEN_PRICE"}, {"YSETTLE_PRICE", 3, "YSETTLE_PRICE"},
    {"SETTLE_PRICE", 5, "SETTLE_PRICE"}, {"FLOATPL", 7, "FLOATPL"},     {"DSYK", 9, "DSYK"},
    {"DEPOSIT", 11, "DEPOSIT"},
};
// clang-format on

constexpr std::string_view kFarColumns[] = {"-1",         "14",          "-2147483648",         "2147483647",
                                            "4294967299", "-4294967293", "99999999999999999999"};

class TemplateTables : public TemplateFixture {
protected:
    /// All rows of the three tables, after reading the table `section` with `keys`.
    std::vector<Fields> RowsOf(std::string_view section, std::string_view keys, const std::vector<std::string>& rows) {
        BeginWith(1, TableTemplate(section, keys));
        EXPECT_TRUE(ReadRows(rows));
        std::vector<Fields> all = FieldsOfAll(report.MatchStore.Rows);
        for (const Fields& row : FieldsOfAll(report.PingDetailStore.Rows)) all.push_back(row);
        for (const Fields& row : FieldsOfAll(report.OpiDetailStore.Rows)) all.push_back(row);
        return all;
    }

    /// Reads a row of 14 cells by each key alone, and by the key with columns that the row doesn't have.
    template <std::size_t N>
    void ExpectEachKeyAlone(std::string_view section, const KeyedColumn (&columns)[N], std::string_view always,
                            const Fields& alwaysFields) {
        for (const KeyedColumn& column : columns) {
            for (const std::string& cell : {std::to_string(column.column), std::string("0"), std::string("13")}) {
                Fields expected = alwaysFields;
                expected[std::string(column.field)] = "v" + cell;
                const std::string key = std::string(column.key) + "=" + cell + "\r\n" + std::string(always);
                EXPECT_EQ(RowsOf(section, key, {Cells(14)}), OneRecord(expected)) << key;
            }
            for (const std::string_view cell : kFarColumns) {
                const std::string key =
                    std::string(column.key) + "=" + std::string(cell) + "\r\n" + std::string(always);
                EXPECT_EQ(RowsOf(section, key, {Cells(14)}), OneRecord(alwaysFields)) << key;
            }
        }
    }
};

TEST_F(TemplateTables, FillATradeFromItsColumns) {
    EXPECT_EQ(RowsOf("MATCH_RECORD", KeysOf(kTradeKeys), {Cells(14)}), OneRecord({{"MATCH_DATE", "v13"},
                                                                                  {"EXCH_NAME", "v11"},
                                                                                  {"CONTRACT", "v9"},
                                                                                  {"DELIVERY", "v7"},
                                                                                  {"HEDGE", "v5"},
                                                                                  {"BID", "v3"},
                                                                                  {"OFFSET", "v1"},
                                                                                  {"MATCH_PRICE", "v0"},
                                                                                  {"MATCH_VOL", "v2"},
                                                                                  {"TURNOVER", "v4"},
                                                                                  {"POUNDAGE", "v6"},
                                                                                  {"OFFSETPL", "v8"},
                                                                                  {"ROYALTY", "v10"},
                                                                                  {"MATCHNO", "v12"}}));
    ExpectEachKeyAlone("MATCH_RECORD", kTradeKeys, "", {});
}

TEST_F(TemplateTables, FillAClosedPositionFromItsColumns) {
    EXPECT_EQ(RowsOf("PING_DETAIL", KeysOf(kClosedKeys) + "BID=11\r\n", {Cells(14)}), OneRecord({{"MATCH_DATE", "v12"},
                                                                                                 {"EXCH_NAME", "v10"},
                                                                                                 {"CONTRACT", "v8"},
                                                                                                 {"DELIVERY", "v6"},
                                                                                                 {"BID", "买"},
                                                                                                 {"MATCH_PRICE", "v4"},
                                                                                                 {"MATCH_VOL", "v2"},
                                                                                                 {"OPEN_DATE", "v0"},
                                                                                                 {"OPEN_PRICE", "v1"},
                                                                                                 {"SETTLE_PRICE", "v3"},
                                                                                                 {"POUNDAGE", "v5"},
                                                                                                 {"HEDGE", "v7"},
                                                                                                 {"OFFSETPL", "v9"}}));
    ExpectEachKeyAlone("PING_DETAIL", kClosedKeys, "BID=11\r\n", {{"BID", "买"}});
}

TEST_F(TemplateTables, FillAnOpenPositionFromItsColumns) {
    EXPECT_EQ(RowsOf("OPI_DETAIL", KeysOf(kOpenKeys), {Cells(14)}), OneRecord({{"EXCH_NAME", "v12"},
                                                                               {"CONTRACT", "v10"},
                                                                               {"DELIVERY", "v8"},
                                                                               {"OPEN_DATE", "v6"},
                                                                               {"HEDGE", "v4"},
                                                                               {"BID", "v2"},
                                                                               {"POSITION_VOL", "v0"},
                                                                               {"OPEN_PRICE", "v1"},
                                                                               {"YSETTLE_PRICE", "v3"},
                                                                               {"SETTLE_PRICE", "v5"},
                                                                               {"FLOATPL", "v7"},
                                                                               {"DSYK", "v9"},
                                                                               {"DEPOSIT", "v11"}}));
    ExpectEachKeyAlone("OPI_DETAIL", kOpenKeys, "", {});
}

TEST_F(TemplateTables, FillNothingFromOtherKeys) {
    const std::string keys =
        "BILL_DATE=1\r\nCURRENCY=2\r\nSETTLE_PRICE=3\r\nOPEN_DATE=4\r\nBID_VOL=5\r\nCONTRACT_NAME=6\r\n";
    EXPECT_EQ(RowsOf("MATCH_RECORD", keys, {Cells(14)}), OneRecord({}));
    EXPECT_EQ(RowsOf("PING_DETAIL", "BID=0\r\nTURNOVER=1\r\nROYALTY=2\r\nCURRENCY=3\r\nOFFSET=4\r\n", {Cells(14)}),
              OneRecord({{"BID", "买"}}));
    EXPECT_EQ(RowsOf("OPI_DETAIL", "MATCH_DATE=1\r\nBID_VOL=2\r\nBID_PRICE=3\r\nASK_VOL=4\r\nPOSITION_PRICE=5\r\n",
                     {Numbers(14)}),
              OneRecord({}));
}

TEST_F(TemplateTables, NeedElevenColumns) {
    for (const std::string_view section : {"MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL"}) {
        EXPECT_EQ(RowsOf(section, "CONTRACT=0\r\nBID=1\r\n", {Cells(10)}).size(), 0U) << section;
        EXPECT_EQ(RowsOf(section, "CONTRACT=0\r\nBID=1\r\n", {Cells(11)}).size(), 1U) << section;
        EXPECT_EQ(RowsOf(section, "CONTRACT=0\r\nBID=1\r\n", {"短|1", Cells(11), Cells(10), Cells(30)}).size(), 2U)
            << section;
    }
}

TEST_F(TemplateTables, FillAFieldOnlyFromRowsThatHaveItsColumn) {
    BeginWith(1, TableTemplate("MATCH_RECORD", "MATCHNO=11\r\nROYALTY=12\r\nBID=10\r\n"));
    EXPECT_TRUE(ReadRows({Cells(11), Cells(12), Cells(13)}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BID"), (Texts{"v10", "v10", "v10"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "MATCHNO"), (Texts{"", "v11", "v11"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "ROYALTY"), (Texts{"", "", "v12"}));
}

TEST_F(TemplateTables, MoveCellsLeftOverBlankOnes) {
    EXPECT_EQ(RowsOf("MATCH_RECORD", "CONTRACT=3\r\n", {"|a| |b||c|d|e|f|g|h|i|j|k|"}), OneRecord({{"CONTRACT", "d"}}));
}

TEST_F(TemplateTables, CutTextsToTheirFields) {
    const std::string cell = std::string(79, 'x') + "yz";
    const std::string row = cell + "|1|2|3|4|5|6|7|8|9|10";
    EXPECT_EQ(RowsOf("MATCH_RECORD", "CONTRACT=0\r\nHEDGE=0\r\nMATCHNO=0\r\n", {row}),
              OneRecord({{"CONTRACT", cell.substr(0, 80)}, {"HEDGE", "xxxxxxxx"}, {"MATCHNO", "xxxxxxxxxxxxxxx"}}));
}

TEST_F(TemplateTables, KeepTheSideOfATradeAsItIsSpelled) {
    BeginWith(1, TableTemplate("MATCH_RECORD", "BID=1\r\n"));
    EXPECT_TRUE(ReadRows({"0|买|2|3|4|5|6|7|8|9|10", "0|买入|2|3|4|5|6|7|8|9|10", "0|S|2|3|4|5|6|7|8|9|10"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BID"), (Texts{"买", "买入", "S"}));
    BeginWith(1, TableTemplate("OPI_DETAIL", "BID=1\r\n"));
    EXPECT_TRUE(ReadRows({"0|卖出|2|3|4|5|6|7|8|9|10"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "BID"), (Texts{"卖出"}));
}

TEST_F(TemplateTables, InvertTheSideOfAClosedPosition) {
    BeginWith(1, TableTemplate("PING_DETAIL", "BID=1\r\n"));
    EXPECT_TRUE(ReadRows({"0|买|2|3|4|5|6|7|8|9|10", "0|卖|2|3|4|5|6|7|8|9|10", "0|买平|2|3|4|5|6|7|8|9|10",
                          "0|B|2|3|4|5|6|7|8|9|10", "0|卖买|2|3|4|5|6|7|8|9|10"}));
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"卖", "买", "卖", "买", "卖"}));
}

TEST_F(TemplateTables, FoldClosedPositionsIntoTheirTally) {
    RowsOf("PING_DETAIL", "CONTRACT=2\r\nDELIVERY=3\r\nBID=1\r\nMATCH_VOL=4\r\nMATCH_PRICE=5\r\nOPEN_PRICE=6\r\n",
           {"0|卖|cu|2405|2|105|100|7|8|9|10", "0|买|cu|2405|1|90|100|7|8|9|10"});
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->LONG_WIN_PL, 10);
    EXPECT_EQ(report.ReportDocument.Offsets.front()->SHORT_WIN_PL, 10);
}

TEST_F(TemplateTables, FeedOpenPositionsToTheDaysUsage) {
    RowsOf("OPI_DETAIL", "CONTRACT=1\r\nBID=2\r\nPOSITION_VOL=3\r\n", {"0|cu|买|4|4|5|6|7|8|9|10"});
    EXPECT_NE(report.TradeStatistics.DayUsages.Find("20240105"), nullptr);
    RowsOf("MATCH_RECORD", "CONTRACT=1\r\nBID=2\r\nMATCH_VOL=3\r\n", {"0|cu|买|4|4|5|6|7|8|9|10"});
    EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240105"), nullptr);
}

TEST_F(TemplateTables, HoldOpenPositionsApartFromSidesByFormat) {
    for (const std::int32_t format : {0, 1, 3}) {
        BeginWith(format, TableTemplate("OPI_DETAIL", "POSITION_VOL=1\r\nBID_VOL=2\r\nASK_VOL=3\r\n"));
        EXPECT_TRUE(ReadRows({Numbers(11)}));
        EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows), OneRecord({{"POSITION_VOL", "11"}})) << format;
        EXPECT_EQ(report.OpiSumStore.Count(), 0) << format;
    }
    for (const std::int32_t format : {2, 6, 201, 4, 5, 7, -1, 200, INT32_MAX}) {
        BeginWith(format, TableTemplate("OPI_DETAIL", "POSITION_VOL=1\r\nBID_VOL=2\r\nASK_VOL=3\r\n"));
        EXPECT_TRUE(ReadRows({Numbers(11)}));
        EXPECT_EQ(report.OpiDetailStore.Count(), 0) << format;
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "POSITION_VOL"), (Texts{"12", "13"})) << format;
    }
}

TEST_F(TemplateTables, AreReadOnlyIfTheirFlagIsSet) {
    const std::string sections[] = {"MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"};
    std::string tables;
    for (const std::string& section : sections) {
        tables += "[" + section + "]\r\n" +
                  Ini({"START_FLAG=明细", "START_OFFSET=2", "END_FLAG=共", "END_OFFSET=0", "DELIMITER=|", "BID=0",
                       "BID_POSITION_VOL=1"});
    }
    for (const std::string& set : sections) {
        std::string flags;
        for (const std::string& section : sections) flags += section + (section == set ? "=1\r\n" : "=0\r\n");
        for (const std::string& dealField : {flags, set + "=1\r\n"}) {
            BeginWith(1, "[DEALFIELD]\r\nMONEY_MODE=9\r\n" + dealField + tables);
            EXPECT_TRUE(ReadRows({Numbers(12)}));
            EXPECT_EQ(report.MatchStore.Count(), set == "MATCH_RECORD" ? 1 : 0) << dealField;
            EXPECT_EQ(report.PingDetailStore.Count(), set == "PING_DETAIL" ? 1 : 0) << dealField;
            EXPECT_EQ(report.OpiDetailStore.Count(), set == "OPI_DETAIL" ? 1 : 0) << dealField;
            EXPECT_EQ(report.OpiSumStore.Count(), set == "OPI_SUM" ? 1 : 0) << dealField;
        }
    }
    BeginWith(1, "[DEALFIELD]\r\nMONEY_MODE=9\r\n" + tables);
    EXPECT_TRUE(ReadRows({Numbers(12)}));
    EXPECT_TRUE(NothingRead());
}

}  // namespace
}  // namespace tradebill::template_tables_test
