// Numbers in their own width, and the factor that they shrink by.
#include "anonymise/amount_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tradebill::amount_text_test {
namespace {

/// A printed number as it is written back.
std::string Again(std::string_view text) {
    const auto number = ParsePrinted(text);
    return number ? PrintedText(number->steps, *number) : "none";
}

TEST(AmountText, WritesNumbersInTheirOwnForm) {
    for (const char* const text : {"0.00", "12", "-12.5", "4,518,264.80", "-1,000", "+3.0", "0.0001", "999.99"}) {
        EXPECT_EQ(Again(text), text);
    }
    EXPECT_EQ(Again("1.23456"), "1.23450");  // digits behind the fourth place are nobody's amounts
    EXPECT_EQ(Again("cu2402"), "none");
    EXPECT_EQ(Again("5.63%"), "none");
}

TEST(AmountText, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(RoundedTo(10050, 2), 10100);
    EXPECT_EQ(RoundedTo(10049, 2), 10000);
    EXPECT_EQ(RoundedTo(-10050, 2), -10100);
    EXPECT_EQ(RoundedTo(14999, 0), 10000);
    EXPECT_EQ(RoundedTo(15000, 0), 20000);
    EXPECT_EQ(RoundedTo(7, 4), 7);
}

TEST(AmountText, ScalesToThePlacesOfTheAmount) {
    const CAmountFactor half(500000);
    EXPECT_EQ(half.OfAmount(1234500, 2), 617300);  // 123.45 / 2 = 61.725
    EXPECT_EQ(half.OfAmount(-10000, 0), 0);        // -1 / 2 rounds to -1, which it was
    EXPECT_EQ(half.OfAmount(0, 2), 0);
    EXPECT_EQ(half.OfRest(100, 2), 100);  // a cent left over may stay
    EXPECT_EQ(half.OfRest(1, 4), 1);      // half a step, away from 0
    EXPECT_EQ(half.OfRest(-1, 4), -1);
}

TEST(AmountText, LeavesNoAmountAsItWas) {
    const CAmountFactor nearlyOne(900000);
    EXPECT_EQ(nearlyOne.OfAmount(100, 2), 0);    // 0.01
    EXPECT_EQ(nearlyOne.OfAmount(400, 2), 300);  // 0.04 x 0.9 = 0.036
    EXPECT_EQ(nearlyOne.OfAmount(-400, 2), -300);
    EXPECT_EQ(nearlyOne.OfAmount(500, 2), 400);  // 0.05 x 0.9 = 0.045 rounds to 0.05, which it was
}

TEST(AmountText, KeepsPricesAboveNothing) {
    const CAmountFactor small(300000);
    EXPECT_EQ(small.OfPrice(10000, 0), 20000);  // 1: neither 0 nor 1
    EXPECT_EQ(small.OfPrice(5000, 1), 2000);    // 0.5 x 0.3 = 0.15
    EXPECT_EQ(small.OfPrice(0, 1), 0);
    EXPECT_EQ(small.OfPrice(-10000, 0), -20000);
    EXPECT_EQ(CAmountFactor(10000).OfPrice(20000, 0), 10000);  // 2 x 0.01 would be 0
}

TEST(AmountText, HasNoUnitBelowTheFourthPlace) {
    EXPECT_EQ(UnitOf(0), 10000);
    EXPECT_EQ(UnitOf(4), 1);
    EXPECT_EQ(UnitOf(6), 1);
}

TEST(AmountText, HoldsTheLargestNumbers) {
    const CAmountFactor half(500000);
    const auto most = ParsePrinted("9999999999999.9999");
    ASSERT_TRUE(most);
    EXPECT_EQ(PrintedText(half.OfAmount(most->steps, most->places), *most), "5000000000000.0000");
}

struct Put {
    const char* text;
    std::size_t at;
    std::size_t size;
    const char* number;
    const char* expected;  ///< null: it doesn't fit
};

TEST(AmountText, PutsNumbersIntoTheirWidth) {
    constexpr Put kCases[] = {
        {"   123.45 x", 3, 6, "61.73", "    61.73 x"},    // right-aligned: the blank goes in front
        {"|123.45 |", 1, 6, "61.73", "|61.73  |"},        // left-aligned between bars
        {"|  123.45|", 3, 6, "61.73", "|   61.73|"},      //
        {"|123.45|", 1, 6, "61.73", "| 61.73|"},          // as wide as its column
        {"B/F:123.45 x", 4, 6, "61.73", "B/F:61.73  x"},  // a value stays at its label
        {"a   9.00", 4, 4, "-10.00", "a -10.00"},         // a longer one takes blanks
        {"a  9.00", 3, 4, "-10.00", nullptr},             // but for the last
        {"|  9.00|", 3, 4, "-10.00", "|-10.00|"},         // which a bar makes needless
        {"| 9.00|", 2, 4, "-10.00", nullptr},
        {"123.45 x", 0, 6, "61.73", " 61.73 x"},  // at the start and at the end of all
        {"|123.45", 1, 6, "61.73", "| 61.73"},
        {"  9.00", 2, 4, "-10.00", "-10.00"},
        {" 9.00", 1, 4, "-10.00", nullptr},
        {"\n  9.00", 3, 4, "-10.00", "\n-10.00"},  // the line's start parts it from what is before
    };
    for (const Put& row : kCases) {
        std::string text = row.text;
        EXPECT_EQ(PutNumber(text, {row.at, row.size}, row.number), row.expected != nullptr) << row.text;
        EXPECT_EQ(text, row.expected != nullptr ? row.expected : row.text);
    }
}

}  // namespace
}  // namespace tradebill::amount_text_test
