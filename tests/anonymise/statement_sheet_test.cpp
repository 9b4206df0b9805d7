// What the cells of a statement mean, by what its reader told, by headings and labels, and by their look.
#include "anonymise/statement_sheet.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "anonymise/cell_meaning.h"
#include "anonymise/hand_sheet.h"
#include "anonymise/sheet_watch.h"
#include "support/gbk_text.h"

namespace tradebill::statement_sheet_test {
namespace {

struct Found {
    Meaning meaning;
    std::string text;  ///< UTF-8 in expectations

    bool operator==(const Found&) const = default;
};

std::vector<Found> CellsOf(const StatementSheet& sheet) {
    std::vector<Found> found;
    for (const SheetCell& cell : sheet.cells) found.push_back({cell.meaning, std::string(sheet.TextOf(cell))});
    return found;
}

/// Of a text that no reader has told anything of.
std::vector<Found> CellsIn(std::string_view utf8) {
    const std::string text = Gbk(utf8);
    const CSheetWatch watch(text);
    return CellsOf(MakeSheet(text, watch));
}

/// Of the row `text`, whose part `told` fills `field`.
std::vector<Found> CellsWith(const std::string& text, std::string_view told, std::string_view field) {
    CSheetWatch watch(text);
    const std::string_view columns[] = {std::string_view(text).substr(text.find(told), told.size())};
    const ColumnSeen column{.column = 0, .field = field, .isAmount = false};
    watch.OnSection(SectionAs(SectionKind::Trades));
    watch.OnColumns({&column, 1});
    watch.OnRow(text, columns, {});
    watch.Finish();
    return CellsOf(MakeSheet(text, watch));
}

using Cells = std::vector<Found>;

TEST(StatementSheet, TellsNumbersOfNoMeaningByTheirLook) {
    EXPECT_EQ(CellsIn("2405"), (Cells{{Meaning::Keep, "2405"}})) << "a month";
    EXPECT_EQ(CellsIn("412"), (Cells{{Meaning::Keep, "412"}})) << "a month";
    EXPECT_EQ(CellsIn("2400"), (Cells{{Meaning::Money, "2400"}})) << "there is no month 0";
    EXPECT_EQ(CellsIn("2413"), (Cells{{Meaning::Money, "2413"}}));
    EXPECT_EQ(CellsIn("99"), (Cells{{Meaning::Keep, "99"}})) << "small";
    EXPECT_EQ(CellsIn("-99"), (Cells{{Meaning::Keep, "-99"}}));
    EXPECT_EQ(CellsIn("-150"), (Cells{{Meaning::Money, "-150"}}));
    EXPECT_EQ(CellsIn("+150"), (Cells{{Meaning::Money, "+150"}}));
    EXPECT_EQ(CellsIn("0123"), (Cells{{Meaning::Identity, "0123"}})) << "no amount begins with a 0";
    EXPECT_EQ(CellsIn("12345"), (Cells{{Meaning::Identity, "12345"}}));
    EXPECT_EQ(CellsIn("1,500"), (Cells{{Meaning::Money, "1,500"}}));
    EXPECT_EQ(CellsIn("2024-01-03"), (Cells{{Meaning::Date, "2024-01-03"}}));
    EXPECT_EQ(CellsIn("20240103"), (Cells{{Meaning::Date, "20240103"}}));
}

TEST(StatementSheet, LeavesADateBelowAnotherHeadingToThat) {
    EXPECT_EQ(CellsIn("成交编号|手数\n20240103|3"), (Cells{{Meaning::Identity, "20240103"}, {Meaning::Lots, "3"}}));
}

TEST(StatementSheet, TakesAWordBetweenBarsForAnotherHeading) {
    EXPECT_EQ(CellsIn("手数|手数\n3|4\n|成交价|\n|5|"),
              (Cells{{Meaning::Lots, "3"}, {Meaning::Lots, "4"}, {Meaning::Price, "5"}}));
}

TEST(StatementSheet, TakesALoneWordForATitleWithinItsTable) {
    EXPECT_EQ(CellsIn("手数|手数\n3|4\n成交价\n5|6"),
              (Cells{{Meaning::Lots, "3"}, {Meaning::Lots, "4"}, {Meaning::Lots, "5"}, {Meaning::Lots, "6"}}));
}

TEST(StatementSheet, PartsLabelsFromValuesByColonsButNotTimes) {
    EXPECT_EQ(CellsIn(":1.50"), (Cells{{Meaning::Money, "1.50"}}));
    EXPECT_EQ(CellsIn("电话1: 02112345678"), (Cells{{Meaning::Name, "02112345678"}}));
    EXPECT_EQ(CellsIn("电话1:"), Cells{});
    EXPECT_EQ(CellsIn("13:07:15"), Cells{});
}

TEST(StatementSheet, TakesWordsOfTheClientBetweenBarsForLabels) {
    EXPECT_EQ(CellsIn("客户号|90010002|Client Name|Li|姓名|王五|客户权益|777"), (Cells{{Meaning::Identity, "90010002"},
                                                                                       {Meaning::Name, "Li"},
                                                                                       {Meaning::Name, Gbk("王五")},
                                                                                       {Meaning::Money, "777"}}));
}

TEST(StatementSheet, TakesWhatStandsBehindTheClientsNumberForTheName) {
    EXPECT_EQ(CellsIn("客户号: 90010002 李小龙"),
              (Cells{{Meaning::Identity, "90010002"}, {Meaning::Name, Gbk("李小龙")}}));
    EXPECT_EQ(CellsIn("出金: 1.50 778812"), (Cells{{Meaning::Money, "1.50"}, {Meaning::Identity, "778812"}}))
        << "of another label it isn't";
}

TEST(StatementSheet, ReadsALabelBehindALabelWithoutAValue) {
    EXPECT_EQ(CellsIn("客户号：姓名：李四 币种：CNY"),
              (Cells{{Meaning::Name, Gbk("李四")}, {Meaning::Currency, "CNY"}}));
}

TEST(StatementSheet, TakesAWordThatAFieldIsFilledFromForNoName) {
    const std::string text = Gbk("客户号: 90010002  CNY");
    CSheetWatch watch(text);
    const std::string_view word = std::string_view(text).substr(text.find("CNY"));
    watch.OnLabelledValue({.field = "CURRENCY", .printed = word, .kept = word});
    watch.Finish();
    EXPECT_EQ(CellsOf(MakeSheet(text, watch)), (Cells{{Meaning::Identity, "90010002"}, {Meaning::Currency, "CNY"}}));
    EXPECT_EQ(CellsIn("客户号: 90010002  CNY"), (Cells{{Meaning::Identity, "90010002"}, {Meaning::Name, "CNY"}}));
}

TEST(StatementSheet, TakesAmountsInAColumnOfDatesForMoney) {
    EXPECT_EQ(CellsWith("1.50", "1.50", "MATCH_DATE"), (Cells{{Meaning::Money, "1.50"}}));
    EXPECT_EQ(CellsWith("1,500", "1,500", "MATCH_DATE"), (Cells{{Meaning::Money, "1,500"}}));
    EXPECT_EQ(CellsWith("20240103", "20240103", "MATCH_DATE"), (Cells{{Meaning::Date, "20240103"}}));
}

TEST(StatementSheet, TakesAnAmountInATotalBelowNumbersOfTradesForMoney) {
    EXPECT_EQ(CellsWith(Gbk("合计|1.50"), "1.50", "MATCHNO"), (Cells{{Meaning::Money, "1.50"}}));
    EXPECT_EQ(CellsWith(Gbk("合计|150"), "150", "MATCHNO"), (Cells{{Meaning::Unknown, "150"}}));
}

TEST(StatementSheet, FindsACellByWhereItBegins) {
    const std::string text = "1.50  2.50";
    const CSheetWatch watch(text);
    StatementSheet sheet = MakeSheet(text, watch);
    ASSERT_EQ(sheet.cells.size(), 2u);
    EXPECT_EQ(sheet.CellAt(6), &sheet.cells[1]);
    EXPECT_EQ(sheet.CellAt(5), nullptr);
    EXPECT_EQ(sheet.CellAt(7), nullptr) << "behind the last one";
}

TEST(StatementSheet, CountsACellWithoutANumberAsNothing) {
    SheetCell cell{.at = 0, .size = 2};
    EXPECT_EQ(cell.Now(), 0);
    cell.number = PrintedNumber{.steps = 15000};
    EXPECT_EQ(cell.Now(), 15000);
    cell.changed = 7000;
    EXPECT_EQ(cell.Now(), 7000);
}

}  // namespace
}  // namespace tradebill::statement_sheet_test
