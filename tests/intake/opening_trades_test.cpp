// Trades in statements, found again by their numbers.
#include "intake/opening_trades.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "support/gbk_text.h"

namespace tradebill::opening_trades_test {
namespace {

constexpr const char* kHeading = "|成交日期|合约|买/卖|成交价|手数|开平|成交序号|";

OpeningTrade Trade(const std::string& number, std::int64_t price = 100'0000) {
    return {.contract = "lc2402", .number = number, .isBuy = true, .price = price};
}

TEST(OpeningTrades, AreFoundOnTheLatestDayBefore) {
    COpeningTrades trades;
    const std::string text =
        Statement({"成交记录 Transaction Record", kHeading, "|20240102|lc2402|买|100.000|2|开|0071|", "|共1条|||||||"});
    trades.SetDay("20240102", text);
    trades.SetDay("20240104", text);
    EXPECT_EQ(trades.DayOf(Trade("0071"), "20240105"), "20240104");
    EXPECT_EQ(trades.DayOf(Trade("0071"), "20240104"), "20240102");
    EXPECT_EQ(trades.DayOf(Trade("0071"), "20240102"), std::nullopt);
    trades.SetDay("20240104", Statement({"nothing"}));
    EXPECT_EQ(trades.DayOf(Trade("0071"), "20240105"), "20240102");
}

TEST(OpeningTrades, AgreeInContractSideNumberAndPrice) {
    COpeningTrades trades;
    trades.SetDay("20240102", Statement({"成交记录", kHeading, "|20240102|lc2402|买|100|2|开|0071|",
                                         "|20240102|lc2402| 卖|100|2|开|0072|", "|20240102|lc2402|买|100|2|平今|0073|",
                                         "|20240102|lc2402|买|x|2|开|0074|", "|20240102|lc2402|买|100|2|开|", "|共5条|",
                                         "|20240102|lc2402|买|100|2|开|0075|"}));
    const auto isKnown = [&](const OpeningTrade& trade) { return trades.DayOf(trade, "20240103").has_value(); };
    EXPECT_TRUE(isKnown(Trade("0071")));
    EXPECT_FALSE(isKnown(Trade("71")));
    EXPECT_FALSE(isKnown(Trade("0071", 100'0001)));
    EXPECT_FALSE(isKnown(Trade("0072")));
    EXPECT_TRUE(isKnown({.contract = "lc2402", .number = "0072", .isBuy = false, .price = 100'0000}));
    EXPECT_FALSE(isKnown({.contract = "lc2403", .number = "0071", .isBuy = true, .price = 100'0000}));
    EXPECT_FALSE(isKnown(Trade("0073")));
    EXPECT_FALSE(isKnown(Trade("0074")));
    EXPECT_FALSE(isKnown(Trade("0075")));
}

TEST(OpeningTrades, AreReadFromTablesWithoutBars) {
    COpeningTrades trades;
    trades.SetDay("20240102", Statement({"客户帐单_成交记录单", "----", "日期 合约 成交序号 买卖 成交价 手数 开平",
                                         "20240102 lc2402 0071 买 100.00 2 开仓", "合计 2"}));
    EXPECT_EQ(trades.DayOf(Trade("0071"), "20240103"), "20240102");
}

TEST(OpeningTrades, AreNoneInTablesWithoutNumbers) {
    COpeningTrades trades;
    trades.SetDay("20240102", Statement({"成交记录", "|合约|买/卖|成交价|手数|开平|", "|lc2402|买|100|2|开|"}));
    EXPECT_EQ(trades.DayOf(Trade(""), "20240103"), std::nullopt);
}

}  // namespace
}  // namespace tradebill::opening_trades_test
