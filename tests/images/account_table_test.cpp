#include "images/account_table.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "graph/recording_canvas.h"
#include "images/table_fixture.h"
#include "paint/canvas.h"
#include "report/money_store.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill::account_table_test {
namespace {

class AccountTable : public StoreFixture {
protected:
    void Paint(std::int32_t dpi) {
        report.Request.Dpi = dpi;
        canvas_ = std::make_unique<CRecordingCanvas>();
        canvas_->SelectTextBackground(TextBackground::Transparent);
        PaintAccountTable(*canvas_, report);
    }

    /// The values, from the first row to the last.
    std::vector<std::string> Values() {
        Paint(96);
        std::vector<std::string> values;
        for (std::size_t i = 1; i < canvas_->texts.size(); i += 2) values.push_back(canvas_->texts[i].text);
        return values;
    }

    std::unique_ptr<CRecordingCanvas> canvas_;
};

TEST_F(AccountTable, NamesItsFigures) {
    report.MoneyStore.OpeningEquity = 1;
    report.MoneyStore.TotalFees = 2;
    report.MoneyStore.TotalClosedPL = 3;
    report.MoneyStore.TotalCashFlow = 4;
    report.MoneyStore.TotalPositionPL = 5;
    report.MoneyStore.TotalPremium = 6;
    report.MoneyStore.ClosingEquity = 7;
    report.MoneyStore.PositionMargin = 8;
    report.MoneyStore.FrozenA = 9;
    report.MoneyStore.FrozenB = 0.5;
    report.MoneyStore.Available = 10;
    report.MoneyStore.LastHostCurrent = 99;  // is for the currency tables alone
    Paint(96);
    const std::pair<std::string_view, std::string_view> kRows[] = {
        {"期初账户净值", "1.00"}, {"- 手续费", "2.00"},    {"+ 盯市平仓盈亏", "3.00"}, {"+ 出入金", "4.00"},
        {"+ 持仓盈亏", "5.00"},   {"+ 权利金", "6.00"},    {"= 期末账户净值", "7.00"}, {"- 持仓占用保证金", "8.00"},
        {"- 挂单冻结", "9.50"},   {"= 可用资金", "10.00"},
    };
    ASSERT_EQ(canvas_->texts.size(), 2 * std::size(kRows));
    for (std::size_t row = 0; row < std::size(kRows); ++row) {
        EXPECT_EQ(canvas_->texts[2 * row].text, Gbk(kRows[row].first)) << row;
        EXPECT_EQ(canvas_->texts[2 * row + 1].text, kRows[row].second) << row;
    }
}

TEST_F(AccountTable, ShowsZerosForAnEmptyStore) {
    EXPECT_EQ(Values(), std::vector<std::string>(10, "0.00"));
}

TEST_F(AccountTable, ShowsAnyFigureAsItIsInOneColor) {
    report.MoneyStore.OpeningEquity = -1234567.891;
    report.MoneyStore.TotalFees = -0.001;
    report.MoneyStore.TotalClosedPL = std::numeric_limits<double>::infinity();
    report.MoneyStore.TotalCashFlow = -std::numeric_limits<double>::infinity();
    report.MoneyStore.TotalPositionPL = std::numeric_limits<double>::quiet_NaN();
    report.MoneyStore.TotalPremium = -0.0;
    report.MoneyStore.ClosingEquity = 1e20;
    const std::vector<std::string> values = Values();
    EXPECT_EQ(values[0], "-1234567.89");
    EXPECT_EQ(values[1], "-0.00");
    EXPECT_EQ(values[2], "inf");
    EXPECT_EQ(values[3], "-inf");
    EXPECT_EQ(values[4], "nan");
    EXPECT_EQ(values[5], "-0.00");
    EXPECT_EQ(values[6], "100000000000000000000.00");
    for (const PaintedText& text : canvas_->texts) EXPECT_EQ(text.color, 0x383838u) << text.text;
}

TEST_F(AccountTable, DrawsTheLineAboveThenEachRowThenTheUprightLines) {
    Paint(96);
    EXPECT_EQ(canvas_->order, "L" + Rows(10, "TTL") + "LLL");
}

TEST_F(AccountTable, StandsAtFixedPlacesWithoutScaling) {
    for (const std::int32_t dpi : {0, 96}) {
        Paint(dpi);
        for (std::int32_t row = 0; row < 10; ++row) {
            EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(2 * row)].at, (Point{22, 20 + 22 * row}));
            EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(2 * row + 1)].at, (Point{150, 20 + 22 * row}));
        }
        std::vector<PaintedLine> expected;
        for (std::int32_t line = 0; line <= 10; ++line) {
            expected.push_back({{17, 15 + 22 * line}, {285, 15 + 22 * line}, kTablePen});
        }
        for (const std::int32_t x : {17, 145, 285}) expected.push_back({{x, 15}, {x, 235}, kTablePen});
        EXPECT_EQ(canvas_->lines, expected) << dpi;
    }
}

// At one and a half: rows of 33, labels from 18, columns of 210, and 7.5 rounded up to 8 around the texts.
TEST_F(AccountTable, GrowsWithTheResolutionButForItsMargins) {
    Paint(144);
    for (std::int32_t row = 0; row < 10; ++row) {
        EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(2 * row)].at, (Point{28, 20 + 33 * row}));
        EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(2 * row + 1)].at, (Point{220, 20 + 33 * row}));
    }
    std::vector<PaintedLine> expected;
    for (std::int32_t line = 0; line <= 10; ++line) {
        expected.push_back({{20, 12 + 33 * line}, {422, 12 + 33 * line}, kTablePen});
    }
    for (const std::int32_t x : {20, 212, 422}) expected.push_back({{x, 12}, {x, 342}, kTablePen});
    EXPECT_EQ(canvas_->lines, expected);
}

TEST_F(AccountTable, WritesInItsFontAndHandsBackTheFormerTools) {
    for (const auto& [dpi, cellHeight] : {std::pair{0, 15}, {96, 15}, {144, 23}}) {
        report.Request.Dpi = dpi;
        CRecordingCanvas canvas;
        const Font font{.face = "Tahoma", .cellHeight = 9};
        const Pen pen{.width = 3, .color = 0x010203};
        canvas.SelectFont(font);
        canvas.SelectPen(pen);
        PaintAccountTable(canvas, report);
        EXPECT_EQ(canvas.texts[0].font, (Font{.face = "Arial", .cellHeight = cellHeight, .weight = 400}));
        EXPECT_EQ(canvas.SelectFont({}), font);
        EXPECT_EQ(canvas.SelectPen({}), pen);
    }
}

TEST_F(AccountTable, IsSafeAtAnyResolution) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    for (const std::int32_t dpi :
         {std::numeric_limits<std::int32_t>::min(), -96, -1, 1, 700'000'000, kMost - 1, kMost}) {
        Paint(dpi);
        EXPECT_EQ(canvas_->texts.size(), 20u);
        EXPECT_EQ(canvas_->lines.size(), 14u);
        CBitmap bitmap(40, 40, kWhite);
        PaintAccountTable(*MakeCanvas(bitmap), report);
    }
}

}  // namespace
}  // namespace tradebill::account_table_test
