#include "images/currency_tables.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "graph/recording_canvas.h"
#include "images/table_fixture.h"
#include "paint/canvas.h"
#include "report/currency_money_store.h"
#include "report/records.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill::currency_tables_test {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

class CurrencyTables : public StoreFixture {
protected:
    /// A currency with an opening equity of `equity`.
    CMoneyStore& AddCurrency(const std::string& name, double equity = 0) {
        report.CurrencyMoneyStore.Add(std::make_unique<MoneyRecord>(ClearedMoneyRecord()), name,
                                      MoneySource::Statement);
        CMoneyStore& store = *report.CurrencyMoneyStore.Find(name);
        store.OpeningEquity = equity;
        return store;
    }
    void AddCurrencies(int count) {
        for (int i = 0; i < count; ++i) AddCurrency("C" + std::to_string(i), i);
    }

    void Paint(std::int32_t width, std::int32_t blockHeight = 230) {
        canvas_ = std::make_unique<CRecordingCanvas>();
        canvas_->SelectTextBackground(TextBackground::Transparent);
        PaintCurrencyTables(*canvas_, report, {.width = width, .blockHeight = blockHeight});
    }

    /// What stands in the rows of titles, from left to right and block by block, at 96 dots per inch.
    [[nodiscard]] std::vector<std::string> Titles() const {
        std::vector<std::string> titles;
        for (const PaintedText& text : canvas_->texts) {
            if ((text.at.y - 20) % 230 == 0 && text.at.x != 10) titles.push_back(text.text);
        }
        return titles;
    }

    std::unique_ptr<CRecordingCanvas> canvas_;
};

PaintedLine Line(Point from, Point to) {
    return {from, to, kTablePen};
}

TEST_F(CurrencyTables, NeedAsManyBlocksAsLabelsAndCurrenciesAskFor) {
    const struct {
        int width;
        std::vector<std::pair<int, int>> currenciesAndBlocks;
    } cases[] = {
        {825, {{0, 1}, {1, 1}, {3, 1}, {4, 1}, {5, 2}, {8, 2}, {9, 3}, {12, 3}, {13, 4}, {20, 5}, {21, 6}, {36, 9}}},
        {825, {{37, 10}, {40, 10}, {41, 11}, {44, 11}, {45, 11}, {200, 11}}},
        {800, {{4, 1}, {5, 2}}},
        {799, {{3, 1}, {4, 2}}},
        {320, {{1, 1}, {2, 2}, {10, 10}, {11, 11}, {12, 11}}},  // one currency to a block
        {319, {{0, 1}, {1, 11}, {3, 11}}},                      // room for the labels alone
        {160, {{0, 1}, {1, 11}, {3, 11}}},
        {159, {{0, 11}, {3, 11}}},
        {0, {{0, 11}, {3, 11}}},
        {-825, {{0, 11}, {3, 11}}},
        {kLeast, {{0, 11}, {3, 11}}},
        {kMost, {{0, 1}, {200, 1}}},
    };
    for (const auto& given : cases) {
        for (const auto& [currencies, blocks] : given.currenciesAndBlocks) {
            report.CurrencyMoneyStore.Clear();
            AddCurrencies(currencies);
            EXPECT_EQ(CountCurrencyBlocks(report, given.width), blocks) << currencies << " in " << given.width;
        }
    }
}

// At one and a half a column is 240 wide, and the page 1238.
TEST_F(CurrencyTables, CountColumnsAtTheResolutionOfTheRequest) {
    report.Request.Dpi = 144;
    AddCurrencies(4);
    EXPECT_EQ(CountCurrencyBlocks(report, 1238), 1);
    EXPECT_EQ(CountCurrencyBlocks(report, 1200), 1);
    EXPECT_EQ(CountCurrencyBlocks(report, 1199), 2);
    EXPECT_EQ(CountCurrencyBlocks(report, 825), 2);  // three columns
}

TEST_F(CurrencyTables, CountColumnsAtAnyResolution) {
    AddCurrencies(4);
    report.Request.Dpi = 1;  // 1 percent: a column of 160 is 2 wide
    EXPECT_EQ(CountCurrencyBlocks(report, 10), 1);
    EXPECT_EQ(CountCurrencyBlocks(report, 9), 2);
    for (const std::int32_t dpi : {-1, -96, kMost, kLeast}) {  // columns of a negative width
        report.Request.Dpi = dpi;
        EXPECT_EQ(CountCurrencyBlocks(report, 825), 11) << dpi;
    }
}

TEST_F(CurrencyTables, NameTheirFigures) {
    CMoneyStore& store = AddCurrency("USD", 1);
    store.TotalFees = 2;
    store.TotalClosedPL = 3;
    store.TotalCashFlow = 4;
    store.LastHostCurrent = 5;
    store.TotalPositionPL = 99;  // is for the account table alone, like the premium
    store.TotalPremium = 99;
    store.ClosingEquity = 6;
    store.PositionMargin = 7;
    store.FrozenA = 8;
    store.FrozenB = 0.25;
    store.Available = -9;
    Paint(825);
    const std::pair<std::string_view, std::string_view> kRows[] = {
        {"币种", "USD(总)"},  {"期初账户净值", "1.00"}, {"手续费", "2.00"},       {"盯市平仓盈亏", "3.00"},
        {"出入金", "4.00"},   {"持仓盈亏", "5.00"},     {"期末账户净值", "6.00"}, {"持仓占用保证金", "7.00"},
        {"挂单冻结", "8.25"}, {"可用资金", "-9.00"},
    };
    ASSERT_EQ(canvas_->texts.size(), 2 * std::size(kRows));
    for (std::size_t row = 0; row < std::size(kRows); ++row) {
        EXPECT_EQ(canvas_->texts[2 * row].text, Gbk(kRows[row].first)) << row;
        EXPECT_EQ(canvas_->texts[2 * row + 1].text, Gbk(kRows[row].second)) << row;
        EXPECT_EQ(canvas_->texts[2 * row + 1].color, 0x383838u) << row;
    }
}

TEST_F(CurrencyTables, ShowAnyFigureAsItIs) {
    CMoneyStore& store = AddCurrency("USD", -0.001);
    store.TotalFees = std::numeric_limits<double>::infinity();
    store.TotalClosedPL = std::numeric_limits<double>::quiet_NaN();
    Paint(825);
    EXPECT_EQ(canvas_->PlacesOf("-0.00"), (std::vector<Point>{{170, 42}}));
    EXPECT_EQ(canvas_->PlacesOf("inf"), (std::vector<Point>{{170, 64}}));
    EXPECT_EQ(canvas_->PlacesOf("nan"), (std::vector<Point>{{170, 86}}));
}

TEST_F(CurrencyTables, StandAtFixedPlacesWithoutScaling) {
    AddCurrency("HKD", 1);
    AddCurrency("USD", 2);
    for (const std::int32_t dpi : {0, 96}) {
        report.Request.Dpi = dpi;
        Paint(825);
        // The first column begins with the labels.
        std::vector<PaintedLine> expected{Line({5, 15}, {325, 15})};
        for (std::int32_t row = 1; row <= 10; ++row) expected.push_back(Line({5, 15 + 22 * row}, {325, 15 + 22 * row}));
        expected.push_back(Line({5, 15}, {5, 235}));
        expected.push_back(Line({165, 15}, {165, 235}));
        for (std::int32_t row = 0; row <= 10; ++row)
            expected.push_back(Line({325, 15 + 22 * row}, {485, 15 + 22 * row}));
        expected.push_back(Line({325, 15}, {325, 235}));
        expected.push_back(Line({485, 15}, {485, 235}));
        EXPECT_EQ(canvas_->lines, expected) << dpi;
        ASSERT_EQ(canvas_->texts.size(), 30u);
        for (std::int32_t row = 0; row < 10; ++row) {
            EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(2 * row)].at, (Point{10, 20 + 22 * row}));
            EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(2 * row + 1)].at, (Point{170, 20 + 22 * row}));
            EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(20 + row)].at, (Point{330, 20 + 22 * row}));
        }
    }
}

// At one and a half: rows of 33, columns of 240, and 7.5 rounded up to 8 around the texts.
TEST_F(CurrencyTables, GrowWithTheResolutionButForTheirMargins) {
    AddCurrency("HKD", 1);
    AddCurrency("USD", 2);
    report.Request.Dpi = 144;
    Paint(1238, 345);
    std::vector<PaintedLine> expected;
    for (std::int32_t row = 0; row <= 10; ++row) expected.push_back(Line({2, 12 + 33 * row}, {482, 12 + 33 * row}));
    expected.push_back(Line({2, 12}, {2, 342}));
    expected.push_back(Line({242, 12}, {242, 342}));
    for (std::int32_t row = 0; row <= 10; ++row) expected.push_back(Line({482, 12 + 33 * row}, {722, 12 + 33 * row}));
    expected.push_back(Line({482, 12}, {482, 342}));
    expected.push_back(Line({722, 12}, {722, 342}));
    EXPECT_EQ(canvas_->lines, expected);
    EXPECT_EQ(canvas_->texts[0].at, (Point{10, 20}));
    EXPECT_EQ(canvas_->texts[1].at, (Point{250, 20}));
    EXPECT_EQ(canvas_->texts[3].at, (Point{250, 53}));
    EXPECT_EQ(canvas_->texts[20].at, (Point{490, 20}));
    EXPECT_EQ(canvas_->texts[29].at, (Point{490, 317}));
}

TEST_F(CurrencyTables, DrawColumnByColumnAndCloseTheBlockAtLast) {
    AddCurrencies(2);
    Paint(825);
    EXPECT_EQ(canvas_->order, "L" + Rows(10, "TTL") + "LL" + "L" + Rows(10, "TL") + "LL");
}

TEST_F(CurrencyTables, ShareTheCurrenciesOutAmongTheBlocks) {
    AddCurrencies(20);
    Paint(825);
    const std::vector<std::string> titles = Titles();
    ASSERT_EQ(titles.size(), 20u);
    for (std::size_t i = 0; i < titles.size(); ++i) {
        EXPECT_EQ(titles[i], i == 0 ? Gbk("C0(总)") : "C" + std::to_string(i));
        const auto block = static_cast<std::int32_t>(i / 4);
        const auto column = static_cast<std::int32_t>(i % 4);
        EXPECT_EQ(canvas_->PlacesOf(titles[i]), (std::vector<Point>{{170 + 160 * column, 20 + 230 * block}}));
    }
    // Each block has its labels and is closed; four columns end at 805.
    EXPECT_EQ(canvas_->PlacesOf(Gbk("币种")),
              (std::vector<Point>{{10, 20}, {10, 250}, {10, 480}, {10, 710}, {10, 940}}));
    EXPECT_EQ(canvas_->lines.back(), Line({805, 935}, {805, 1155}));
}

TEST_F(CurrencyTables, CloseAShortBlockBehindItsLastColumn) {
    AddCurrencies(5);
    Paint(825);
    EXPECT_EQ(canvas_->PlacesOf("C4"), (std::vector<Point>{{170, 250}}));
    EXPECT_EQ(canvas_->lines.back(), Line({325, 245}, {325, 465}));
}

TEST_F(CurrencyTables, LeaveOutWhatTheEleventhBlockCannotHold) {
    AddCurrencies(50);
    Paint(825);
    EXPECT_EQ(Titles().size(), 44u);
    EXPECT_EQ(Titles().back(), "C43");
}

TEST_F(CurrencyTables, CallTheFirstColumnTheTotalOfAll) {
    const std::pair<std::string, std::string_view> cases[] = {
        {"USD", "USD(总)"}, {"*HKD", "(总)HKD"}, {"HK*D", "HK(总)D"},  {"HKD*", "HKD(总)"},
        {"*", "(总)"},      {"", "(总)"},        {"*A*", "(总)A(总)"}, {Gbk("港币"), "港币(总)"},
    };
    for (const auto& [name, title] : cases) {
        report.CurrencyMoneyStore.Clear();
        AddCurrency(name);
        AddCurrency("E*R");
        Paint(825);
        EXPECT_EQ(Titles(), (std::vector<std::string>{Gbk(title), "E*R"}));  // a later column keeps its star
    }
}

TEST_F(CurrencyTables, GiveNoTotalToTheFirstColumnOfALaterBlock) {
    AddCurrencies(4);
    AddCurrency("*X");
    Paint(825);
    EXPECT_EQ(Titles().back(), "*X");
}

TEST_F(CurrencyTables, PassOverNamesWithoutAStore) {
    report.CurrencyMoneyStore.Names.emplace_back("none");
    AddCurrency("A");
    report.CurrencyMoneyStore.Names.emplace_back("none either");
    AddCurrency("B");
    AddCurrency("C");
    Paint(825);
    EXPECT_EQ(Titles(), (std::vector<std::string>{Gbk("A(总)"), "B", "C"}));
    EXPECT_EQ(canvas_->PlacesOf("B"), (std::vector<Point>{{330, 20}}));
    EXPECT_EQ(canvas_->PlacesOf("C"),
              (std::vector<Point>{{170, 250}}));  // they still count where blocks are shared out
    EXPECT_EQ(canvas_->lines.back(), Line({325, 245}, {325, 465}));
}

TEST_F(CurrencyTables, DrawNothingWhereNoCurrencyIs) {
    Paint(825);
    EXPECT_EQ(canvas_->order, "");
    for (int i = 0; i < 4; ++i) report.CurrencyMoneyStore.Names.emplace_back("none");
    AddCurrency("A");
    Paint(825);
    EXPECT_EQ(Titles(), (std::vector<std::string>{"A"}));  // in the second block, where no column is the total
    EXPECT_EQ(canvas_->lines.front(), Line({5, 245}, {325, 245}));
}

TEST_F(CurrencyTables, DrawNothingOnAPictureWithoutRoomForAColumn) {
    AddCurrencies(3);
    for (const int width : {319, 160, 0, -1, -825, kLeast}) {
        Paint(width);
        EXPECT_EQ(canvas_->order, "") << width;
    }
}

TEST_F(CurrencyTables, TakeNamesOfAnyLengthAndBytes) {
    const std::string name = std::string(100'000, 'x') + "\xFF\x81*";
    AddCurrency(name);
    Paint(825);
    EXPECT_EQ(canvas_->texts[1].text, std::string(100'000, 'x') + "\xFF\x81" + Gbk("(总)"));
    CBitmap bitmap(825, 270, kWhite);
    PaintCurrencyTables(*MakeCanvas(bitmap), report, {.width = 825, .blockHeight = 230});
}

TEST_F(CurrencyTables, AreSafeAtAnySizeAndResolution) {
    AddCurrencies(30);
    for (const std::int32_t dpi : {kLeast, -96, -1, 0, 1, 96, 700'000'000, kMost - 1, kMost}) {
        report.Request.Dpi = dpi;
        for (const int width : {kLeast, -1, 0, 1, 825, kMost}) {
            for (const std::int32_t height : {kLeast, 0, kMost}) {
                Paint(width, height);
                EXPECT_LE(canvas_->texts.size(), 30u * 10 + 11 * 10);
            }
        }
    }
}

TEST_F(CurrencyTables, HandBackTheFormerTools) {
    AddCurrencies(1);
    CRecordingCanvas canvas;
    const Font font{.face = "Tahoma", .cellHeight = 9};
    const Pen pen{.width = 3, .color = 0x010203};
    canvas.SelectFont(font);
    canvas.SelectPen(pen);
    PaintCurrencyTables(canvas, report, {.width = 825, .blockHeight = 230});
    EXPECT_EQ(canvas.texts[0].font, (Font{.face = "Arial", .cellHeight = 15, .weight = 400}));
    EXPECT_EQ(canvas.SelectFont({}), font);
    EXPECT_EQ(canvas.SelectPen({}), pen);
}

}  // namespace
}  // namespace tradebill::currency_tables_test
