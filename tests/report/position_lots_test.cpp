#include "report/position_lots.h"

#include <gtest/gtest.h>

#include <string_view>

#include "base/text.h"
#include "report/records.h"
#include "support/gbk_text.h"

namespace tradebill::position_lots_test {
namespace {

OpiSum Sum(std::string_view bid, std::string_view lots, std::string_view bought = "", std::string_view sold = "") {
    OpiSum row{};
    CopyField(row.BID, Gbk(bid));
    CopyField(row.POSITION_VOL, lots);
    CopyField(row.BID_POSITION_VOL, bought);
    CopyField(row.ASK_POSITION_VOL, sold);
    return row;
}

TEST(PositionLots, AreStatedByTheDetail) {
    OpiDetail row{};
    CopyField(row.POSITION_VOL, "12");
    EXPECT_EQ(LotsOf(row), 12);
}

TEST(PositionLots, AreThoseOfTheRowsSideWhereASummaryShowsBoth) {
    EXPECT_EQ(LotsOf(Sum("买", "", "3", "5")), 3);
    EXPECT_EQ(LotsOf(Sum("卖", "", "3", "5")), 5);
    EXPECT_EQ(LotsOf(Sum("买", "7", "3", "5")), 7);
    EXPECT_EQ(LotsOf(Sum("卖", "0", "3", "5")), 0);
    EXPECT_EQ(LotsOf(Sum("买", "")), 0);
}

}  // namespace
}  // namespace tradebill::position_lots_test
