// What is found in text without columns.
#include "anonymise/loose_cells.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "anonymise/cell_meaning.h"
#include "support/gbk_text.h"

namespace tradebill::loose_cells_test {
namespace {

struct Found {
    Meaning meaning;
    std::string text;

    bool operator==(const Found&) const = default;
};

std::vector<Found> FindIn(std::string_view text) {
    std::vector<SheetCell> cells;
    AddLooseCells(text, 0, cells);
    std::vector<Found> found;
    for (const SheetCell& cell : cells) found.push_back({cell.meaning, std::string(text.substr(cell.at, cell.size))});
    return found;
}

TEST(LooseCells, FindsDatesAmountsAndLongNumbers) {
    EXPECT_EQ(
        FindIn(Gbk("于2024年01月03日出金-1,500.00元，单号778812")),
        (std::vector<Found>{
            {Meaning::Date, Gbk("2024年01月03日")}, {Meaning::Money, "-1,500.00"}, {Meaning::Identity, "778812"}}));
    EXPECT_EQ(FindIn("~5.63%"), (std::vector<Found>{{Meaning::Ratio, "5.63"}}));
    EXPECT_EQ(FindIn("1,500"), (std::vector<Found>{{Meaning::Money, "1,500"}}));
    EXPECT_EQ(FindIn("1.55,300"), (std::vector<Found>{{Meaning::Money, "1.55"}}));  // no thousands behind the point
    EXPECT_EQ(FindIn("1.55.300"), (std::vector<Found>{{Meaning::Money, "1.55"}}));
    EXPECT_EQ(FindIn("123456:"), (std::vector<Found>{{Meaning::Identity, "123456"}}));
    EXPECT_EQ(FindIn("123456:x"), (std::vector<Found>{{Meaning::Identity, "123456"}}));
}

TEST(LooseCells, LeavesContractsTimesAndCounts) {
    for (const std::string_view text :
         {"m2405-C-3000", "cu2402", "13:07:15", "T+1", "1234", "au2402P496.5", "T_123456"}) {
        EXPECT_EQ(FindIn(text), std::vector<Found>{}) << text;
    }
    EXPECT_EQ(FindIn(Gbk("共 123456 手")), std::vector<Found>{});
    EXPECT_EQ(FindIn("100000 lots"), std::vector<Found>{});
}

}  // namespace
}  // namespace tradebill::loose_cells_test
