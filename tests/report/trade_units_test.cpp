#include "report/trade_units.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "report/record_fields.h"
#include "report/record_makers.h"
#include "support/gbk_text.h"

namespace tradebill::trade_units_test {
namespace {

/// A trade with the contract given in UTF-8.
MatchRecord Trade(std::string_view contract, std::string_view price, std::string_view lots, std::string_view turnover,
                  std::string_view day = "20240102") {
    MatchRecord trade{};
    FillFields<MatchRecord>(trade, kMatchFields,
                            {{"BILL_DATE", day},
                             {"CONTRACT", Gbk(contract)},
                             {"MATCH_PRICE", price},
                             {"MATCH_VOL", lots},
                             {"TURNOVER", turnover}});
    return trade;
}

class TradeUnits : public testing::Test {
protected:
    /// What one trade of a product says of its unit; 0 for nothing.
    static std::int32_t UnitBy(std::string_view price, std::string_view lots, std::string_view turnover) {
        CTradeUnits units;
        units.Feed(Trade("rb2405", price, lots, turnover));
        return units.UnitOf("rb").value_or(0);
    }
    [[nodiscard]] std::int32_t UnitOf(std::string_view product) const {
        return units_.UnitOf(Gbk(product)).value_or(0);
    }
    void Feed(std::string_view contract, std::string_view price, std::string_view lots, std::string_view turnover,
              std::string_view day = "20240102") {
        units_.Feed(Trade(contract, price, lots, turnover, day));
    }

    CTradeUnits units_;
};

/// In millionths, which the price is printed in, twice the turnover is counted with.
TEST_F(TradeUnits, AreNothingWhereATurnoverIsBeyondAllNumbers) {
    EXPECT_EQ(UnitBy("1.000001", "109500000", "1095001095000"), 10000);
    EXPECT_EQ(UnitBy("1.000001", "219000000", "2190002190000"), 0);
    EXPECT_EQ(UnitBy("1.000001", "999999999", "9999999999999"), 0);
}

TEST_F(TradeUnits, AreTurnoverByPriceAndLots) {
    EXPECT_EQ(UnitBy("3952", "1", "39520.00"), 10);
    EXPECT_EQ(UnitBy("68780", "3", "1031700.00"), 5);
    EXPECT_EQ(UnitBy("481.58", "2", "963160.00"), 1000);
    EXPECT_EQ(UnitBy("130250", "1", "130250"), 1);
    EXPECT_EQ(UnitBy("101.105", "1", "1011050.00"), 10000);
    EXPECT_EQ(UnitBy("3377.600", "2.00", "2026560.00"), 300);
}

// Fills of 22283.3333 on the average, 12 lots of 5. Half a digit of the price is 0.03 of the turnover, which adds half
// a fen of its own.
TEST_F(TradeUnits, AllowForAveragedPrices) {
    EXPECT_EQ(UnitBy("22283.333", "12", "1337000.00"), 5);
    EXPECT_EQ(UnitBy("22283.33", "12", "1337000.00"), 5);
    EXPECT_EQ(UnitBy("22283", "12", "1337000.00"), 5);
    EXPECT_EQ(UnitBy("22283.333", "12", "1337000.01"), 5);  // 0.03 above the product of the printed figures
    EXPECT_EQ(UnitBy("22283.333", "12", "1337000.02"), 0);
    EXPECT_EQ(UnitBy("22283.333", "12", "1336999.95"), 5);  // 0.03 below
    EXPECT_EQ(UnitBy("22283.333", "12", "1336999.94"), 0);
}

TEST_F(TradeUnits, AllowForARoundedTurnover) {
    EXPECT_EQ(UnitBy("3.333", "1", "33"), 10);
    EXPECT_EQ(UnitBy("3.333", "1", "33.33"), 10);
    EXPECT_EQ(UnitBy("3.3330", "1", "33.32"), 0);  // 0.01 off, where 0.0055 may be
    EXPECT_EQ(UnitBy("3952.00", "1", "39520.2"), 0);
    EXPECT_EQ(UnitBy("3952.00", "1", "39521"), 0);
}

// A price of 5 may be 4.5 to 5.5: 100 for 2 lots are units of 10 and 11, and 10 to the last digit.
TEST_F(TradeUnits, AreThoseOfTheLastDigitWhereRoundingLeavesAChoice) {
    EXPECT_EQ(UnitBy("5", "2", "100.00"), 10);
    EXPECT_EQ(UnitBy("5", "1", "52.00"), 0);  // 10 or 11
    EXPECT_EQ(UnitBy("5", "1", "55.00"), 11);
    EXPECT_EQ(UnitBy("6", "1", "52.00"), 0);  // 8 or 9
}

TEST_F(TradeUnits, AreKnownWhereAllTradesAgree) {
    Feed("cu2402", "68780", "3", "1031700.00");
    Feed("cu2403", "68780.333", "3", "1031705.00");
    Feed("cu2403P60000", "12", "1", "60.00");
    EXPECT_EQ(UnitOf("cu"), 5);
    EXPECT_FALSE(units_.ContradictionOf("cu"));
}

// 5 for 52 leaves 10 and 11, 3 for 28 leaves 8 to 11, 1000.1 for 10000.9 leaves 10 alone.
TEST_F(TradeUnits, AreWhatAllTradesTogetherLeave) {
    Feed("a2405", "5", "1", "52.00");
    EXPECT_EQ(UnitOf("a"), 0);
    Feed("a2405", "3", "1", "28.00");
    EXPECT_EQ(UnitOf("a"), 0);
    Feed("a2405", "1000.1", "1", "10000.9");
    EXPECT_EQ(UnitOf("a"), 10);
}

// 2 for 20 names 10 of the units from 8 to 13; fills of 2.35 on the average, printed as 2, would name another by
// chance.
TEST_F(TradeUnits, ArentKnownWhereOnlySomeTradesNameOneOfAChoice) {
    Feed("p2405", "2", "1", "20.00");
    EXPECT_EQ(UnitOf("p"), 10);
    Feed("p2405", "2", "1", "21.00");
    EXPECT_EQ(UnitOf("p"), 0);
    EXPECT_FALSE(units_.ContradictionOf("p"));
    Feed("p2405", "3000", "1", "30000.00");
    EXPECT_EQ(UnitOf("p"), 10);
}

TEST_F(TradeUnits, ArentKnownWhereTradesContradictEachOther) {
    Feed("rb2405", "4000", "1", "40000.00", "20240102");
    Feed("rb2405", "4000", "1", "20000.00", "20240103");
    Feed("rb2410", "4000", "1", "10000.00", "20240104");
    Feed("rb2405", "4000", "1", "40000.00", "20240105");
    EXPECT_EQ(UnitOf("rb"), 0);
    const auto contradiction = units_.ContradictionOf("rb");
    ASSERT_TRUE(contradiction.has_value());
    EXPECT_EQ(contradiction->day, "20240103");
    EXPECT_EQ(contradiction->contract, "rb2405");
}

// 100 lots at 10 name a unit of 10. A price of 5 may be 4.5 to 5.5: 125 for 2 lots are units of 12 and 13.
TEST_F(TradeUnits, ArentKnownWhereATradeLeavesTheNamedOneOut) {
    Feed("rb2405", "10.00", "100", "10000.00");
    EXPECT_EQ(UnitOf("rb"), 10);
    Feed("rb2405", "5", "2", "125");
    EXPECT_EQ(UnitOf("rb"), 0);
}

// 5 for 50 is 10 to the last digit, 5 for 55 is 11: rounding would allow either, but both can't be.
TEST_F(TradeUnits, ArentKnownWhereTwoTradesNameTwo) {
    Feed("p2405", "5", "1", "50.00");
    Feed("p2405", "5", "1", "55.00");
    EXPECT_EQ(UnitOf("p"), 0);
    EXPECT_TRUE(units_.ContradictionOf("p"));
}

TEST_F(TradeUnits, AreNoFractions) {
    Feed("rb2405", "4000", "1", "10000.00", "20240102");
    EXPECT_EQ(UnitOf("rb"), 0);
    EXPECT_EQ(units_.ContradictionOf("rb")->day, "20240102");
    Feed("i2405", "900.0", "1", "0.01");
    EXPECT_EQ(UnitOf("i"), 0);
    EXPECT_TRUE(units_.ContradictionOf("i"));
}

TEST_F(TradeUnits, GoByTheProductOfTheContract) {
    Feed("豆粕P2900", "52.5", "2", "1050.00");
    Feed("　白糖　", "6221", "2", "124420.00");
    Feed("i2405-P-1030", "23.0", "1", "2300.00");
    EXPECT_EQ(UnitOf("豆粕P"), 10);
    EXPECT_EQ(UnitOf("豆粕"), 0);
    EXPECT_EQ(UnitOf("白糖"), 10);
    EXPECT_EQ(UnitOf("i"), 100);
    EXPECT_EQ(UnitOf("cu"), 0);
    EXPECT_FALSE(units_.ContradictionOf("cu"));
}

TEST_F(TradeUnits, OfIndexFuturesHoldForTheirCodeToo) {
    Feed("股指", "3377.6", "1", "1013280.00");
    EXPECT_EQ(UnitOf("股指"), 300);
    EXPECT_EQ(UnitOf("IF"), 300);
    Feed("股指C3400", "50.2", "1", "5020.00");
    EXPECT_EQ(UnitOf("股指"), 300);
    EXPECT_EQ(UnitOf("股指C"), 100);
    EXPECT_EQ(UnitOf("IF"), 0);
    EXPECT_FALSE(units_.ContradictionOf(Gbk("股指")));
}

TEST_F(TradeUnits, PassOverTradesThatLackAFigure) {
    Feed("rb2405", "4000", "1", "40000.00");
    const struct {
        const char* price;
        const char* lots;
        const char* turnover;
    } cases[] = {
        {"", "1", "20000"},      {"4000", "", "20000"},       {"4000", "1", ""},          {"0.00", "1", "20000"},
        {"4000", "0", "20000"},  {"4000", "1", "0.00"},       {"4,000", "1", "20000"},    {"4000", "1.5", "20000"},
        {"4000", "1", "-20000"}, {"--", "1", "20000"},        {"4000", "1", "12 345.00"}, {"4000.0.0", "1", "20000"},
        {".", "1", "20000"},     {"4000", "one", "20000.00"}, {"+4000", "1", "20000"},
    };
    for (const auto& row : cases) Feed("rb2405", row.price, row.lots, row.turnover);
    EXPECT_EQ(UnitOf("rb"), 10);
}

// A field of 16 bytes holds 15: what fills it may go on.
TEST_F(TradeUnits, PassOverFiguresThatTheirFieldMayHaveCut) {
    EXPECT_EQ(UnitBy("10000000", "100000", "10000000000000.00"), 0);
    EXPECT_EQ(UnitBy("10000000", "1000000", "10000000000000"), 1);
    EXPECT_EQ(UnitBy("10000000", "100000", "1000000000000.0"), 0);
}

TEST_F(TradeUnits, PassOverFiguresBeyondTheirArithmetic) {
    EXPECT_EQ(UnitBy("1", "1", "99999999999999"), 0);
    EXPECT_EQ(UnitBy("99999999999999", "99999999999999", "99999999999999"), 0);
    EXPECT_EQ(UnitBy("0.000000000001", "1", "99999999999999"), 0);
    EXPECT_EQ(UnitBy("99999999999999", "1", "0.000000000001"), 0);
    EXPECT_EQ(UnitBy("90000000000000", "1", "90000000000.00000"), 0);  // 9 * 10^18 are twice as much in halves
    EXPECT_EQ(UnitBy("1", "1", "2147483647"), 2147483647);
    EXPECT_EQ(UnitBy("1", "1", "2147483648"), 0);
}

class DoubtfulUnit : public TradeUnits {
protected:
    DoubtfulUnit() {
        Feed("rb2405", "4000", "1", "40000.00");
        Feed("ni2405", "130250", "1", "130250");
        Feed("bad2405", "4000", "1", "40000.00");
        Feed("bad2405", "4000", "1", "20000.00");
    }
    /// Product, unit by the trades, 0 for none.
    struct Doubt {
        std::string product;
        std::int32_t byTrades;
        bool operator==(const Doubt&) const = default;
    };
    [[nodiscard]] std::vector<Doubt> Doubts(const std::vector<ProductUnit>& used) const {
        std::vector<Doubt> doubts;
        for (const auto& doubt : DoubtfulUnits(used, units_)) {
            doubts.push_back({doubt.used.product, doubt.byTrades.value_or(0)});
        }
        return doubts;
    }
};

TEST_F(DoubtfulUnit, IsOneThatTheTradesContradict) {
    EXPECT_EQ(Doubts({{"rb", 10, UnitSource::File}, {"ni", 10, UnitSource::File}}), (std::vector<Doubt>{{"ni", 1}}));
    EXPECT_EQ(Doubts({{"rb", 1, UnitSource::Unknown}, {"ni", 1, UnitSource::Unknown}}),
              (std::vector<Doubt>{{"rb", 10}}));
}

TEST_F(DoubtfulUnit, IsOneThatNobodyKnows) {
    EXPECT_EQ(Doubts({{"xx", 1, UnitSource::Unknown}, {"bad", 1, UnitSource::Unknown}}),
              (std::vector<Doubt>{{"xx", 0}, {"bad", 0}}));
    EXPECT_TRUE(Doubts({{"xx", 7, UnitSource::File}, {"bad", 7, UnitSource::Table}}).empty());
}

TEST_F(DoubtfulUnit, IsNoneThatShallBeOne) {
    EXPECT_TRUE(Doubts({{"rb", 1, UnitSource::Waived}, {"xx", 1, UnitSource::Waived}}).empty());
}

}  // namespace
}  // namespace tradebill::trade_units_test
