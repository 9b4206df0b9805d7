#include "page/table_columns.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "base/number.h"
#include "page/page_fixture.h"

namespace tradebill::table_columns_test {
namespace {

constexpr CellClasses kClasses{.normal = "plain", .bid = "red", .ask = "green"};

struct TransferRecord {
    char BANK[8];
    char AMOUNT[8];
};

struct TransferRow {
    const TransferRecord& record;
    std::string_view note;
    bool bought;
    double amount;
};

struct TransferSums {
    CNumberText amountText;
    double amount;
};

constexpr TransferRecord kRecord{.BANK =
                                     " \xA1\xA1"
                                     "ab ",
                                 .AMOUNT = "-1.5"};
constexpr TransferRow kRow{.record = kRecord, .note = "note", .bought = true, .amount = -1.5};

std::string Shown(const CCellContent<TransferRow>& content, const TransferRow& row = kRow) {
    const OpenedCell cell = content.CellOf(row, kClasses);
    return std::string(cell.text) + "/" + std::string(cell.opening);
}

TEST(CellContent, IsAnEmptyPlainCellAtFirst) {
    EXPECT_EQ(Shown({}), "/plain");
}

TEST(CellContent, ShowsItsWordsInEveryRow) {
    EXPECT_EQ(Shown(std::string_view("   ")), "   /plain");
}

TEST(CellContent, ShowsAFieldOfTheRecord) {
    EXPECT_EQ(Shown(FieldOf<&TransferRecord::BANK>),
              " \xA1\xA1"
              "ab /plain");
    EXPECT_EQ(Shown(TrimmedFieldOf<&TransferRecord::BANK>), "ab /plain");
}

TEST(CellContent, ShowsATextOfTheRow) {
    EXPECT_EQ(Shown(TextOf<&TransferRow::note>), "note/plain");
}

TEST(CellContent, ShowsAPriceInTheColumnOfItsSideOnly) {
    const TransferRow sold{.record = kRecord, .note = "", .bought = false, .amount = 0};
    EXPECT_EQ(Shown(BuyPrice<&TransferRecord::AMOUNT>), "-1.5/plain");
    EXPECT_EQ(Shown(SellPrice<&TransferRecord::AMOUNT>), "/plain");
    EXPECT_EQ(Shown(BuyPrice<&TransferRecord::AMOUNT>, sold), "/plain");
    EXPECT_EQ(Shown(SellPrice<&TransferRecord::AMOUNT>, sold), "-1.5/plain");
}

TEST(CellContent, HasTheClassOfAnAmountsSign) {
    const CCellContent<TransferRow> content{TextOf<&TransferRow::note>, BySign<&TransferRow::amount>};
    EXPECT_EQ(Shown(content), "note/green");
    EXPECT_EQ(Shown(content, {.record = kRecord, .note = "", .bought = true, .amount = 0}), "/plain");
    EXPECT_EQ(Shown(content, {.record = kRecord, .note = "", .bought = true, .amount = 2}), "/red");
}

struct TransferContent {
    CCellContent<TransferRow> transfer;
    CCellContent<TransferSums> total = {};
};

constexpr PageColumn<TransferContent> kColumns[] = {
    {{"bank", "60%"}, {TrimmedFieldOf<&TransferRecord::BANK>, std::string_view("sum")}},
    {{"paid", "40%"},
     {{FieldOf<&TransferRecord::AMOUNT>, BySign<&TransferRow::amount>},
      {TextOf<&TransferSums::amountText>, BySign<&TransferSums::amount>}}},
};

constexpr TableSection kTable{
    .title = {.title = "t", .handler = "h", .buttonId = "b", .picture = "p.jpg", .titleTail = "", .heightTail = ""},
    .tableId = "tab",
    .classes = kClasses,
    .sums = {.normal = "sum", .bid = "sumred", .ask = "sumgreen"},
};

class ColumnTable : public PageFixture {};

TEST_F(ColumnTable, ShowsHeadingsRecordsAndSumsColumnByColumn) {
    CHtmlBuilder page(path_);
    CColumnTable<TransferContent> table(page, report, kTable, kColumns);
    table.Add(&TransferContent::transfer, kRow, "band");
    table.AddSums(&TransferContent::total, TransferSums{.amountText = CNumberText(7.0), .amount = 7}, "");
    table.Flush();
    const std::string written = TableTop("tab", "plain", {{"bank", "60%"}, {"paid", "40%"}}) +
                                HtmlRow("band", "plain", {"ab ", "-1.5"}, {{1, "green"}}) +
                                HtmlRow("", "sum", {"sum", "7.00"}, {{1, "sumred"}});
    EXPECT_TRUE(Page().ends_with(written)) << Page();
}

}  // namespace
}  // namespace tradebill::table_columns_test
