// What stands above a cell tells what it means.
#include "anonymise/table_heading.h"

#include <gtest/gtest.h>

#include <string_view>

#include "support/gbk_text.h"

namespace tradebill::table_heading_test {
namespace {

TEST(TableHeading, CountsColumnsBehindABarAtTheLinesBeginOrWithoutIt) {
    for (const std::string_view line : {"|手数|成交价|", "手数|成交价", "  |手数|成交价"}) {
        CTableHeading heading;
        heading.AddLine(Gbk(line));
        EXPECT_EQ(heading.AtBar(0), Meaning::Lots) << line;
        EXPECT_EQ(heading.AtBar(1), Meaning::Price) << line;
        EXPECT_EQ(heading.AtBar(2), Meaning::Unknown) << line;
    }
}

TEST(TableHeading, TellsWordsByTheirNumberOrByWhatStandsAbove) {
    CTableHeading heading;
    heading.AddLine(Gbk("手数    成交价"));  // from 0 to 4 and from 8 to 14
    EXPECT_EQ(heading.AtWord({0, 1}, 1, 2), Meaning::Price) << "the second of two";
    EXPECT_EQ(heading.AtWord({0, 1}, 1, 3), Meaning::Lots) << "below the first";
    EXPECT_EQ(heading.AtWord({9, 10}, 1, 3), Meaning::Price);
    EXPECT_EQ(heading.AtWord({5, 7}, 1, 3), Meaning::Unknown);
}

TEST(TableHeading, TellsWordsBelowBarsByTheirPlaceAlone) {
    CTableHeading heading;
    heading.AddLine(Gbk("手数|成交价"));
    EXPECT_EQ(heading.AtWord({0, 1}, 1, 2), Meaning::Lots);
    EXPECT_EQ(heading.AtWord({6, 7}, 0, 2), Meaning::Price);
}

}  // namespace
}  // namespace tradebill::table_heading_test
