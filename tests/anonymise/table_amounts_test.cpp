// Rows of tables, changed by a factor of a half where nothing else is said: what follows from what.
#include "anonymise/table_amounts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/hand_sheet.h"
#include "anonymise/unit_book.h"

namespace tradebill::table_amounts_test {
namespace {

const CAmountFactor kHalf(500000);
constexpr WatchedRow kOpen = WatchedAs(SectionKind::Open);
constexpr WatchedRow kClosed = WatchedAs(SectionKind::Closed);
constexpr WatchedRow kTrades = WatchedAs(SectionKind::Trades);

SheetRow RowOf(const WatchedRow* watched) {
    return {.firstCell = 0, .cells = 0, .table = 0, .watched = watched};
}

void Change(CHandSheet& hand, const CAmountFactor& factor = kHalf, const CUnitBook& units = {}) {
    CTableAmounts(hand.Sheet(), factor, units).Change();
}

/// A trade of one contract: its lots, two prices and its turnover.
HandRow Trade(std::string_view lots, std::string_view price, std::string_view other, std::string_view turnover) {
    return {{{"i2405", Meaning::Contract},
             {lots, Meaning::Lots},
             {price, Meaning::Price},
             {other, Meaning::Price},
             {turnover, Meaning::Turnover}},
            RowOf(&kTrades)};
}

TEST(TableAmounts, WorksATurnoverOutOfThePriceThatItIsOf) {
    CHandSheet hand({Trade("4", "0.00", "990.5", "396200.00")});
    Change(hand);
    EXPECT_EQ(hand.Becomes(0, 2), "0.00");
    EXPECT_EQ(hand.Becomes(0, 3), "495.3");
    EXPECT_EQ(hand.Becomes(0, 4), "198120.00") << "4 lots of 100";
}

TEST(TableAmounts, ChangesATurnoverOfNoPriceAsTheFirstPrice) {
    struct Case {
        const char* lots;
        const char* price;
        const char* turnover;
        const char* expected;
    };
    const Case kCases[] = {
        {"1", "3", "10.00", "6.67"},                         // 3 becomes 2, as halves go up
        {"0", "3", "10.00", "6.67"},                         // nothing is the price of no lots
        {"9999999999999", "9999999999.00", "10.00", "5.00"}  // lots times price is beyond all numbers
    };
    for (const Case& one : kCases) {
        CHandSheet hand({Trade(one.lots, one.price, "7.00", one.turnover)});
        Change(hand);
        EXPECT_EQ(hand.Becomes(0, 4), one.expected) << one.lots << " of " << one.price;
    }
}

TEST(TableAmounts, ChangesEqualAmountsOfARowAsItsTurnover) {
    CHandSheet hand({{{{"i2405", Meaning::Contract},
                       {"1", Meaning::Lots},
                       {"3", Meaning::Price},
                       {"30.00", Meaning::Turnover},
                       {"-30.00", Meaning::Money},
                       {"30.00", Meaning::Money},
                       {"31.00", Meaning::Money}},
                      RowOf(&kTrades)}});
    Change(hand);
    EXPECT_EQ(hand.Becomes(0, 3), "20.00");
    EXPECT_EQ(hand.Becomes(0, 4), "-20.00");
    EXPECT_EQ(hand.Becomes(0, 5), "20.00");
    EXPECT_EQ(hand.Becomes(0, 6), "15.50");
}

/// 0.03 becomes 0.02 and -0.02 becomes -0.01: each is what the factor makes of it.
TEST(TableAmounts, LeavesASumThatNoneOfItsCellsCanChange) {
    CHandSheet hand({{{{"0.03", Meaning::Money}}, {}}, {{{"-0.02", Meaning::Money}}, {}}});
    Change(hand);
    EXPECT_EQ(hand.Becomes(0, 0), "0.02");
    EXPECT_EQ(hand.Becomes(1, 0), "-0.01");
}

TEST(TableAmounts, LeavesATradeThatWouldStayWithTheSumOfItsClosedRows) {
    const auto closed = [](std::string_view amount) {
        return HandRow{{{"i2405", Meaning::Contract},
                        {"1", Meaning::Lots},
                        {"5.00", Meaning::Price},
                        {amount, Meaning::ProfitLoss}},
                       RowOf(&kClosed)};
    };
    CHandSheet hand(
        {{{{"i2405", Meaning::Contract}, {"2", Meaning::Lots}, {"5.00", Meaning::Price}, {"0.01", Meaning::ProfitLoss}},
          RowOf(&kTrades)},
         closed("0.03"),
         closed("-0.02")});
    Change(hand);
    EXPECT_EQ(hand.Becomes(1, 3), "0.02");
    EXPECT_EQ(hand.Becomes(2, 3), "-0.01");
    EXPECT_EQ(hand.Becomes(0, 3), "0.00") << "by the factor, but never as it is";
}

HandRow Position(std::string_view lots, std::string_view price, const SheetRow& form) {
    return {{{"i2405", Meaning::Contract}, {"买", Meaning::Side}, {lots, Meaning::Lots}, {price, Meaning::Price}},
            form};
}

/// What the average `price` of `positions` becomes.
std::string AverageOf(std::string_view price, std::vector<HandRow> positions, const CAmountFactor& factor = kHalf) {
    positions.push_back(Position("3", price, {}));
    CHandSheet hand(positions);
    Change(hand, factor);
    return hand.Becomes(positions.size() - 1, 3);
}

TEST(TableAmounts, WorksAnAveragePriceOutOfTheChangedPositions) {
    const SheetRow open = RowOf(&kOpen);
    EXPECT_EQ(AverageOf("101.000", {Position("3", "101", open)}), "51.000") << "101 becomes 51, as halves go up";
    EXPECT_EQ(AverageOf("102.000", {Position("1", "100", open), Position("2", "103", open)}), "51.333")
        << "of 50 and twice 52: but the average of 100 and twice 103 is 102";
    EXPECT_EQ(AverageOf("103.000", {Position("3", "101", open)}), "51.500") << "it is none of them";
}

TEST(TableAmounts, ScalesAnAveragePriceThatNothingIsTheAverageOf) {
    const SheetRow open = RowOf(&kOpen);
    EXPECT_EQ(AverageOf("101.000", {Position("0", "101", open)}), "50.500") << "no lots";
    EXPECT_EQ(AverageOf("101.000", {Position("1000", "9000000000000", open), Position("-999", "1", open)}), "50.500")
        << "beyond all prices";
    const HandRow unpriced{{{"i2405", Meaning::Contract}, {"买", Meaning::Side}, {"3", Meaning::Lots}}, open};
    EXPECT_EQ(AverageOf("101.000", {unpriced}), "50.500");
    EXPECT_EQ(AverageOf("101.000", {unpriced, Position("3", "101", open)}), "51.000");
}

/// 0.0014 becomes 0.0013, and both are 0.001 on average.
TEST(TableAmounts, TakesNoAveragePriceThatIsWhatItWas) {
    EXPECT_EQ(AverageOf("0.001", {Position("1", "0.0014", RowOf(&kOpen))}, CAmountFactor(900000)), "0.002");
}

/// What the P/L of 100.00 of a closed position becomes, whose product has the unit that `told` tells.
std::string ProfitOf(std::string_view lots, std::string_view from, std::string_view to, const HandRow& told,
                     std::int64_t parts, std::string_view profit = "100.00") {
    CHandSheet hand({told,
                     {{{"i2405", Meaning::Contract},
                       {lots, Meaning::Lots},
                       {from, Meaning::Price},
                       {to, Meaning::Price},
                       {profit, Meaning::ProfitLoss}},
                      RowOf(&kClosed)}});
    CUnitBook units;
    units.Feed(hand.Sheet());
    Change(hand, CAmountFactor(parts), units);
    return hand.Becomes(1, 4);
}

TEST(TableAmounts, WorksAProfitOutOfPricesLotsAndUnit) {
    const HandRow told = Trade("1", "10", "10", "100.00");
    EXPECT_EQ(ProfitOf("2", "10", "15", told, 500000), "60.00") << "2 lots of 10, from 5 to 8: 7.5 is rounded";
    EXPECT_EQ(ProfitOf("2", "10", "16", told, 500000), "50.00") << "it isn't the gap of 10 and 16";
}

TEST(TableAmounts, ScalesAProfitWhosePricesAreBeyondAllNumbers) {
    const HandRow none{{{"x", Meaning::Keep}}, {}};
    EXPECT_EQ(ProfitOf("9999999999999", "1.00", "9000000000000.00", none, 500000), "50.00") << "lots times prices";
    const HandRow huge = Trade("1", "0.0001", "0.0001", "9000000000000.00");  // a unit of 9e16
    EXPECT_EQ(ProfitOf("1000", "1.00", "2.00", huge, 500000), "50.00") << "lots times unit";
    EXPECT_EQ(ProfitOf("1", "1.00", "2.00", huge, 500000), "50.00") << "prices times both";
    const HandRow large = Trade("1", "0.01", "0.01", "5000000000000.00");  // a unit of 5e14
    EXPECT_EQ(ProfitOf("1", "0", "1", large, 300000), "30.00") << "and where only the change of 1 into 2 is";
}

}  // namespace
}  // namespace tradebill::table_amounts_test
