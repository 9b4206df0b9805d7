#include "images/statistics_panel.h"

#include <gtest/gtest.h>

#include <cstddef>
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
#include "report/report.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill::statistics_panel_test {
namespace {

constexpr std::size_t kFirstNote = 14;  // behind seven labels and their values

constexpr std::string_view kNotes[] = {
    "胜率：(盈利次数 + 持平次数）/ 交易次数",   "盈利率：总平仓盈亏 / 初始权益",
    "最大回撤：权益达到高点回撤幅度最大的一笔", "最大盈利：统计期间平仓盈利最大的一笔",
    "最大亏损：统计期间平仓亏损最大的一笔",     "最大收益率：统计期间收益率的最大值",
    "最大风险度：单日资金使用率的最大值 ",      "账户收益率：总盈利 / 期初权益",
    "交易收益率：账户收益率 / 账户资金使用率",
};

class StatisticsPanel : public StoreFixture {
protected:
    void Paint(std::int32_t dpi) {
        report.Request.Dpi = dpi;
        canvas_ = std::make_unique<CRecordingCanvas>();
        canvas_->SelectTextBackground(TextBackground::Transparent);
        PaintStatisticsPanel(*canvas_, report);
    }

    std::unique_ptr<CRecordingCanvas> canvas_;
};

TEST_F(StatisticsPanel, NamesItsFigures) {
    report.AccountStatistics.WinRate = 1;
    report.AccountStatistics.ProfitRate = 2;
    report.AccountStatistics.MaxDrawdown = 3;
    report.AccountStatistics.MaxProfit = 4;
    report.AccountStatistics.MaxLoss = -5;
    report.AccountStatistics.MaxYield = 6;
    report.AccountStatistics.MaxRisk = 7;
    Paint(96);
    const std::pair<std::string_view, std::string_view> kRows[] = {
        {"胜率：", "1.00%"},     {"盈利率：", "2.00%"},     {"最大回撤：", "3.00"},    {"最大盈利：", "4.00"},
        {"最大亏损：", "-5.00"}, {"最大收益率：", "6.00%"}, {"最大风险度：", "7.00%"},
    };
    for (std::size_t row = 0; row < std::size(kRows); ++row) {
        EXPECT_EQ(canvas_->texts[2 * row].text, Gbk(kRows[row].first)) << row;
        EXPECT_EQ(canvas_->texts[2 * row + 1].text, kRows[row].second) << row;
    }
}

TEST_F(StatisticsPanel, ShowsZerosForWhatWasNeverComputed) {
    Paint(96);
    for (std::size_t row = 0; row < 7; ++row) {
        const bool isRate = row < 2 || row > 4;
        EXPECT_EQ(canvas_->texts[2 * row + 1].text, isRate ? "0.00%" : "0.00") << row;
    }
}

TEST_F(StatisticsPanel, ShowsAnyFigureAsItIs) {
    report.AccountStatistics.WinRate = std::numeric_limits<double>::quiet_NaN();
    report.AccountStatistics.ProfitRate = -std::numeric_limits<double>::infinity();
    report.AccountStatistics.MaxDrawdown = -0.001;
    Paint(96);
    EXPECT_EQ(canvas_->texts[1].text, "nan%");
    EXPECT_EQ(canvas_->texts[3].text, "-inf%");
    EXPECT_EQ(canvas_->texts[5].text, "-0.00");
}

TEST_F(StatisticsPanel, TellsHowItsFiguresAreWorkedOut) {
    Paint(96);
    ASSERT_EQ(canvas_->texts.size(), kFirstNote + std::size(kNotes));
    for (std::size_t note = 0; note < std::size(kNotes); ++note) {
        EXPECT_EQ(canvas_->texts[kFirstNote + note].text, Gbk(kNotes[note]));
    }
}

TEST_F(StatisticsPanel, WritesItsNotesInALighterGrey) {
    Paint(96);
    for (std::size_t i = 0; i < canvas_->texts.size(); ++i) {
        EXPECT_EQ(canvas_->texts[i].color, i < kFirstNote ? 0x383838u : 0x656565u) << i;
        EXPECT_EQ(canvas_->texts[i].font, (Font{.face = "Arial", .cellHeight = 15, .weight = 400})) << i;
    }
}

TEST_F(StatisticsPanel, DrawsItsTableFirst) {
    Paint(96);
    EXPECT_EQ(canvas_->order, "L" + Rows(7, "TTL") + "LLL" + Rows(9, "T"));
}

TEST_F(StatisticsPanel, StandsAtFixedPlacesWithoutScaling) {
    for (const std::int32_t dpi : {0, 96}) {
        Paint(dpi);
        std::vector<PaintedLine> expected;
        for (std::int32_t line = 0; line <= 7; ++line) {
            expected.push_back({{17, 15 + 25 * line}, {285, 15 + 25 * line}, kTablePen});
        }
        for (const std::int32_t x : {17, 145, 285}) expected.push_back({{x, 15}, {x, 190}, kTablePen});
        EXPECT_EQ(canvas_->lines, expected) << dpi;
        for (std::int32_t row = 0; row < 7; ++row) {
            EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(2 * row)].at, (Point{22, 20 + 25 * row}));
            EXPECT_EQ(canvas_->texts[static_cast<std::size_t>(2 * row + 1)].at, (Point{150, 20 + 25 * row}));
        }
        for (std::int32_t note = 0; note < 9; ++note) {
            const PaintedText& text = canvas_->texts[kFirstNote + static_cast<std::size_t>(note)];
            EXPECT_EQ(text.at, (Point{17, 200 + 25 * note}));
            // The last one alone may need two lines, which end where the table's texts do.
            EXPECT_EQ(text.clip, note == 8 ? Clip(Box{17, 400, 290, 430}) : Clip());
        }
    }
}

// At one and a half: rows of 37.5, rounded up to 38, and texts of 23.
TEST_F(StatisticsPanel, GrowsWithTheResolutionButForItsMargins) {
    Paint(144);
    std::vector<PaintedLine> expected;
    for (std::int32_t line = 0; line <= 7; ++line) {
        expected.push_back({{20, 12 + 38 * line}, {422, 12 + 38 * line}, kTablePen});
    }
    for (const std::int32_t x : {20, 212, 422}) expected.push_back({{x, 12}, {x, 278}, kTablePen});
    EXPECT_EQ(canvas_->lines, expected);
    EXPECT_EQ(canvas_->texts[2].at, (Point{28, 58}));
    EXPECT_EQ(canvas_->texts[3].at, (Point{220, 58}));
    EXPECT_EQ(canvas_->texts[kFirstNote].at, (Point{20, 291}));
    EXPECT_EQ(canvas_->texts[kFirstNote + 8].at, (Point{20, 595}));
    EXPECT_EQ(canvas_->texts[kFirstNote + 8].clip, (Clip(Box{20, 595, 430, 641})));
}

// At half the size the note has 137 pixels, which are 22 bytes on this canvas.
TEST_F(StatisticsPanel, WrapsItsLastNote) {
    Paint(48);
    ASSERT_EQ(canvas_->texts.size(), kFirstNote + 10);
    EXPECT_EQ(canvas_->texts[kFirstNote + 8].text, Gbk("交易收益率：账户收益率"));
    EXPECT_EQ(canvas_->texts[kFirstNote + 8].at, (Point{13, 220}));
    EXPECT_EQ(canvas_->texts[kFirstNote + 9].text, Gbk("/ 账户资金使用率"));
    EXPECT_EQ(canvas_->texts[kFirstNote + 9].at, (Point{13, 228}));
    EXPECT_EQ(canvas_->texts[kFirstNote + 9].clip, (Clip(Box{13, 220, 150, 236})));
}

TEST_F(StatisticsPanel, ShowsNoMoreThanTwoLinesOfItsLastNote) {
    Paint(24);
    ASSERT_EQ(canvas_->texts.size(), kFirstNote + 10);
    EXPECT_EQ(canvas_->texts.back().text, Gbk("：账户收益"));
}

TEST_F(StatisticsPanel, HandsBackTheFormerTools) {
    CRecordingCanvas canvas;
    const Font font{.face = "Tahoma", .cellHeight = 9};
    const Pen pen{.width = 3, .color = 0x010203};
    canvas.SelectFont(font);
    canvas.SelectPen(pen);
    PaintStatisticsPanel(canvas, report);
    EXPECT_EQ(canvas.SelectFont({}), font);
    EXPECT_EQ(canvas.SelectPen({}), pen);
    EXPECT_EQ(canvas.SelectClip({}), Clip());
}

TEST_F(StatisticsPanel, IsSafeAtAnyResolution) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    for (const std::int32_t dpi :
         {std::numeric_limits<std::int32_t>::min(), -96, -1, 1, 700'000'000, kMost - 1, kMost}) {
        Paint(dpi);
        EXPECT_GE(canvas_->texts.size(), kFirstNote + 8);
        EXPECT_EQ(canvas_->lines.size(), 11u);
        CBitmap bitmap(40, 40, kWhite);
        PaintStatisticsPanel(*MakeCanvas(bitmap), report);
    }
}

}  // namespace
}  // namespace tradebill::statistics_panel_test
