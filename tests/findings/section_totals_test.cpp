#include "findings/section_totals.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "findings/section_facts.h"
#include "support/gbk_text.h"

namespace tradebill::section_totals_test {
namespace {

class SectionTotals : public testing::Test {
protected:
    void Begin(std::string_view delimiter, std::initializer_list<std::string_view> rows) {
        delimiter_ = delimiter;
        totals_.Begin(delimiter);
        for (const std::string_view row : rows) Add(row);
    }
    bool Add(std::string_view line) {
        std::vector<std::string_view> columns;
        SplitText(Trim(line), delimiter_, columns);
        return totals_.AddRow(line, columns);
    }
    std::optional<TotalFault> Compare(std::string_view line) { return totals_.Compare(Gbk(line)); }

    CSectionTotals totals_;
    std::string_view delimiter_;
};

TEST_F(SectionTotals, AgreeWithTheSumsOfTheirColumns) {
    Begin(" ", {"rb2405  2   10.50  1.25", "m2405   3  100.25 -2.00"});
    EXPECT_FALSE(Compare("合计    5  110.75 -0.75"));
    EXPECT_FALSE(Compare("合计    5              "));
    EXPECT_FALSE(Compare("合计"));
}

TEST_F(SectionTotals, TellWhatTheRowsAddUpTo) {
    Begin(" ", {"rb2405  2   10.50  1.25", "m2405   3  100.25 -2.00"});
    const auto fault = Compare("合计    6  110.75 -1.75");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->expected, "5; -0.75");
    EXPECT_EQ(fault->found, "6; -1.75");
    EXPECT_FALSE(fault->isWithinRounding);
}

TEST_F(SectionTotals, CountRows) {
    Begin(" ", {"rb2405  2", "m2405   3"});
    EXPECT_FALSE(Compare("共 2条   "));
    EXPECT_FALSE(Compare("共2条"));
    const auto fault = Compare("共 3条");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->expected, "2 rows");
    EXPECT_EQ(fault->found, "3 rows");
}

TEST_F(SectionTotals, ReadColumnsBetweenBars) {
    Begin("|", {"|rb2405 |  2|  10.50|", "|m2405  |  3| 100.25|"});
    EXPECT_FALSE(Compare("|共2条  |  5| 110.75|"));
    EXPECT_FALSE(Compare("   |共2条  |5|110.75|"));
    EXPECT_TRUE(Compare("|共2条  |  4| 110.75|"));
    EXPECT_TRUE(Compare("|共3条  |  5| 110.75|"));
}

TEST_F(SectionTotals, MayBeIndentedOtherwiseThanTheirRows) {
    Begin(" ", {"   rb2405  2   10.50", "    m2405  3  100.25"});
    EXPECT_FALSE(Compare("合计       5  110.75"));
    EXPECT_TRUE(Compare("合计       6  110.75"));
    EXPECT_FALSE(Compare("     合计  5  110.75"));
    EXPECT_TRUE(Compare("     合计  5  110.76"));
}

TEST_F(SectionTotals, AllowForTheRoundingOfTheirAmounts) {
    Begin(" ", {"rb2405   10.50", "m2405   100.25"});
    const auto within = Compare("合计    110.76");
    ASSERT_TRUE(within);
    EXPECT_TRUE(within->isWithinRounding);
    const auto beyond = Compare("合计    110.77");
    ASSERT_TRUE(beyond);
    EXPECT_FALSE(beyond->isWithinRounding);
}

TEST_F(SectionTotals, OfLotsAreNeverRounded) {
    Begin(" ", {"rb2405   10", "m2405    12"});
    const auto fault = Compare("合计     23");
    ASSERT_TRUE(fault);
    EXPECT_FALSE(fault->isWithinRounding);
}

TEST_F(SectionTotals, OfARaggedPrintMayBeTheSumOfAnyColumn) {
    Begin(" ", {"rb2405  2   10.50", "m2405   3  100.25"});
    EXPECT_FALSE(Compare("合计       5110.75"));  // below no column's end
    EXPECT_FALSE(Compare("合计 110.75     5.00"));
}

TEST_F(SectionTotals, OfRowsThatAreGoneAreTold) {
    Begin(" ", {});
    EXPECT_FALSE(Compare("合计   0   0.00"));
    EXPECT_FALSE(Compare("共 0条"));
    const auto fault = Compare("合计   4   120.50");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->expected, "0; 0.00");
    EXPECT_EQ(fault->found, "4; 120.50");
    const auto count = Compare("共 1条   4   120.50");
    ASSERT_TRUE(count);
    EXPECT_EQ(count->expected, "0 rows");
}

TEST_F(SectionTotals, TellOfATextInAColumnOfNumbers) {
    Begin(" ", {"rb2405  2   10.50"});
    EXPECT_TRUE(Add("m2405   3  100.25"));
    EXPECT_FALSE(Add("m2405   x  100.25"));
    EXPECT_FALSE(Add("m2405   3  n/a"));
    EXPECT_FALSE(Add("abc     3  1,000.00"));
}

TEST_F(SectionTotals, ForgetTheSectionBefore) {
    Begin(" ", {"rb2405  2"});
    Begin(" ", {"m2405   3"});
    EXPECT_FALSE(Compare("合计    3"));
    EXPECT_TRUE(Compare("合计    5"));
}

TEST_F(SectionTotals, CompareTheLotsSinceTheLastSubtotal) {
    Begin(" ", {});
    totals_.AddLots(2);
    totals_.AddLots(3);
    EXPECT_FALSE(totals_.CompareLots(Gbk("小计 Subtotal CBOT: 5 手")));
    totals_.AddLots(1);
    const auto fault = totals_.CompareLots(Gbk("小计 Subtotal HKEX: 6 手"));
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->expected, "1 lots");
    EXPECT_EQ(fault->found, "6 lots");
    EXPECT_FALSE(totals_.CompareLots(Gbk("共 4 笔")));
}

TEST_F(SectionTotals, CountTheAmountsOfARow) {
    Begin(" ", {"rb2405  2   10.50"});
    EXPECT_EQ(totals_.CountAmounts(Gbk("合计    2   10.50")), 2);
    EXPECT_EQ(totals_.CountAmounts(Gbk("合计    2   10.5")), 2);
    EXPECT_EQ(totals_.CountAmounts(Gbk("合计    2   1")), 1);
    EXPECT_EQ(totals_.CountAmounts(Gbk("合计    2")), 1);
    EXPECT_EQ(totals_.CountAmounts(Gbk("共 1条")), 0);
    EXPECT_EQ(totals_.CountAmounts(""), 0);
    Begin(" ", {});
    EXPECT_EQ(totals_.CountAmounts(Gbk("合计    0   0.00")), 2);
}

TEST_F(SectionTotals, AWordOfCountingWithoutANumberCountsNothing) {
    Begin(" ", {"rb2405  2"});
    EXPECT_FALSE(Compare("共 条"));
    EXPECT_FALSE(Compare("共 99999999999条"));  // beyond an int
    EXPECT_TRUE(Compare("共 2条"));
}

TEST_F(SectionTotals, TellASumInThePlacesOfItsTotal) {
    const auto expected = [this](std::string_view line) {
        const auto fault = Compare(line);
        return fault ? fault->expected : "";
    };
    Begin("|", {"a|1.5", "b|2.5"});
    EXPECT_EQ(expected("合计|9"), "4");
    EXPECT_EQ(expected("合计|9.0"), "4.00");
    Begin("|", {"a|1.5", "b|2.25"});
    EXPECT_EQ(expected("合计|9"), "3.75");
}

TEST_F(SectionTotals, BeyondTheLastColumnAreOfNone) {
    Begin("|", {"a|1", "b|2"});
    EXPECT_FALSE(Compare("合计|3|99"));
    EXPECT_EQ(totals_.CountAmounts(Gbk("合计|3|99")), 1);
    EXPECT_TRUE(Compare("合计|4|99"));
}

TEST_F(SectionTotals, OfLotsWithoutANumberSayNothing) {
    totals_.Begin(" ");
    totals_.AddLots(3);
    EXPECT_FALSE(totals_.CompareLots(Gbk("小计: 手")));
    totals_.AddLots(3);
    EXPECT_TRUE(totals_.CompareLots(Gbk("小计: 6 手")));  // that of before counts from its row
}

TEST_F(SectionTotals, OfAnotherColumnAreRightUnlessTheyAreNothing) {
    Begin("|", {"a|1|2|0", "b|3|4|0"});
    EXPECT_FALSE(Compare("合计|6|4|0"));
    EXPECT_TRUE(Compare("合计|5|4|0"));
    EXPECT_TRUE(Compare("合计|0|6|0"));
}

TEST_F(SectionTotals, OfNumbersOfTradesAndOfDaysArentCompared) {
    for (const char* const name : {"01", "0012", "20240102", "19991231"}) {
        Begin("|", {std::string("a|") + name + "|5", "b|2|5"});
        EXPECT_FALSE(Compare("合计|9|10")) << name;
    }
    for (const char* const number : {"0", "0.1", "2024010", "2024.102", "30240102"}) {
        Begin("|", {std::string("a|") + number + "|5", "b|2|5"});
        EXPECT_TRUE(Compare("合计|9|10")) << number;
    }
}

}  // namespace
}  // namespace tradebill::section_totals_test
