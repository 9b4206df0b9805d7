// Dates as statements print them, moved by whole weeks in as many bytes.
#include "anonymise/day_shift.h"

#include <gtest/gtest.h>

#include "support/gbk_text.h"

namespace tradebill::day_shift_test {
namespace {

TEST(DayShift, FindsDatesOfAllForms) {
    EXPECT_EQ(DateLengthAt("20240131o.txt"), 8u);
    EXPECT_EQ(DateLengthAt("2024-01-31"), 10u);
    EXPECT_EQ(DateLengthAt("2024/1/3 x"), 8u);
    EXPECT_EQ(DateLengthAt("2024.01.31"), 10u);
    EXPECT_EQ(DateLengthAt(Gbk("2024年1月3日")), 12u);
}

TEST(DayShift, TakesNoOtherNumberForADate) {
    for (const char* const text :
         {"00068138", "20241301", "20240230", "202401311", "2024", "2024-01/31", "19691231", "2024.5", "123456.78"}) {
        EXPECT_EQ(DateLengthAt(text), 0u) << text;
    }
}

TEST(DayShift, MovesByWeeks) {
    EXPECT_EQ(ShiftedDate("20240229", 1), "20240307");
    EXPECT_EQ(ShiftedDate("2024-01-02", -1), "2023-12-26");
    EXPECT_EQ(ShiftedDate(Gbk("2024年01月02日"), 2), Gbk("2024年01月16日"));
    EXPECT_EQ(ShiftedDate("20240102", 0), "20240102");
    EXPECT_EQ(ShiftedDay("20240102", 52), "20241231");
    EXPECT_FALSE(ShiftedDay("00068138", 1));
    EXPECT_FALSE(ShiftedDay("2024-01-02", 1)) << "a date, but not as files are named by";
}

TEST(DayShift, KeepsTheBytesWhereADateGrows) {
    EXPECT_EQ(ShiftedDate("2024/1/3", 1), "0000/0/0");  // 2024/1/10 is longer
    EXPECT_EQ(ShiftedDate("2024/1/1", 1), "2024/1/8");
}

}  // namespace
}  // namespace tradebill::day_shift_test
