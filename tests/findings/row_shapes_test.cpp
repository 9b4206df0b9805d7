#include "findings/row_shapes.h"

#include <gtest/gtest.h>

#include <string>

#include "support/gbk_text.h"

namespace tradebill::row_shapes_test {
namespace {

TEST(RowShapes, TakesRowsWithoutDigitsForHeadings) {
    EXPECT_TRUE(IsHeadingRow(Gbk("成交日期 交易所 品种")));
    EXPECT_TRUE(IsHeadingRow("|Date|Exchange|"));
    EXPECT_FALSE(IsHeadingRow(Gbk("第2页")));
}

TEST(RowShapes, KnowsTotalsByTheirFirstWord) {
    for (const char* const row : {"合计 1 2", "  小计", "总计", "共 9条", "|共9条   | 1", "| 合计 |", "共计 5",
                                  "Total 3", "Subtotal CBOT: 6"}) {
        EXPECT_TRUE(IsTotalRow(Gbk(row))) << row;
    }
    for (const char* const row : {"20240110 上期所 合计", "m2405", "", "|20240110|共|"})
        EXPECT_FALSE(IsTotalRow(Gbk(row))) << row;
}

TEST(RowShapes, CountsColumnsAsAReaderCutsThem) {
    EXPECT_EQ(CountColumns("a  b c ", " ", false), 3U);
    EXPECT_EQ(CountColumns("a  b c", "  ", false), 2U);
    EXPECT_EQ(CountColumns("| a | b |", "|", false), 2U);
    EXPECT_EQ(CountColumns("|a b|", " ", true), 2U);
    EXPECT_EQ(CountColumns("|a b|", " ", false), 2U);
    EXPECT_EQ(CountColumns("| a b |", " ", true), 2U);
    EXPECT_EQ(CountColumns("", " ", false), 0U);
}

TEST(RowShapes, TakesTheLastRowThatIsNeitherRuleNorDataForTheHeading) {
    EXPECT_EQ(HeadingColumns("-----\r\na b c\r\n-----\r\n", " ", false), 3U);
    EXPECT_EQ(HeadingColumns("a b c\r\nd e\r\n1 2 3 4\r\n", " ", false), 2U);
    EXPECT_EQ(HeadingColumns("-----\r\n1 2\r\n\r\n", " ", false), 0U);
    EXPECT_EQ(HeadingColumns("", " ", false), 0U);
}

}  // namespace
}  // namespace tradebill::row_shapes_test
