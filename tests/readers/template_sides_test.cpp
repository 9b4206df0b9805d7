#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "readers/template_fixture.h"

namespace tradebill::template_sides_test {
namespace {

class TemplateSides : public TemplateFixture {
protected:
    /// The records of open positions with both sides in one row.
    std::vector<Fields> DetailOf(std::string_view keys, const std::vector<std::string>& rows) {
        BeginWith(2, TableTemplate("OPI_DETAIL", keys));
        EXPECT_TRUE(ReadRows(rows));
        return FieldsOfAll(report.OpiSumStore.Rows);
    }

    /// The records of a summary.
    std::vector<Fields> SummaryOf(std::string_view keys, const std::vector<std::string>& rows) {
        BeginWith(1, TableTemplate("OPI_SUM", keys));
        EXPECT_TRUE(ReadRows(rows));
        return FieldsOfAll(report.OpiSumStore.Rows);
    }
};

TEST_F(TemplateSides, FillBothRecordsOfADetailRow) {
    EXPECT_EQ(DetailOf(Ini({"CONTRACT=11", "BID_VOL=9", "BID_PRICE=7", "HEDGE=5", "ASK_VOL=3", "ASK_PRICE=1",
                            "YSETTLE_PRICE=0", "SETTLE_PRICE=2", "DSYK=4", "DEPOSIT=6"}),
                       {Numbers(12)}),
              (std::vector<Fields>{Record({{"BID", "买"},
                                           {"CONTRACT", "21"},
                                           {"POSITION_VOL", "19"},
                                           {"POSITION_PRICE", "17"},
                                           {"YSETTLE_PRICE", "10"},
                                           {"SETTLE_PRICE", "12"},
                                           {"DSYK", "14"},
                                           {"DEPOSIT", "16"},
                                           {"HEDGE", "15"}}),
                                   Record({{"BID", "卖"},
                                           {"CONTRACT", "21"},
                                           {"POSITION_VOL", "13"},
                                           {"POSITION_PRICE", "11"},
                                           {"YSETTLE_PRICE", "10"},
                                           {"SETTLE_PRICE", "12"},
                                           {"DSYK", "14"},
                                           {"DEPOSIT", "16"},
                                           {"HEDGE", "15"}})}));
}

TEST_F(TemplateSides, FillBothRecordsOfASummaryRow) {
    EXPECT_EQ(
        SummaryOf(Ini({"EXCH_NAME=13", "CONTRACT=11", "DELIVERY=9", "HEDGE=7", "BID_POSITION_VOL=5", "BID_AVPRICE=3",
                       "ASK_POSITION_VOL=1", "ASK_AVPRICE=0", "YSETTLE_PRICE=2", "SETTLE_PRICE=4", "DSYK=6",
                       "DEPOSIT=8", "BID=10", "POSITION_VOL=10", "POSITION_PRICE=10"}),
                  {Numbers(14)}),
        (std::vector<Fields>{Record({{"BID", "买"},
                                     {"EXCH_NAME", "23"},
                                     {"CONTRACT", "21"},
                                     {"DELIVERY", "19"},
                                     {"BID_POSITION_VOL", "15"},
                                     {"POSITION_PRICE", "13"},
                                     {"YSETTLE_PRICE", "12"},
                                     {"SETTLE_PRICE", "14"},
                                     {"DSYK", "16"},
                                     {"DEPOSIT", "18"},
                                     {"HEDGE", "17"}}),
                             Record({{"BID", "卖"},
                                     {"EXCH_NAME", "23"},
                                     {"CONTRACT", "21"},
                                     {"DELIVERY", "19"},
                                     {"ASK_POSITION_VOL", "11"},
                                     {"POSITION_PRICE", "10"},
                                     {"YSETTLE_PRICE", "12"},
                                     {"SETTLE_PRICE", "14"},
                                     {"DSYK", "16"},
                                     {"DEPOSIT", "18"},
                                     {"HEDGE", "17"}})}));
}

TEST_F(TemplateSides, FillOneFieldOfADetailRowByEachKey) {
    const struct {
        std::string_view key;
        std::string bought;
        std::string sold;
    } cases[] = {
        {"CONTRACT", "CONTRACT", "CONTRACT"},
        {"BID_PRICE", "POSITION_PRICE", ""},
        {"ASK_PRICE", "", "POSITION_PRICE"},
        {"YSETTLE_PRICE", "YSETTLE_PRICE", "YSETTLE_PRICE"},
        {"SETTLE_PRICE", "SETTLE_PRICE", "SETTLE_PRICE"},
        {"DSYK", "DSYK", "DSYK"},
        {"DEPOSIT", "DEPOSIT", "DEPOSIT"},
        {"HEDGE", "HEDGE", "HEDGE"},
        {"EXCH_NAME", "", ""},
        {"DELIVERY", "", ""},
        {"BID", "", ""},
        {"POSITION_VOL", "", ""},
        {"BID_AVPRICE", "", ""},
        {"BID_POSITION_VOL", "", ""},
        {"ASK_POSITION_VOL", "", ""},
    };
    const std::string lots = "BID_VOL=9\r\nASK_VOL=3\r\n";
    const Fields bought = Record({{"BID", "买"}, {"POSITION_VOL", "19"}});
    const Fields sold = Record({{"BID", "卖"}, {"POSITION_VOL", "13"}});
    for (const auto& row : cases) {
        const std::string key(row.key);
        for (const int column : {0, 5, 11}) {
            Fields expected[] = {bought, sold};
            if (!row.bought.empty()) expected[0][row.bought] = std::to_string(column + 10);
            if (!row.sold.empty()) expected[1][row.sold] = std::to_string(column + 10);
            EXPECT_EQ(DetailOf(key + "=" + std::to_string(column) + "\r\n" + lots, {Numbers(12)}),
                      (std::vector<Fields>{expected[0], expected[1]}))
                << key << column;
        }
        for (const std::string_view far :
             {"-1", "12", "-2147483648", "2147483647", "4294967299", "99999999999999999999"}) {
            EXPECT_EQ(DetailOf(key + "=" + std::string(far) + "\r\n" + lots, {Numbers(12)}),
                      (std::vector<Fields>{bought, sold}))
                << key << far;
        }
    }
}

TEST_F(TemplateSides, FillOneFieldOfASummaryRowByEachKey) {
    const struct {
        std::string_view key;
        std::string bought;
        std::string sold;
    } cases[] = {
        {"EXCH_NAME", "EXCH_NAME", "EXCH_NAME"},
        {"CONTRACT", "CONTRACT", "CONTRACT"},
        {"DELIVERY", "DELIVERY", "DELIVERY"},
        {"HEDGE", "HEDGE", "HEDGE"},
        {"BID_AVPRICE", "POSITION_PRICE", ""},
        {"ASK_AVPRICE", "", "POSITION_PRICE"},
        {"YSETTLE_PRICE", "YSETTLE_PRICE", "YSETTLE_PRICE"},
        {"SETTLE_PRICE", "SETTLE_PRICE", "SETTLE_PRICE"},
        {"DSYK", "DSYK", "DSYK"},
        {"DEPOSIT", "DEPOSIT", "DEPOSIT"},
        {"BID", "", ""},
        {"POSITION_VOL", "", ""},
        {"POSITION_PRICE", "", ""},
        {"BID_VOL", "", ""},
        {"ASK_VOL", "", ""},
        {"BID_PRICE", "", ""},
    };
    const std::string lots = "BID_POSITION_VOL=9\r\nASK_POSITION_VOL=3\r\n";
    const Fields bought = Record({{"BID", "买"}, {"BID_POSITION_VOL", "19"}});
    const Fields sold = Record({{"BID", "卖"}, {"ASK_POSITION_VOL", "13"}});
    for (const auto& row : cases) {
        const std::string key(row.key);
        for (const int column : {0, 5, 11}) {
            Fields expected[] = {bought, sold};
            if (!row.bought.empty()) expected[0][row.bought] = std::to_string(column + 10);
            if (!row.sold.empty()) expected[1][row.sold] = std::to_string(column + 10);
            EXPECT_EQ(SummaryOf(key + "=" + std::to_string(column) + "\r\n" + lots, {Numbers(12)}),
                      (std::vector<Fields>{expected[0], expected[1]}))
                << key << column;
        }
        for (const std::string_view far :
             {"-1", "12", "-2147483648", "2147483647", "4294967299", "99999999999999999999"}) {
            EXPECT_EQ(SummaryOf(key + "=" + std::string(far) + "\r\n" + lots, {Numbers(12)}),
                      (std::vector<Fields>{bought, sold}))
                << key << far;
        }
    }
}

TEST_F(TemplateSides, MakeARecordOfEachSideThatHoldsLots) {
    const struct {
        std::string_view bought;
        std::string_view sold;
        Texts sides;
    } cases[] = {
        {"1", "1", {"买", "卖"}}, {"0", "3", {"卖"}},   {"3", "0", {"买"}},     {"0", "0", {}},
        {"-1", "3", {"卖"}},      {"3", "-", {"买"}},   {"0.9", "1.9", {"卖"}}, {"2手", "x2", {"买"}},
        {"1,000", "no", {"买"}},  {"+2", "00", {"买"}}, {"001", "-0", {"买"}},
    };
    for (const auto& row : cases) {
        const std::string cells = "0|" + std::string(row.bought) + "|" + std::string(row.sold) + "|3|4|5|6|7|8|9|10|11";
        DetailOf("BID_VOL=1\r\nASK_VOL=2\r\n", {cells});
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), row.sides) << cells;
        SummaryOf("BID_POSITION_VOL=1\r\nASK_POSITION_VOL=2\r\n", {cells});
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), row.sides) << cells;
    }
}

TEST_F(TemplateSides, MakeNoRecordWithoutAColumnOfLots) {
    for (const std::string_view none : {"-1", "-2", "-2147483648", "-4294967295"}) {
        const std::string column(none);
        DetailOf("BID_VOL=" + column + "\r\nASK_VOL=2\r\n", {Numbers(12)});
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"卖"})) << none;
        DetailOf("BID_VOL=1\r\nASK_VOL=" + column + "\r\n", {Numbers(12)});
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"买"})) << none;
        SummaryOf("BID_POSITION_VOL=" + column + "\r\nASK_POSITION_VOL=2\r\n", {Numbers(12)});
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"卖"})) << none;
        SummaryOf("BID_POSITION_VOL=1\r\nASK_POSITION_VOL=" + column + "\r\n", {Numbers(12)});
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"买"})) << none;
    }
    EXPECT_TRUE(DetailOf("CONTRACT=1\r\n", {Numbers(12)}).empty());
    EXPECT_TRUE(SummaryOf("CONTRACT=1\r\n", {Numbers(12)}).empty());
}

TEST_F(TemplateSides, RaiseAnErrorForLotsBeyondADetailRow) {
    for (const std::string_view keys : {"BID_VOL=11\r\nASK_VOL=2\r\n", "BID_VOL=2147483647\r\nASK_VOL=2\r\n",
                                        "BID_VOL=99999999999\r\n", "ASK_VOL=11\r\n", "ASK_VOL=2147483647\r\n"}) {
        BeginWith(2, TableTemplate("OPI_DETAIL", keys));
        EXPECT_EQ(ErrorOfRows({Numbers(10), Numbers(11), Numbers(12)}), kErrorInvalidArgument) << keys;
        EXPECT_TRUE(NothingRead()) << keys;
        EXPECT_EQ(ErrorOfRows({Numbers(10)}), 0U) << keys;  // too short to be looked at
    }
}

TEST_F(TemplateSides, MakeTheBoughtRecordBeforeTheErrorOfTheSoldOne) {
    BeginWith(2, TableTemplate("OPI_DETAIL", "BID_VOL=1\r\nASK_VOL=11\r\n"));
    EXPECT_EQ(ErrorOfRows({Numbers(12), Numbers(11), Numbers(12)}), kErrorInvalidArgument);
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"买", "卖", "买"}));
}

TEST_F(TemplateSides, PassOverLotsBeyondASummaryRow) {
    for (const std::string_view far : {"12", "2147483647", "99999999999"}) {
        SummaryOf("BID_POSITION_VOL=1\r\nASK_POSITION_VOL=" + std::string(far) + "\r\n", {Numbers(12)});
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"买"})) << far;
        SummaryOf("ASK_POSITION_VOL=1\r\nBID_POSITION_VOL=" + std::string(far) + "\r\n", {Numbers(12)});
        EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"卖"})) << far;
    }
}

TEST_F(TemplateSides, NeedElevenColumnsInTheDetailAndTwelveInTheSummary) {
    EXPECT_EQ(DetailOf("BID_VOL=1\r\n", {Numbers(10)}).size(), 0U);
    EXPECT_EQ(DetailOf("BID_VOL=1\r\n", {Numbers(11)}).size(), 1U);
    EXPECT_EQ(SummaryOf("BID_POSITION_VOL=1\r\n", {Numbers(11)}).size(), 0U);
    EXPECT_EQ(SummaryOf("BID_POSITION_VOL=1\r\n", {Numbers(12)}).size(), 1U);
    EXPECT_EQ(DetailOf("BID_VOL=10\r\n", {Numbers(10), Numbers(11)}).size(), 1U);
}

TEST_F(TemplateSides, FeedTheDaysUsageFromTheDetailAlone) {
    DetailOf("CONTRACT=0\r\nBID_VOL=1\r\n", {"cu2405|2|2|3|4|5|6|7|8|9|10"});
    EXPECT_NE(report.TradeStatistics.DayUsages.Find("20240105"), nullptr);
    SummaryOf("CONTRACT=0\r\nBID_POSITION_VOL=1\r\n", {"cu|2|2|3|4|5|6|7|8|9|10|11"});
    EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240105"), nullptr);
}

TEST_F(TemplateSides, MakeSummariesAlikeInAllFormats) {
    for (const std::int32_t format : {0, 1, 2, 3, 5, 6, 201}) {
        BeginWith(format, TableTemplate("OPI_SUM", "CONTRACT=0\r\nBID_POSITION_VOL=1\r\n"));
        EXPECT_TRUE(ReadRows({Numbers(12)}));
        EXPECT_EQ(FieldsOfAll(report.OpiSumStore.Rows),
                  OneRecord({{"BID", "买"}, {"CONTRACT", "10"}, {"BID_POSITION_VOL", "11"}}))
            << format;
    }
}

TEST_F(TemplateSides, GoOnInTheDetailWithEmptyTitleAndTerminator) {
    BeginWith(2, TableTemplate("OPI_DETAIL", "START_FLAG=\r\nSTART_OFFSET=1\r\nBID_VOL=1\r\n"));
    EXPECT_TRUE(Read({"结算单", Numbers(11), Numbers(11), "共", Numbers(11)}));
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
    BeginWith(2, TableTemplate("OPI_DETAIL", "END_FLAG=\r\nSTART_OFFSET=1\r\nBID_VOL=1\r\n"));
    EXPECT_TRUE(Read({"结算单", "明细", Numbers(11), Numbers(11), Numbers(11), "共"}));
    EXPECT_EQ(report.OpiSumStore.Count(), 1);  // the row two behind the title ends the table
    BeginWith(2, TableTemplate("OPI_DETAIL", "END_FLAG=\r\nSTART_OFFSET=1\r\nBID_VOL=1\r\n"));
    EXPECT_TRUE(Read({"结算单", "明细", Numbers(11)}));
    EXPECT_EQ(report.OpiSumStore.Count(), 0);
}

TEST_F(TemplateSides, MakeOneColumnOfADetailRowWithoutADelimiter) {
    EXPECT_TRUE(DetailOf("DELIMITER=\r\nBID_VOL=0\r\n", {"1 2 3 4 5 6 7 8 9 10 11 12"}).empty());
}

}  // namespace
}  // namespace tradebill::template_sides_test
