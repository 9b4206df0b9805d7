// What is kept of a reading: places in the text, and nothing of what doesn't stand in it.
#include "anonymise/sheet_watch.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/hand_sheet.h"
#include "report/money_record.h"

namespace tradebill::sheet_watch_test {
namespace {

LabelledValue Value(std::string_view field, std::string_view printed) {
    return {.field = field, .printed = printed, .kept = printed};
}

TEST(SheetWatch, KeepsNothingThatStandsBesideTheText) {
    const std::string around = "1.50|middle|2.50";
    const std::string_view all = around;
    const std::string_view text = all.substr(5, 6);
    CSheetWatch watch(text);
    const ColumnSeen columns[] = {{.column = 0, .field = "SXF", .isAmount = true},
                                  {.column = 1, .field = "CONTRACT", .isAmount = false},
                                  {.column = 2, .field = "QCQY", .isAmount = true}};
    const std::string_view cells[] = {all.substr(0, 4), text, all.substr(12)};
    watch.OnSection(SectionAs(SectionKind::Trades, all.substr(0, 4)));
    watch.OnColumns(columns);
    watch.OnRow(all.substr(0, 4), cells, {});
    watch.OnRow(all.substr(12), {}, {});
    watch.OnLabelledValue(Value("KHQY", all.substr(12)));
    watch.Finish();
    ASSERT_EQ(watch.Cells().size(), 1u);
    EXPECT_EQ(watch.Cells()[0].field, "CONTRACT");
    EXPECT_EQ(watch.Cells()[0].at, 0u);
    EXPECT_TRUE(watch.Rows().empty());
    EXPECT_TRUE(watch.Blocks().empty());
}

TEST(SheetWatch, TellsThatRowsRunIntoTheNextSection) {
    const std::string text = "x\nTRADES\nrow\nCLOSED\nrow\n";
    const std::string_view all = text;
    const auto run = [&](std::string_view title) {
        CSheetWatch watch(text);
        watch.OnSection(SectionAs(SectionKind::Trades, title, all.substr(20, 3)));
        watch.OnRow(all.substr(9, 3), {}, {});
        watch.OnRow(all.substr(20, 3), {}, {});
        watch.OnSection(SectionAs(SectionKind::Closed, all.substr(13, 6), all.substr(20, 3)));
        watch.Finish();
        return watch.CutSection();
    };
    EXPECT_EQ(run(all.substr(2, 6)), SectionKind::Trades);
    EXPECT_EQ(run("elsewhere"), std::nullopt) << "rows without a title run nowhere";
}

TEST(SheetWatch, KeepsTheSectionThatIsSeenToBeCutFirst) {
    const std::string text = "x\nTRADES\nrow\nCLOSED\nrow\n";
    const std::string_view all = text;
    CSheetWatch watch(text);
    watch.OnSection(SectionAs(SectionKind::Open, all.substr(13, 6)));  // has no end
    watch.OnSection(SectionAs(SectionKind::Trades, all.substr(2, 6), all.substr(20, 3)));
    watch.OnRow(all.substr(20, 3), {}, {});
    watch.Finish();
    EXPECT_EQ(watch.CutSection(), SectionKind::Open);
}

TEST(SheetWatch, LooksForTitlesThatAreLostInRowsThatAreTooShort) {
    const std::string text = "x\nTRADES\nthe CLOSED ones\n";
    const std::string_view all = text;
    const auto cut = [&](std::string_view titleWord) {
        CSheetWatch watch(text);
        watch.OnSection(SectionAs(SectionKind::Trades, all.substr(2, 6), all.substr(9, 15)));
        watch.OnRow(all.substr(9, 15), {}, {.fate = RowFate::TooShort, .needed = 5});
        watch.OnSection(SectionAs(SectionKind::Closed, {}, {}, titleWord));
        watch.Finish();
        return watch.CutSection();
    };
    EXPECT_EQ(cut("CLOSED"), SectionKind::Trades);
    EXPECT_EQ(cut("OPEN"), std::nullopt);
    EXPECT_EQ(cut(""), std::nullopt) << "a section without a title of its own";
}

std::vector<std::size_t> ColumnsOf(const CurrencyBlock& block) {
    std::vector<std::size_t> columns;
    for (const CurrencyBlock::Value& value : block.values) columns.push_back(value.column);
    return columns;
}

TEST(SheetWatch, CountsColumnsOfCurrenciesAlongALine) {
    const std::string text = "1.00 2.00\n3.00 4.00\n";
    const std::string_view all = text;
    CSheetWatch watch(text);
    watch.OnLabelledValue(Value("QCQY", all.substr(0, 4)));
    watch.OnLabelledValue(Value("QCQY", all.substr(5, 4)));
    watch.OnLabelledValue(Value("SXF", all.substr(10, 4)));
    watch.OnLabelledValue(Value("SXF", all.substr(15, 4)));
    watch.OnLabelledValue(Value("SXF", all.substr(10, 4)));  // read again from the line's begin
    watch.OnMoney({}, "BASE");
    watch.OnMoney({}, "CNY");
    watch.Finish();
    ASSERT_EQ(watch.Blocks().size(), 1u);
    EXPECT_EQ(ColumnsOf(watch.Blocks()[0]), (std::vector<std::size_t>{0, 1, 0, 1, 0}));
    EXPECT_EQ(watch.Blocks()[0].currencies, (std::vector<std::string>{"BASE", "CNY"}));
}

TEST(SheetWatch, BeginsEachBlockOfCurrenciesAtItsFirstColumn) {
    const std::string text = "1.00 2.00\n";
    const std::string_view all = text;
    CSheetWatch watch(text);
    watch.OnLabelledValue(Value("QCQY", all.substr(0, 4)));
    watch.OnMoney({}, "CNY");
    watch.OnLabelledValue(Value("QCQY", all.substr(5, 4)));  // of the same field and line
    watch.OnMoney({}, "USD");
    watch.Finish();
    ASSERT_EQ(watch.Blocks().size(), 2u);
    EXPECT_EQ(ColumnsOf(watch.Blocks()[1]), std::vector<std::size_t>{0});
    EXPECT_EQ(watch.Blocks()[1].currencies, std::vector<std::string>{"USD"});
}

TEST(SheetWatch, MakesNoBlockOfACurrencyWithoutValues) {
    CSheetWatch watch("text");
    watch.OnMoney({}, "CNY");
    watch.Finish();
    EXPECT_TRUE(watch.Blocks().empty());
    EXPECT_TRUE(watch.HasFound());
    EXPECT_FALSE(watch.Money().has_value()) << "that is of domestic accounts";
}

}  // namespace
}  // namespace tradebill::sheet_watch_test
