// Totals below rows that have been changed by hand, with a factor of a half for what is no sum of theirs.
#include "anonymise/table_totals.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>

#include "anonymise/amount_text.h"
#include "anonymise/hand_sheet.h"

namespace tradebill::table_totals_test {
namespace {

constexpr SheetRow kTotal{.firstCell = 0, .cells = 0, .table = 0, .isTotal = true};

HandRow Row(std::string_view amount) {
    return {{{"i2405", Meaning::Contract}, {amount, Meaning::Money}}, {}};
}

HandRow Total(std::string_view first, std::string_view second) {
    return {{{first}, {second}}, kTotal};
}

/// Rows of 0.03 become 0.02, as the factor makes each of them.
void ChangeRowsAndTotals(CHandSheet& hand) {
    const CAmountFactor kHalf(500000);
    CTableTotals totals(hand.Sheet(), kHalf);
    for (SheetRow& row : hand.Sheet().rows) {
        for (std::size_t i = row.firstCell; i < row.firstCell + row.cells; ++i) {
            SheetCell& cell = hand.Sheet().cells[i];
            if (!row.isTotal && cell.number) cell.changed = kHalf.OfAmount(cell.number->steps, cell.number->places);
        }
        totals.Take(row);
    }
}

TEST(TableTotals, AddsUpTheRowsSinceTheLastTotalOrAll) {
    CHandSheet hand(
        {Row("0.03"), Row("0.03"), Total("小计", "0.06"), Row("0.03"), Total("小计", "0.03"), Total("合计", "0.09")});
    ChangeRowsAndTotals(hand);
    EXPECT_EQ(hand.Becomes(2, 1), "0.04");
    EXPECT_EQ(hand.Becomes(4, 1), "0.02");
    EXPECT_EQ(hand.Becomes(5, 1), "0.06");
}

/// Where the print is ragged.
TEST(TableTotals, FindsATotalThatStandsBelowAnotherColumn) {
    CHandSheet hand({Row("0.03"), Row("0.03"), Total("小计", "0.06"), Row("0.05"), Total("0.05", "小计"),
                     Total("0.11", "合计"), Total("0.08", "别的")});
    ChangeRowsAndTotals(hand);
    EXPECT_EQ(hand.Becomes(4, 0), "0.03") << "0.05 becomes 0.03";
    EXPECT_EQ(hand.Becomes(5, 0), "0.07") << "of twice 0.02 and 0.03";
    EXPECT_EQ(hand.Becomes(6, 0), "0.04") << "it is the sum of nothing";
}

TEST(TableTotals, LeavesTotalsThatAreChangedAlready) {
    CHandSheet hand({Row("0.03"), Total("合计", "0.03")});
    hand.Cell(1, 1).changed = 700;
    ChangeRowsAndTotals(hand);
    EXPECT_EQ(hand.Becomes(1, 1), "0.07");
}

}  // namespace
}  // namespace tradebill::table_totals_test
