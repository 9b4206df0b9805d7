// Labels and tables in sheets, wherever they stand.
#include "intake/sheet_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/workbook.h"
#include "support/made_cells.h"

namespace tradebill::sheet_table_test {
namespace {

TEST(Words, AreBareWithoutBlanksOfAnyWidthAndWithoutAColonAtTheEnd) {
    EXPECT_EQ(BareWord(" 手 续\n费\u3000"), "手续费");
    EXPECT_EQ(BareWord("资金账户："), "资金账户");
    EXPECT_EQ(BareWord("资金账户:"), "资金账户");
    EXPECT_EQ(BareWord("买/卖"), "买/卖");
    EXPECT_EQ(BareWord(""), "");
    EXPECT_EQ(BareWord(std::string(200, 'x')), std::string(200, 'x'));
    EXPECT_EQ(BareWord(std::string(201, 'x')), "");
}

TEST(Values, AreNoneForDashes) {
    const auto valueOf = [](std::string_view text) { return std::string(ValueOf({.text = text})); };
    EXPECT_EQ(valueOf(" \u3000 12 3\u00A0"), "12 3");
    EXPECT_EQ(valueOf(" -- "), "");
    EXPECT_EQ(valueOf("-"), "");
    EXPECT_EQ(valueOf("-1"), "-1");
    EXPECT_EQ(valueOf(""), "");
}

class Sheets : public testing::Test {
protected:
    MadeSheet made_{.name = "a"};
    Workbook workbook_;

    const WorkbookSheet& Sheet() {
        workbook_ = Filled({made_});
        return workbook_.sheets.front();
    }
    std::vector<std::string> TextsOf(const CSheetTable& table, std::string_view heading) const {
        std::vector<std::string> texts;
        for (const CTableRow& row : table.Rows()) texts.emplace_back(row.Text(heading));
        return texts;
    }
};

TEST_F(Sheets, GiveTheValueBehindALabelInWhateverColumn) {
    made_.Put(3, 2, "资金 账户：");
    made_.Put(3, 3, "  ");
    made_.Put(3, 6, "9001");
    made_.Put(4, 0, "空");
    made_.Put(6, 0, "资金账户");
    made_.Put(6, 1, "9003");
    made_.Put(5, 0, "9002");
    const WorkbookCell* const cell = CSheetLabels(Sheet()).Find("资金账户");
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->text, "9001");
    EXPECT_EQ(CSheetLabels(Sheet()).Find("空"), nullptr);
    EXPECT_EQ(CSheetLabels(Sheet()).Find("无"), nullptr);
}

TEST_F(Sheets, HaveTablesWhoseColumnsAreFoundByTheirHeadings) {
    made_.PutRow(0, {"手数", "只有一个"});
    made_.Put(4, 5, "合约");
    made_.Put(4, 1, "手 数");
    made_.Put(5, 5, "b");
    made_.Put(5, 1, "--");
    made_.Put(6, 5, "a");
    made_.Put(6, 1, "2");
    made_.Put(7, 0, "合 计");
    made_.Put(7, 1, "3");
    made_.Put(8, 5, "behind");
    const auto table = CSheetTable::Find(Sheet(), {"合约", "手数"});
    ASSERT_TRUE(table);
    EXPECT_EQ(TextsOf(*table, "合约"), (std::vector<std::string>{"b", "a"}));
    EXPECT_EQ(TextsOf(*table, "手数"), (std::vector<std::string>{"", "2"}));
    EXPECT_EQ(table->Rows()[1].Number(), 7u);
    EXPECT_TRUE(table->Rows()[0].HasColumn("手数"));
    EXPECT_FALSE(table->Rows()[0].HasColumn("别的"));
    ASSERT_TRUE(table->Totals());
    EXPECT_EQ(table->Totals()->Text("手数"), "3");
}

TEST_F(Sheets, HaveTablesThatEndAtTheFirstRowThatIsntFilled) {
    made_.PutRow(0, {"合约", "手数"});
    made_.PutRow(1, {"a", "1"});
    made_.PutRow(3, {"b", "2"});
    made_.PutRow(4, {"", "注：说明"});
    made_.PutRow(5, {"c", "3"});
    const auto table = CSheetTable::Find(Sheet(), {"合约", "手数"});
    ASSERT_TRUE(table);
    EXPECT_EQ(TextsOf(*table, "合约"), (std::vector<std::string>{"a", "b"}));
    EXPECT_FALSE(table->Totals());
}

TEST_F(Sheets, TellTablesApartByAHeadingThatOnlyOneHas) {
    made_.PutRow(0, {"合约", "期权类型", "手数"});
    made_.PutRow(1, {"合计"});
    made_.PutRow(3, {"合约", "手数"});
    made_.PutRow(4, {"a", "1"});
    const auto table = CSheetTable::Find(Sheet(), {"合约", "手数"}, "期权类型");
    ASSERT_TRUE(table);
    EXPECT_EQ(TextsOf(*table, "合约"), std::vector<std::string>{"a"});
    EXPECT_FALSE(CSheetTable::Find(Sheet(), {"合约", "成交价"}));
}

}  // namespace
}  // namespace tradebill::sheet_table_test
