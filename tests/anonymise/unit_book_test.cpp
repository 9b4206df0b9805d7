// What a row names and holds, and the units that turnovers tell.
#include "anonymise/unit_book.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

#include "anonymise/hand_sheet.h"

namespace tradebill::unit_book_test {
namespace {

/// The unit that a row of these cells tells of its contract; nothing if it tells none.
std::optional<std::int64_t> UnitOf(const std::vector<HandCell>& cells) {
    CHandSheet hand({{cells, {}}});
    CUnitBook units;
    units.Feed(hand.Sheet());
    return units.Of(FactsOf(hand.Sheet(), hand.Sheet().rows.front()).contract);
}

TEST(UnitBook, WorksTheUnitOutOfTurnoverPriceAndLots) {
    EXPECT_EQ(UnitOf({{"i2405", Meaning::Contract},
                      {"4", Meaning::Lots},
                      {"990.5", Meaning::Price},
                      {"396200.00", Meaning::Turnover}}),
              100);
    EXPECT_EQ(UnitOf({{"i2405", Meaning::Contract},
                      {"4", Meaning::Lots},
                      {"--", Meaning::Price},
                      {"7.3", Meaning::Price},
                      {"990.5", Meaning::Price},
                      {"396200.00", Meaning::Turnover},
                      {"--", Meaning::Turnover}}),
              100)
        << "what is no number counts for nothing, nor a price that the turnover isn't of";
}

TEST(UnitBook, NamesAContractByProductAndDeliveryWhereTheyStandApart) {
    const std::vector<HandCell> cells = {{"铁矿石", Meaning::Product},
                                         {"2405", Meaning::Delivery},
                                         {"1", Meaning::Lots},
                                         {"100.00", Meaning::Price},
                                         {"1000.00", Meaning::Turnover}};
    EXPECT_EQ(UnitOf(cells), 10);
    CHandSheet hand({{cells, {}}});
    EXPECT_EQ(FactsOf(hand.Sheet(), hand.Sheet().rows.front()).contract, Gbk("铁矿石/2405"));
}

TEST(UnitBook, TakesNoUnitFromARowThatLacksOne) {
    EXPECT_EQ(UnitOf({{"1", Meaning::Lots}, {"100.00", Meaning::Price}, {"1000.00", Meaning::Turnover}}), std::nullopt)
        << "no contract";
    EXPECT_EQ(UnitOf({{"i2405", Meaning::Contract}, {"1", Meaning::Lots}, {"100.00", Meaning::Price}}), std::nullopt)
        << "no turnover";
    EXPECT_EQ(UnitOf({{"i2405", Meaning::Contract}, {"100.00", Meaning::Price}, {"1000.00", Meaning::Turnover}}),
              std::nullopt)
        << "no lots";
    EXPECT_EQ(UnitOf({{"i2405", Meaning::Contract},
                      {"9999999999999", Meaning::Lots},
                      {"9999999999999", Meaning::Price},
                      {"1000.00", Meaning::Turnover}}),
              std::nullopt)
        << "lots of that price cost more than there are numbers";
}

TEST(UnitBook, MultipliesWhatFits) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(ProductOf(kMost, -1), -kMost);
    EXPECT_EQ(ProductOf(kMost / 2 + 1, 2), std::nullopt);
}

}  // namespace
}  // namespace tradebill::unit_book_test
