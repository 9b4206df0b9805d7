#include "export/json_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "report/records.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"
#include "support/report_json.h"
#include "support/store_fixture.h"

namespace tradebill::json_writer_test {
namespace {

using Json = nlohmann::ordered_json;
using Names = std::vector<std::string>;

Names KeysOf(const Json& object) {
    Names keys;
    for (const auto& [key, value] : object.items()) keys.push_back(key);
    return keys;
}

const Names kMoneyKeys = {"LastHostCurrent", "OpeningEquity", "ClosingEquity", "TotalClosedPL", "TotalPositionPL",
                          "TotalCashFlow",   "Available",     "FrozenB",       "FrozenA",       "PositionMargin",
                          "Count",           "TotalFees",     "TotalPremium",  "StartDateText", "EndDateText",
                          "inner",           "Records"};
const Names kInnerMoneyKeys = {"FirstCashFlow", "MinEquity",      "MaxEquity", "MinDayPL",
                               "MaxDayPL",      "HostPositionPL", "ChartSizes"};

class JsonWriter : public StoreFixture {
protected:
    [[nodiscard]] std::string Text() const { return ReportJson(report); }
    [[nodiscard]] Json Written() const { return Json::parse(Text()); }
};

TEST_F(JsonWriter, WritesOneObjectBehindItsSchema) {
    const Json json = Written();
    EXPECT_EQ(KeysOf(json), (Names{"schema", "program", "run", "money", "currencies", "matches", "closed", "positions",
                                   "positionSums", "cash", "exercises", "deliveries", "offsets", "chains", "days",
                                   "usage", "account", "analysis", "findings"}));
    EXPECT_EQ(json["schema"], 1);
    EXPECT_EQ(json["program"], "tradebill " TRADEBILL_VERSION);
}

TEST_F(JsonWriter, WritesEmptyStoresAsEmptyLists) {
    const Json json = Written();
    for (const char* const list : {"currencies", "matches", "closed", "positions", "positionSums", "cash", "exercises",
                                   "deliveries", "offsets", "chains", "days", "usage"}) {
        EXPECT_EQ(json[list], Json::array()) << list;
    }
    EXPECT_EQ(json["money"]["Records"], Json::array());
    EXPECT_EQ(json["money"]["Count"], 0);
    EXPECT_EQ(json["money"]["inner"]["ChartSizes"], Json({0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(JsonWriter, WritesTheAccountsMoney) {
    report.MoneyStore.LastHostCurrent = 1;
    report.MoneyStore.OpeningEquity = 2;
    report.MoneyStore.ClosingEquity = 3;
    report.MoneyStore.TotalClosedPL = 4;
    report.MoneyStore.TotalPositionPL = 5;
    report.MoneyStore.TotalCashFlow = 6;
    report.MoneyStore.Available = 7;
    report.MoneyStore.FrozenB = 8;
    report.MoneyStore.FrozenA = 9;
    report.MoneyStore.PositionMargin = 10;
    report.MoneyStore.TotalFees = 12;
    report.MoneyStore.TotalPremium = 13;
    report.MoneyStore.StartDateText = "2024-01-02";
    report.MoneyStore.EndDateText = "2024-01-03";
    const Json money = Written()["money"];
    EXPECT_EQ(KeysOf(money), kMoneyKeys);
    for (std::size_t i = 0; i < 13; ++i) {
        const int expected = kMoneyKeys[i] == "Count" ? 0 : static_cast<int>(i) + 1;
        EXPECT_EQ(money[kMoneyKeys[i]], expected) << kMoneyKeys[i];
    }
    EXPECT_EQ(money["StartDateText"], "2024-01-02");
    EXPECT_EQ(money["EndDateText"], "2024-01-03");
}

/// What neither page nor pictures show.
TEST_F(JsonWriter, NamesInnerMoneyFiguresAsSuch) {
    report.MoneyStore.FirstCashFlow = 1;
    report.MoneyStore.MinEquity = 2;
    report.MoneyStore.MaxEquity = 3;
    report.MoneyStore.MinDayPL = 4;
    report.MoneyStore.MaxDayPL = 5;
    report.MoneyStore.HostPositionPL = 6;
    report.MoneyStore.ChartSizes = {1, 2, 3, 4, 5, 6, 7, 8};
    const Json inner = Written()["money"]["inner"];
    EXPECT_EQ(KeysOf(inner), kInnerMoneyKeys);
    for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(inner[kInnerMoneyKeys[i]], static_cast<int>(i) + 1);
    EXPECT_EQ(inner["ChartSizes"], Json({1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(JsonWriter, WritesMoneyRecordsWithoutSpareFields) {
    const Names names = {
        "BILL_DATE",        "QCQY",  "CRJ",   "QMJC",     "KYZJ",          "PCYK",          "CCDSYK",
        "HOST_CURRENT",     "KHQY",  "SXF",   "BZJZY",    "HOST_FROZEN_A", "HOST_FROZEN_B", "HOST_POSITION_MARGIN",
        "HOST_POSITION_PL", "XQSXF", "QLJSZ", "CURRENCY", "values"};
    auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
    CopyField(record->BILL_DATE, "20240102");
    CopyField(record->SPARE_MONEY_1, "spare");
    CopyField(record->QCQY, "1.00");
    CopyField(record->KHQY, "2.00");
    CopyField(record->SPARE_MONEY_8, "spare");
    record->EXCHANGE_RATE = 7.5;
    report.MoneyStore.Add(std::move(record), MoneySource::Statement);
    const Json json = Written()["money"];
    EXPECT_EQ(json["Count"], 1);
    ASSERT_EQ(json["Records"].size(), 1U);
    const Json& written = json["Records"][0];
    EXPECT_EQ(KeysOf(written), names);
    EXPECT_EQ(written["BILL_DATE"], "20240102");
    EXPECT_EQ(written["QCQY"], "1.00");
    EXPECT_EQ(written["KHQY"], "2.00");
    EXPECT_EQ(written["SXF"], "");
    const Names values = {"QCQY",
                          "CRJ",
                          "QMJC",
                          "KYZJ",
                          "PCYK",
                          "CCDSYK",
                          "HOST_CURRENT",
                          "KHQY",
                          "SXF",
                          "BZJZY",
                          "HOST_FROZEN_A",
                          "HOST_FROZEN_B",
                          "HOST_POSITION_MARGIN",
                          "HOST_POSITION_PL",
                          "XQSXF",
                          "QLJSZ",
                          "EXCHANGE_RATE"};
    EXPECT_EQ(KeysOf(written["values"]), values);
    EXPECT_EQ(written["values"]["QCQY"], 1);
    EXPECT_EQ(written["values"]["KHQY"], 2);
    EXPECT_EQ(written["values"]["SXF"], Json());
    EXPECT_EQ(written["values"]["EXCHANGE_RATE"], 7.5);
}

/// Both are there: as it is printed, and as a number that has lost nothing.
TEST_F(JsonWriter, WritesAmountsAsPrintedAndAsNumbers) {
    auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
    CopyField(record->KHQY, "1,234.50");
    CopyField(record->KYZJ, "-0.10");
    CopyField(record->SXF, "12abc");
    CopyField(record->CURRENCY, "7");
    report.MoneyStore.Records.push_back(std::move(record));
    const Json written = Written()["money"]["Records"][0];
    EXPECT_EQ(written["KHQY"], "1,234.50");
    EXPECT_EQ(written["values"]["KHQY"], 1234.5);
    EXPECT_EQ(written["values"]["KYZJ"], -0.1);
    EXPECT_EQ(written["SXF"], "12abc");
    EXPECT_EQ(written["values"]["SXF"], Json());
    EXPECT_FALSE(written["values"].contains("CURRENCY"));
    EXPECT_NE(Text().find("\"KHQY\":1234.50,"), std::string::npos);
}

TEST_F(JsonWriter, WritesEachCurrencyWithItsStore) {
    for (const auto& [currency, closing] : {std::pair{"HKD*", "5.00"}, {"美元", "6.00"}}) {
        auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
        CopyField(record->QMJC, closing);
        report.CurrencyMoneyStore.Add(std::move(record), Gbk(currency), MoneySource::Live);
    }
    const Json currencies = Written()["currencies"];
    ASSERT_EQ(currencies.size(), 2U);
    EXPECT_EQ(KeysOf(currencies[0]), (Names{"name", "store"}));
    EXPECT_EQ(currencies[0]["name"], "HKD*");
    EXPECT_EQ(KeysOf(currencies[0]["store"]), kMoneyKeys);
    EXPECT_EQ(currencies[0]["store"]["ClosingEquity"], 5);
    EXPECT_EQ(currencies[1]["name"], "美元");
    EXPECT_EQ(currencies[1]["store"]["ClosingEquity"], 6);
    EXPECT_EQ(currencies[1]["store"]["Records"].size(), 1U);
}

/// Fills each field of a record with its place in the record, and says what is then expected in the JSON: the texts,
/// and those numbers that are amounts.
struct FieldOfRecord {
    const char* name;
    std::span<char> bytes;
};

Json Fill(const std::vector<FieldOfRecord>& fields, const Names& amounts) {
    Json expected = Json::object();
    Json values = Json::object();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string text = std::to_string(i + 1);
        *std::ranges::copy(text, fields[i].bytes.begin()).out = '\0';
        if (std::string_view(fields[i].name).starts_with("SPARE_")) continue;
        expected[fields[i].name] = text;
        if (std::ranges::count(amounts, fields[i].name) == 1) values[fields[i].name] = i + 1;
    }
    expected["values"] = values;
    return expected;
}

#define FIELD(Name) \
    { #Name, row.Name }

TEST_F(JsonWriter, WritesTrades) {
    MatchRecord& row = report.MatchStore.Add();
    const Json expected =
        Fill({FIELD(BILL_DATE), FIELD(MATCH_DATE), FIELD(EXCH_NAME), FIELD(CONTRACT), FIELD(DELIVERY), FIELD(HEDGE),
              FIELD(BID), FIELD(MATCH_PRICE), FIELD(MATCH_VOL), FIELD(TURNOVER), FIELD(OFFSET), FIELD(POUNDAGE),
              FIELD(OFFSETPL), FIELD(MATCHNO), FIELD(ROYALTY), FIELD(CURRENCY)},
             {"MATCH_PRICE", "MATCH_VOL", "TURNOVER", "POUNDAGE", "OFFSETPL", "ROYALTY"});
    EXPECT_EQ(Written()["matches"], Json::array({expected}));
}

TEST_F(JsonWriter, WritesClosedPositions) {
    PingDetail& row = report.PingDetailStore.Add();
    Json expected = Fill({FIELD(BILL_DATE), FIELD(MATCH_DATE), FIELD(EXCH_NAME), FIELD(CONTRACT), FIELD(DELIVERY),
                          FIELD(BID), FIELD(MATCH_PRICE), FIELD(MATCH_VOL), FIELD(OPEN_DATE), FIELD(OPEN_PRICE),
                          FIELD(SETTLE_PRICE), FIELD(POUNDAGE), FIELD(HEDGE), FIELD(OFFSETPL), FIELD(CURRENCY)},
                         {"MATCH_PRICE", "MATCH_VOL", "OPEN_PRICE", "SETTLE_PRICE", "POUNDAGE", "OFFSETPL"});
    const Json values = expected["values"];
    expected.erase("values");
    expected["side"] = Json();
    expected["tradeSide"] = Json();
    expected["values"] = values;
    EXPECT_EQ(Written()["closed"], Json::array({expected}));
}

/// BID is the side of the position, which readers turn where a statement prints that of the closing trade.
TEST_F(JsonWriter, TellsBothSidesOfAClosedPosition) {
    CopyField(report.PingDetailStore.Add().BID, Gbk("买"));
    CopyField(report.PingDetailStore.Add().BID, Gbk(" 卖出"));
    const Json closed = Written()["closed"];
    EXPECT_EQ(closed[0]["BID"], "买");
    EXPECT_EQ(closed[0]["side"], "long");
    EXPECT_EQ(closed[0]["tradeSide"], "sell");
    EXPECT_EQ(closed[1]["side"], "short");
    EXPECT_EQ(closed[1]["tradeSide"], "buy");
}

/// Those of the foreign family have a store of their own, and BID is the closing trade's side.
TEST_F(JsonWriter, WritesClosedPositionsOfAForeignAccount) {
    report.Request.StatementKind = kForeignKind;
    PingDetail& row = report.ForeignClosedStore.Add();
    CopyField(row.CONTRACT, "NK2403");
    CopyField(row.BID, Gbk("卖"));
    CopyField(row.OFFSETPL, "-510000.00");
    CopyField(row.CURRENCY, "JPY");
    CopyField(report.ForeignClosedStore.Add().BID, Gbk("买"));
    const Json closed = Written()["closed"];
    ASSERT_EQ(closed.size(), 2U);
    EXPECT_EQ(closed[0]["CONTRACT"], "NK2403");
    EXPECT_EQ(closed[0]["CURRENCY"], "JPY");
    EXPECT_EQ(closed[0]["BID"], "卖");
    EXPECT_EQ(closed[0]["side"], "long");
    EXPECT_EQ(closed[0]["tradeSide"], "sell");
    EXPECT_EQ(closed[0]["values"]["OFFSETPL"], -510000.0);
    EXPECT_EQ(closed[1]["side"], "short");
    EXPECT_EQ(closed[1]["tradeSide"], "buy");
}

TEST_F(JsonWriter, WritesOpenPositions) {
    OpiDetail& row = report.OpiDetailStore.Add();
    const Json expected =
        Fill({FIELD(BILL_DATE), FIELD(EXCH_NAME), FIELD(CONTRACT), FIELD(DELIVERY), FIELD(OPEN_DATE), FIELD(HEDGE),
              FIELD(BID), FIELD(POSITION_VOL), FIELD(OPEN_PRICE), FIELD(YSETTLE_PRICE), FIELD(SETTLE_PRICE),
              FIELD(FLOATPL), FIELD(DSYK), FIELD(DEPOSIT), FIELD(CURRENCY)},
             {"POSITION_VOL", "OPEN_PRICE", "YSETTLE_PRICE", "SETTLE_PRICE", "FLOATPL", "DSYK", "DEPOSIT"});
    EXPECT_EQ(Written()["positions"], Json::array({expected}));
}

TEST_F(JsonWriter, WritesPositionSumsWithoutSpareFields) {
    OpiSum& row = report.OpiSumStore.Add();
    const Json expected = Fill(
        {FIELD(BILL_DATE), FIELD(EXCH_NAME), FIELD(CONTRACT), FIELD(DELIVERY), FIELD(BID), FIELD(BID_POSITION_VOL),
         FIELD(SPARE_OPI_1), FIELD(ASK_POSITION_VOL), FIELD(SPARE_OPI_2), FIELD(POSITION_VOL), FIELD(POSITION_PRICE),
         FIELD(YSETTLE_PRICE), FIELD(SETTLE_PRICE), FIELD(DSYK), FIELD(DEPOSIT), FIELD(HEDGE)},
        {"BID_POSITION_VOL", "ASK_POSITION_VOL", "POSITION_VOL", "POSITION_PRICE", "YSETTLE_PRICE", "SETTLE_PRICE",
         "DSYK", "DEPOSIT"});
    EXPECT_EQ(Written()["positionSums"], Json::array({expected}));
}

#undef FIELD

TEST_F(JsonWriter, KeepsRowsInTheirOrder) {
    for (const char* const contract : {"rb", "i", "rb", "a"}) {
        CopyField(report.MatchStore.Add().CONTRACT, contract);
    }
    Names contracts;
    const Json json = Written();
    for (const Json& row : json["matches"]) contracts.push_back(row["CONTRACT"]);
    EXPECT_EQ(contracts, (Names{"rb", "i", "rb", "a"}));
}

TEST_F(JsonWriter, WritesTalliesOfClosedPositions) {
    ContractOffset offset{};
    CopyField(offset.CONTRACT, Gbk("沪铜"));
    CopyField(offset.DELIVERY, "2405");
    CopyField(offset.CURRENCY, "HKD");
    offset.LONG_VOL = 1;
    offset.SHORT_VOL = 2;
    offset.LONG_PL = 3.5;
    offset.SHORT_PL = 4.5;
    offset.LONG_COUNT = 5;
    offset.SHORT_COUNT = 6;
    offset.LONG_WIN_COUNT = 7;
    offset.SHORT_WIN_COUNT = 8;
    offset.LONG_WIN_VOL = 9;
    offset.SHORT_WIN_VOL = 10;
    offset.LONG_WIN_PL = 11.5;
    offset.SHORT_WIN_PL = 12.5;
    offset.LONG_LOSE_COUNT = 13;
    offset.SHORT_LOSE_COUNT = 14;
    offset.LONG_LOSE_VOL = 15;
    offset.SHORT_LOSE_VOL = 16;
    offset.LONG_LOSE_PL = -17.5;
    offset.SHORT_LOSE_PL = -18.5;
    offset.LONG_MAX_WIN = 19.5;
    offset.LONG_MAX_LOSS = -20.5;
    offset.SHORT_MAX_WIN = 21.5;
    offset.SHORT_MAX_LOSS = -22.5;
    report.ReportDocument.Offsets.push_back(std::make_unique<ContractOffset>(offset));
    const Json expected = {
        {"CONTRACT", "沪铜"},     {"DELIVERY", "2405"},      {"CURRENCY", "HKD"},
        {"LONG_VOL", 1},          {"SHORT_VOL", 2},          {"LONG_COUNT", 5},
        {"SHORT_COUNT", 6},       {"LONG_WIN_COUNT", 7},     {"SHORT_WIN_COUNT", 8},
        {"LONG_WIN_VOL", 9},      {"SHORT_WIN_VOL", 10},     {"LONG_WIN_PL", 11.5},
        {"SHORT_WIN_PL", 12.5},   {"LONG_LOSE_COUNT", 13},   {"SHORT_LOSE_COUNT", 14},
        {"LONG_LOSE_VOL", 15},    {"SHORT_LOSE_VOL", 16},    {"LONG_LOSE_PL", -17.5},
        {"SHORT_LOSE_PL", -18.5}, {"LONG_MAX_WIN", 19.5},    {"LONG_MAX_LOSS", -20.5},
        {"SHORT_MAX_WIN", 21.5},  {"SHORT_MAX_LOSS", -22.5}, {"inner", {{"LONG_PL", 3.5}, {"SHORT_PL", 4.5}}}};
    EXPECT_EQ(Written()["offsets"], Json::array({expected}));
}

TEST_F(JsonWriter, WritesChainsWithTheirItems) {
    auto chain = std::make_unique<CContractChain>("cu");
    chain->Items = {"al", Gbk("锌"), ""};
    report.ChainTable.Chains.push_back(std::move(chain));
    EXPECT_EQ(Written()["chains"], Json::array({{{"ItemBase", "cu"}, {"Items", {"al", "锌", ""}}}}));
}

TEST_F(JsonWriter, WritesDailyFigures) {
    DayFigure& day = report.TradeStatistics.DayFigures.FindOrCreate("20240102");
    day.ClosedPL = 1;
    day.PositionPL = 2;
    day.CashFlow = 3;
    day.Opening = 4;
    day.Closing = 5;
    day.Yield = 0.25;
    const Json expected = {{"Day", "20240102"}, {"ClosedPL", 1.0}, {"PositionPL", 2.0}, {"CashFlow", 3.0},
                           {"Opening", 4.0},    {"Closing", 5.0},  {"Yield", 0.25}};
    EXPECT_EQ(Written()["days"], Json::array({expected}));
}

TEST_F(JsonWriter, WritesDailyUsageWithItsPositions) {
    CDayUsage& usage = report.TradeStatistics.DayUsages.FindOrCreate("20240102");
    usage.Margin = 1.5;
    usage.Equity = 3;
    usage.HasFigures = 1;
    usage.Risk = 0.5;
    usage.AddRow("rb", {.day = "20240102", .side = Gbk("卖"), .lots = 4, .margin = 10, .isSummary = false});
    const Json position = {{"Product", "rb"},   {"Side", "卖"},   {"Lots", 4},        {"NetLots", 0.0},
                           {"Day", "20240102"}, {"Margin", 10.0}, {"UnitMargin", 2.5}};
    const Json inner = {{"HasFigures", 1}, {"Positions", Json::array({position})}};
    const Json expected = {{"Day", "20240102"}, {"Margin", 1.5}, {"Equity", 3.0}, {"Risk", 0.5}, {"inner", inner}};
    EXPECT_EQ(Written()["usage"], Json::array({expected}));
}

TEST_F(JsonWriter, WritesTheDayThatUsageWasFedUnder) {
    OpiDetail row{};
    CopyField(row.BILL_DATE, "20240102");
    CopyField(row.CONTRACT, "rb2405");
    CopyField(row.POSITION_VOL, "1");
    report.TradeStatistics.FeedOpiDetail(row, "rb");
    EXPECT_EQ(Written()["usage"][0]["Day"], "20240102");
}

TEST_F(JsonWriter, WritesAllAccountFigures) {
    report.AccountStatistics.WinCount = 1;
    report.AccountStatistics.LoseCount = 2;
    report.AccountStatistics.FlatCount = 3;
    report.AccountStatistics.InitialEquity = 4.5;
    report.AccountStatistics.MaxEquity = 5.5;
    report.AccountStatistics.MinEquity = 6.5;
    report.AccountStatistics.TotalPL = 7.5;
    report.AccountStatistics.MaxDrawdown = 8.5;
    report.AccountStatistics.WinRate = 9.5;
    report.AccountStatistics.ProfitRate = 10.5;
    report.AccountStatistics.MaxProfit = 11.5;
    report.AccountStatistics.MaxLoss = -12.5;
    report.AccountStatistics.MaxYield = 13.5;
    report.AccountStatistics.MaxRisk = 14.5;
    const Json inner = {{"WinCount", 1},    {"LoseCount", 2},   {"FlatCount", 3}, {"InitialEquity", 4.5},
                        {"MaxEquity", 5.5}, {"MinEquity", 6.5}, {"TotalPL", 7.5}};
    const Json expected = {{"MaxDrawdown", 8.5}, {"WinRate", 9.5},   {"ProfitRate", 10.5}, {"MaxProfit", 11.5},
                           {"MaxLoss", -12.5},   {"MaxYield", 13.5}, {"MaxRisk", 14.5},    {"inner", inner}};
    EXPECT_EQ(Written()["account"], expected);
}

}  // namespace
}  // namespace tradebill::json_writer_test
