// The four charts in both forms: where they paint, and what of them can be seen.
#include "images/account_charts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "base/report_error.h"
#include "graph/recording_canvas.h"
#include "images/chart_fixture.h"
#include "paint/canvas.h"
#include "support/gbk_text.h"

namespace tradebill::account_charts_test {
namespace {

using Painting = std::shared_ptr<const CRecordingCanvas>;

class AccountCharts : public ChartFixture {
protected:
    AccountCharts() { SetDays("2024-1-1", "2024-1-31"); }

    /// What is painted for the report.
    [[nodiscard]] Painting Drawn(const AccountChart& chart, const PictureSize& size) const {
        auto canvas = std::make_shared<CRecordingCanvas>();
        DrawAccountChart(*canvas, report, chart, size);
        return canvas;
    }
    [[nodiscard]] Painting StretchedTo(const AccountChart& chart, const Box& rect) const {
        auto canvas = std::make_shared<CRecordingCanvas>();
        StretchAccountChart(*canvas, report, chart, rect);
        return canvas;
    }

    /// `count` records from the first of January on, each with usage and yield if `withUsage`.
    void AddDays(int count, bool withUsage) {
        for (int i = 0; i < count; ++i) {
            const std::string day = "202401" + std::string(i < 9 ? "0" : "") + std::to_string(i + 1);
            AddDay(day, std::to_string(12000 + i), std::to_string(i));
            if (withUsage) SetRisk(day, 0.5);
        }
    }
    /// Radius of the dots; -1 if they differ or there are none.
    static std::int32_t RadiusOf(const Painting& painting) {
        std::int32_t radius = -1;
        for (const PaintedShape& dot : painting->ellipses) {
            const std::int32_t its = (dot.box.right - dot.box.left) / 2;
            if (radius != -1 && its != radius) return -1;
            radius = its;
        }
        return radius;
    }
    [[nodiscard]] std::uint32_t RefusalOf(const AccountChart& chart, CRecordingCanvas& canvas) const {
        try {
            StretchAccountChart(canvas, report, chart, {0, 0, 825, 250});
        } catch (const CReportError& error) {
            return error.Code();
        }
        return 0;
    }
    static bool IsUntouched(const CRecordingCanvas& canvas) {
        return canvas.rectangles.empty() && canvas.lines.empty() && canvas.texts.empty() && canvas.ellipses.empty();
    }
};

TEST_F(AccountCharts, FillTheirRectangle) {
    AddDays(3, true);
    for (const AccountChart* const chart : kAllCharts) {
        const Painting plain = Drawn(*chart, {500, 250});
        ASSERT_FALSE(plain->rectangles.empty()) << chart->name;
        const Pen frame{.width = 2, .color = 0x383838};
        EXPECT_EQ(plain->rectangles.front(), (PaintedShape{{0, 0, 500, 250}, frame, kWhite})) << chart->name;
        const Painting stretched = StretchedTo(*chart, {10, 20, 1010, 420});
        EXPECT_EQ(stretched->rectangles.front(), (PaintedShape{{10, 20, 1010, 420}, frame, kWhite})) << chart->name;
    }
}

TEST_F(AccountCharts, AreEmptyFramesWithTitlesOfAnEmptyStore) {
    const struct {
        const AccountChart& chart;
        std::vector<const char*> titles;
    } cases[] = {
        {kEquityChart, {"权益曲线", "资金使用率"}},
        {kRealisedChart, {"平仓盈亏曲线图"}},
        {kAccountYieldChart, {"账户收益率"}},
        {kTradeYieldChart, {"交易收益率"}},
    };
    for (const auto& one : cases) {
        for (const Painting& canvas : {Drawn(one.chart, {825, 250}), StretchedTo(one.chart, {0, 0, 825, 250})}) {
            for (const char* const title : one.titles) EXPECT_EQ(canvas->PlacesOf(Gbk(title)).size(), 1u) << title;
            EXPECT_TRUE(canvas->ellipses.empty()) << one.chart.name;
        }
    }
}

TEST_F(AccountCharts, ReadZeroAtEveryTickIfNothingWasRealised) {
    const Painting canvas = Drawn(kRealisedChart, {825, 250});
    const std::size_t zeros = canvas->PlacesOf("0.000").size();
    const std::size_t negativeZeros = canvas->PlacesOf("-0.000").size();
    EXPECT_EQ(zeros + negativeZeros, 11u);
    EXPECT_GE(negativeZeros, 5u);  // -0.001 to -0.0002
    EXPECT_GE(zeros, 5u);
}

TEST_F(AccountCharts, PaintNothingIfRealisedTicksLieOnOneAnother) {
    report.MoneyStore.MinDayPL = report.MoneyStore.MaxDayPL = std::numeric_limits<double>::denorm_min();
    EXPECT_TRUE(IsUntouched(*Drawn(kRealisedChart, {825, 250})));
    EXPECT_FALSE(IsUntouched(*StretchedTo(kRealisedChart, {0, 0, 825, 250})));
}

TEST_F(AccountCharts, WriteValuesBesidePointsWhereTheyShould) {
    AddDays(3, true);
    for (const char* const day : {"20240101", "20240102", "20240103"}) SetYield(day, 0.5);
    // the last point's value stands alone; tick labels of the yields have a suffix
    EXPECT_TRUE(Drawn(kAccountYieldChart, {825, 250})->PlacesOf("50").empty());
    EXPECT_FALSE(StretchedTo(kAccountYieldChart, {0, 0, 825, 250})->PlacesOf("50").empty());
    EXPECT_TRUE(Drawn(kTradeYieldChart, {825, 250})->PlacesOf("100").empty());
    EXPECT_FALSE(StretchedTo(kTradeYieldChart, {0, 0, 825, 250})->PlacesOf("100").empty());
    AddDay("20240104", "12340");  // between the ticks 1.200 and 1.300
    EXPECT_TRUE(Drawn(kEquityChart, {825, 250})->PlacesOf("1.234").empty());
    EXPECT_EQ(StretchedTo(kEquityChart, {0, 0, 825, 250})->PlacesOf("1.234").size(), 1u);
    report.MoneyStore.Clear();
    AddDay("20240102", "12000", "0");
    AddDay("20240103", "12000", "10000");  // ticks 1200.0001 apart
    EXPECT_EQ(Drawn(kRealisedChart, {825, 250})->PlacesOf("1.000").size(), 1u);
    EXPECT_EQ(StretchedTo(kRealisedChart, {0, 0, 825, 250})->PlacesOf("1.000").size(), 1u);
}

TEST_F(AccountCharts, ColourBarsByHalfTheCapital) {
    AddDays(2, true);
    SetRisk("20240102", 0.51);
    for (const Painting& canvas : {Drawn(kEquityChart, {825, 250}), StretchedTo(kEquityChart, {0, 0, 825, 250})}) {
        ASSERT_GE(canvas->rectangles.size(), 2u);
        const PaintedShape& last = canvas->rectangles.back();
        const PaintedShape& before = canvas->rectangles[canvas->rectangles.size() - 2];
        EXPECT_EQ(before.brush, Brush{0xB0CDA4});  // exactly half isn't over it
        EXPECT_EQ(last.brush, Brush{0xB3AADD});
        EXPECT_EQ(last.pen, (Pen{.width = 1, .color = 0}));
    }
}

TEST_F(AccountCharts, DrawTheZeroLineOfYieldsThick) {
    AddDays(3, true);
    const Pen thick{.width = 3, .color = 0xD7D7D7};
    for (const AccountChart* const chart : {&kAccountYieldChart, &kTradeYieldChart}) {
        const Painting canvas = Drawn(*chart, {500, 250});
        const std::vector<PaintedLine> lines = canvas->LinesOf(thick);
        ASSERT_EQ(lines.size(), 1u);
        const std::vector<Point> zero = canvas->PlacesOf("0%");
        ASSERT_EQ(zero.size(), 1u);
        EXPECT_EQ(lines.front().from.y, zero.front().y + 11 / 2);  // labels stand half their height above their tick
    }
    EXPECT_TRUE(Drawn(kEquityChart, {825, 250})->LinesOf(thick).empty());
    EXPECT_TRUE(Drawn(kRealisedChart, {825, 250})->LinesOf(thick).empty());
}

TEST_F(AccountCharts, LetANegativeEquityRunBelowTheAxis) {
    AddDay("20240102", "5000");
    AddDay("20240103", "-3000");
    const Painting canvas = Drawn(kEquityChart, {825, 250});
    ASSERT_EQ(canvas->ellipses.size(), 3u);
    const auto middle = [](const PaintedShape& dot) { return (dot.box.top + dot.box.bottom) / 2; };
    constexpr std::int32_t kAxisBottom = 220;  // 30 above the lower edge
    EXPECT_LT(middle(canvas->ellipses[1]), kAxisBottom);
    EXPECT_GT(middle(canvas->ellipses[2]), kAxisBottom);
}

TEST_F(AccountCharts, SizeDotsByTheirOwnCountOfDays) {
    AddDays(20, false);  // 20 records, but no usage
    SetRisk("20240101", 0.5);
    // 100 pixels: 5 for each record, 100 for the day of usage
    EXPECT_EQ(RadiusOf(Drawn(kEquityChart, {100, 250})), 2);
    EXPECT_EQ(RadiusOf(Drawn(kRealisedChart, {100, 250})), 2);
    EXPECT_EQ(RadiusOf(Drawn(kAccountYieldChart, {100, 250})), 3);
    EXPECT_EQ(RadiusOf(Drawn(kTradeYieldChart, {100, 250})), 3);
    // 120 pixels: 6 for each record
    EXPECT_EQ(RadiusOf(Drawn(kEquityChart, {120, 250})), 3);
    EXPECT_EQ(RadiusOf(Drawn(kRealisedChart, {120, 250})), 3);
}

TEST_F(AccountCharts, GrowDotsWithTheEquityOrTheAccountYieldChart) {
    AddDays(5, true);
    report.MoneyStore.ChartSizes = {800, 0, 100, 0, 400, 0, 100, 0};  // realised and trading yield have no say
    const struct {
        const AccountChart& chart;
        std::int32_t radius;
    } cases[] = {{kEquityChart, 3}, {kRealisedChart, 3}, {kAccountYieldChart, 6}, {kTradeYieldChart, 6}};
    for (const auto& one : cases) {
        EXPECT_EQ(RadiusOf(StretchedTo(one.chart, {100, 0, 900, 250})), one.radius);
        EXPECT_EQ(RadiusOf(StretchedTo(one.chart, {0, 0, 399, 250})), 0);  // narrower than both
    }
}

TEST_F(AccountCharts, SizeDotsAsInTheReportIfNoWidthIsKnown) {
    AddDays(20, true);
    for (const AccountChart* const chart : kAllCharts) {
        EXPECT_EQ(RadiusOf(StretchedTo(*chart, {0, 0, 120, 250})), 3) << chart->name;
        EXPECT_EQ(RadiusOf(StretchedTo(*chart, {0, 0, 119, 250})), 2) << chart->name;
    }
}

TEST_F(AccountCharts, ComeOutTheSameInBothFormsButForLabelsAndHeldYields) {
    AddDays(3, true);
    report.MoneyStore.ChartSizes = {825, 250, 825, 250, 825, 250, 825, 250};
    for (const AccountChart* const chart : kAllCharts) {
        const Painting plain = Drawn(*chart, {825, 250});
        const Painting stretched = StretchedTo(*chart, {0, 0, 825, 250});
        EXPECT_EQ(plain->ellipses, stretched->ellipses)
            << chart->name;  // same points, same dots: the width is the saved one
        EXPECT_EQ(plain->rectangles, stretched->rectangles) << chart->name;
    }
}

TEST_F(AccountCharts, AreRefusedWithoutTheDaysOfAReport) {
    AddDays(3, true);
    const char* const texts[] = {"",          "2024",      "2024-1",     "2024-0-1",   "2024-13-1", "2024-1-0",
                                 "2024-1-32", "1899-1-31", "1960-01-01", "3001-01-02", "x-y-z",     "20240102"};
    for (const char* const text : texts) {
        for (const AccountChart* const chart : kAllCharts) {
            CRecordingCanvas canvas;
            SetDays("2024-1-1", "2024-1-31");
            report.MoneyStore.StartDateText = text;
            EXPECT_EQ(RefusalOf(*chart, canvas), 0x80070057u) << chart->name << " from " << text;
            SetDays("2024-1-1", "2024-1-31");
            report.MoneyStore.EndDateText = text;
            EXPECT_EQ(RefusalOf(*chart, canvas), 0x80070057u) << chart->name << " to " << text;
            EXPECT_TRUE(IsUntouched(canvas)) << chart->name << " " << text;
        }
    }
}

TEST_F(AccountCharts, TakeAnyDateThatHasATime) {
    AddDays(3, true);
    for (const char* const text : {"1970-01-03", "2024-1-1", "2024-02-31", "2024-12-31", "3000-12-30"}) {
        for (const AccountChart* const chart : kAllCharts) {
            CRecordingCanvas canvas;
            report.MoneyStore.StartDateText = text;
            EXPECT_EQ(RefusalOf(*chart, canvas), 0u) << text;
            SetDays("2024-1-1", "2024-1-31");
            report.MoneyStore.EndDateText = text;
            EXPECT_EQ(RefusalOf(*chart, canvas), 0u) << text;
        }
    }
}

TEST_F(AccountCharts, BearAnyRectangle) {
    AddDays(3, true);
    const Box rects[] = {{0, 0, 0, 0},
                         {0, 0, 1, 1},
                         {0, 0, 30'000, 30'000},
                         {825, 250, 0, 0},
                         {-100, -100, -50, -50},
                         {INT_MIN, INT_MIN, INT_MAX, INT_MAX},
                         {INT_MAX, INT_MAX, INT_MIN, INT_MIN},
                         {INT_MAX, INT_MAX, INT_MAX, INT_MAX}};
    for (const ChartSizes& sizes : {ChartSizes{}, {1, 1, 1, 1, 1, 1, 1, 1}, {-1, -1, -1, -1, -1, -1, -1, -1}}) {
        for (const Box& rect : rects) {
            for (const AccountChart* const chart : kAllCharts) {
                report.MoneyStore.ChartSizes = sizes;
                EXPECT_FALSE(IsUntouched(*StretchedTo(*chart, rect))) << chart->name;
                EXPECT_FALSE(IsUntouched(*Drawn(*chart, {rect.right, rect.bottom}))) << chart->name;
            }
        }
    }
}

}  // namespace
}  // namespace tradebill::account_charts_test
