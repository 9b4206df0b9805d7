// What a daily workbook says, and which workbooks are none.
#include "intake/workbook_day.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/day_workbook.h"
#include "support/made_cells.h"

namespace tradebill::workbook_day_test {
namespace {

MadeSheet& SheetOf(MadeWorkbook& workbook, const std::string& name) {
    return *std::ranges::find(workbook, name, &MadeSheet::name);
}

WorkbookDay Read(const MadeWorkbook& workbook) {
    return ReadWorkbookDay(Filled(workbook));
}

/// The cell with a text, for tests that change it or its neighbour.
const MadeCell& CellWith(const MadeSheet& sheet, const std::string& text) {
    return *std::ranges::find(sheet.cells, text, &MadeCell::value);
}

TEST(WorkbookDay, HasHeadAndFigures) {
    const WorkbookDay day = Read(DayWorkbook(FirstDay()));
    EXPECT_EQ(day.refusal, "");
    EXPECT_EQ(day.account, "90010009");
    EXPECT_EQ(day.day, "20240102");
    EXPECT_EQ(day.client, "示例客户");
    EXPECT_EQ(day.company, "示例期货有限公司");
    EXPECT_EQ(day.money.opening, 100'000'0000);
    EXPECT_EQ(day.money.closing, 96'772'2000);
    EXPECT_EQ(day.money.profit, -900'0000);
    EXPECT_EQ(day.money.premium, -2'250'0000);
    EXPECT_EQ(day.money.fees, 77'8000);
    EXPECT_EQ(day.money.risk, "94.39%");
}

TEST(WorkbookDay, HasTradesOfFuturesAndOptions) {
    const WorkbookDay day = Read(DayWorkbook(FirstDay()));
    ASSERT_EQ(day.trades.size(), 4u);
    EXPECT_EQ(day.trades[0].contract, "lc2402");
    EXPECT_EQ(day.trades[0].number, "00071551");
    EXPECT_TRUE(day.trades[0].isBuy);
    EXPECT_EQ(day.trades[0].turnover, 194'000'0000);
    EXPECT_EQ(day.trades[1].number, "000000071552");  // the last 12 of 20 digits
    EXPECT_EQ(day.trades[1].price, 97'200'0000);
    EXPECT_FALSE(day.trades[2].isBuy);
    EXPECT_EQ(day.trades[2].lots, 5);
    EXPECT_EQ(day.trades[2].offset, "开");
    EXPECT_TRUE(day.trades[3].isOption);
    EXPECT_EQ(day.trades[3].turnover, 2'250'0000);
    EXPECT_EQ(day.trades[3].offset, "");
}

TEST(WorkbookDay, HasPositionsOfEitherSideAndTheMarginsOfContracts) {
    const WorkbookDay day = Read(DayWorkbook(FirstDay()));
    ASSERT_EQ(day.positions.size(), 4u);
    EXPECT_TRUE(day.positions[0].isLong);
    EXPECT_FALSE(day.positions[2].isLong);
    EXPECT_EQ(day.positions[2].openPrice, 1'000'0000);
    EXPECT_TRUE(day.positions[3].isOption);
    EXPECT_EQ(day.positions[3].margin, 0);
    ASSERT_TRUE(day.margins);
    ASSERT_EQ(day.margins->size(), 2u);
    EXPECT_EQ(day.margins->at(1).margin, 65'130'0000);
}

TEST(WorkbookDay, HasDepositsAndWithdrawalsUpToANote) {
    MadeDayBook made = SecondDay();
    made.cash.push_back({"注：以上金额以元为单位"});
    made.cash.push_back({"2024-01-03", "7", "0"});
    const WorkbookDay day = Read(DayWorkbook(made));
    EXPECT_EQ(day.refusal, "");
    ASSERT_EQ(day.cash.size(), 2u);
    EXPECT_EQ(day.cash[0].day, "20240103");
    EXPECT_EQ(day.cash[0].in, 1'500'0000);
    EXPECT_EQ(day.cash[0].out, 0);
    EXPECT_EQ(day.cash[0].kind, "银期转账");
    EXPECT_EQ(day.cash[0].note, "转入");
    EXPECT_EQ(day.cash[1].out, 500'0000);
    EXPECT_EQ(day.cash[1].note, "");
}

TEST(WorkbookDay, RefusesADepositThatIsNoNumber) {
    MadeDayBook made = SecondDay();
    made.cash[0][1] = "many";
    EXPECT_NE(Read(DayWorkbook(made)).refusal.find("has no number for 入金"), std::string::npos);
}

TEST(WorkbookDay, MakesTwoPositionsOfAnOptionOnBothSides) {
    MadeDayBook made = FirstDay();
    made.optionSums[0][6] = "2";
    made.optionSums[0][7] = "81.5";
    made.optionSums[0][10] = "900";
    const WorkbookDay day = Read(DayWorkbook(made));
    ASSERT_EQ(day.positions.size(), 5u);
    EXPECT_TRUE(day.positions[3].isLong);
    EXPECT_EQ(day.positions[3].margin, 0);
    EXPECT_FALSE(day.positions[4].isLong);
    EXPECT_EQ(day.positions[4].lots, 2);
    EXPECT_EQ(day.positions[4].openPrice, 81'5000);
    EXPECT_EQ(day.positions[4].margin, 900'0000);
}

TEST(WorkbookDay, TakesAnOptionsPositionFromItsSummaryAlone) {
    MadeDayBook made = FirstDay();
    made.positions.push_back({"SR405C6300", "00071554", "3", "75", "--", "--", "80", "74", "0.00", "投机", "01"});
    const WorkbookDay day = Read(DayWorkbook(made));
    EXPECT_EQ(std::ranges::count(day.positions, "SR405C6300", &DayPosition::contract), 1);
    EXPECT_TRUE(day.positions.back().isOption);
}

TEST(WorkbookDay, AddsTotalsOfItsSheetsUpOrElseTheirRows) {
    MadeWorkbook workbook = DayWorkbook(FirstDay());
    MadeSheet& trades = SheetOf(workbook, "成交明细");
    trades.Put(13, 6, "9");  // the rows have 8, and those of options 3
    const WorkbookDay day = Read(workbook);
    EXPECT_EQ(day.totals.tradeLots, 12'0000);
    EXPECT_EQ(day.totals.tradeFees, 77'8000);
    EXPECT_EQ(day.totals.positionProfit, -900'0000);
}

TEST(WorkbookDay, TakesADayAsATextOrAsANumber) {
    const auto dayOf = [](const std::string& text, MadeKind kind) {
        MadeWorkbook workbook = DayWorkbook(FirstDay());
        workbook[0].Put(4, 7, text, kind);
        return Read(workbook).day.value_or("none");
    };
    EXPECT_EQ(dayOf("20240102", MadeKind::Text), "20240102");
    EXPECT_EQ(dayOf("2024/1/2", MadeKind::Text), "20240102");
    EXPECT_EQ(dayOf("2024-01-02 00:00:00", MadeKind::Text), "20240102");
    EXPECT_EQ(dayOf("20240102", MadeKind::Number), "20240102");
    EXPECT_EQ(dayOf("45293", MadeKind::Number), "20240102");
    EXPECT_EQ(dayOf("45293.5", MadeKind::Number), "20240102");
    EXPECT_EQ(dayOf("45293", MadeKind::Text), "none");
    EXPECT_EQ(dayOf("20240230", MadeKind::Text), "none");
}

TEST(WorkbookDay, LacksNothingWhereSheetsAreMissing) {
    MadeWorkbook workbook = DayWorkbook(FirstDay());
    workbook.resize(1);
    const WorkbookDay day = Read(workbook);
    EXPECT_EQ(day.refusal, "");
    EXPECT_TRUE(day.trades.empty());
    EXPECT_EQ(day.positions.size(), 1u);  // the option's, whose summary stands in the first sheet
}

TEST(WorkbookDay, IsFoundByItsFiguresWhereItsSheetHasAnotherName) {
    MadeWorkbook workbook = DayWorkbook(FirstDay());
    workbook[0].name = "Sheet1";
    EXPECT_EQ(Read(workbook).refusal, "");
}

TEST(WorkbookDay, RefusesOtherWorkbooks) {
    EXPECT_EQ(Read({{.name = "a"}}).refusal, "it is a workbook, and not the daily one of the monitoring centre");
    MadeWorkbook workbook = DayWorkbook(FirstDay());
    workbook[0].Put(0, 0, "客户交易结算日报(逐笔对冲)");
    constexpr const char* kTradeByTrade =
        "it is in the trade-by-trade form (逐笔对冲): import takes the mark-to-market form (逐日盯市)";
    EXPECT_EQ(Read(workbook).refusal, kTradeByTrade);
    workbook = DayWorkbook(FirstDay());
    MadeSheet& positions = SheetOf(workbook, "持仓明细");
    positions.Put(9, 8, "浮动盈亏");
    EXPECT_EQ(Read(workbook).refusal, kTradeByTrade);
    for (const char* const month : {"客户交易结算月报", "交易结算单(月)", "交易核算单(月)"}) {
        workbook = DayWorkbook(FirstDay());
        workbook[0].name = month;
        EXPECT_EQ(Read(workbook).refusal, "it is a statement of a month: import takes those of single days") << month;
    }
}

struct Change {
    const char* sheet;
    const char* text;     ///< of the cell that is changed
    const char* becomes;  ///< empty: the cell isn't there
    const char* refusal;
};

TEST(WorkbookDay, IsRefusedForWhatItCantDoWithout) {
    constexpr Change kChanges[] = {
        {"客户交易结算日报", "上日结存", "", "it is a workbook without 上日结存 in 客户交易结算日报"},
        {"客户交易结算日报", "77.80", "7x", "C13 of 客户交易结算日报 has no amount for 当日手续费"},
        {"成交明细", "97000", "", "row 11 of 成交明细 has no 成交价"},
        {"成交明细", "97000", "x", "F11 of 成交明细 has no number for 成交价"},
        {"成交明细", " 买", "?", "row 11 of 成交明细 is neither 买 nor 卖"},
        {"成交明细", "5", "5.5", "row 13 of 成交明细 has no number of lots for 手数"},
        {"成交明细", "成交额", "额",
         "its sheet 成交明细 has no table with the headings 合约, 成交序号, 买/卖, 成交价, 手数, 成交额, 开/平"},
        {"持仓明细", "0", "3", "row 12 of 持仓明细 has lots on both sides or on none"},
    };
    for (const Change& change : kChanges) {
        MadeWorkbook workbook = DayWorkbook(FirstDay());
        MadeSheet& sheet = SheetOf(workbook, change.sheet);
        const MadeCell cell = CellWith(sheet, change.text);
        sheet.Put(cell.row, cell.column, change.becomes);
        EXPECT_EQ(Read(workbook).refusal, change.refusal);
    }
}

TEST(WorkbookDay, HasTextsOf200BytesInItsColumnsAndNoLongerOnes) {
    MadeDayBook made = FirstDay();
    made.trades[0][4] = std::string(200, 'x');
    EXPECT_EQ(Read(DayWorkbook(made)).trades.at(0).hedge.size(), 200u);
    made.trades[0][4] += 'x';
    EXPECT_EQ(Read(DayWorkbook(made)).refusal, "E11 of 成交明细 has a text of more than 200 bytes");
}

TEST(WorkbookDay, HasTablesOf100000RowsAndNoLargerOnes) {
    MadeWorkbook made = DayWorkbook({.money = FirstDay().money});
    MadeSheet& sheet = SheetOf(made, "平仓明细");
    const std::vector<std::string> row = {"a", "1", "买", "1", "1", "1", "1", "1", "1"};
    const auto readRows = [&](std::size_t rows) {
        sheet.cells.resize(10);  // title and headings
        for (std::size_t i = 0; i < rows; ++i) {
            for (std::size_t j = 0; j < row.size(); ++j) sheet.cells.push_back({10 + i, j, MadeKind::Text, row[j]});
        }
        return Read(made);
    };
    EXPECT_EQ(readRows(100'000).closings.size(), 100'000u);
    EXPECT_EQ(readRows(100'001).refusal, "its sheet 平仓明细 has more than 100000 rows");
}

}  // namespace
}  // namespace tradebill::workbook_day_test
