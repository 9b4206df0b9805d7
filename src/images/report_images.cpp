#include "images/report_images.h"

#include <functional>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "images/account_charts.h"
#include "images/account_table.h"
#include "images/chart_kinds.h"
#include "images/currency_tables.h"
#include "images/header_block.h"
#include "images/picture_names.h"
#include "images/statistics_panel.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"
#include "report/money_store.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr int kBlockHeight = 230;
constexpr int kChartWidth = 500;
constexpr int kChartHeight = 250;

/// A report and its base width: that of the banner, whatever it is.
struct PictureGround {
    const CReport& report;
    int width;  ///< pixels at 96 dots per inch

    [[nodiscard]] int ScaledWidth() const { return report.Scaled(width); }
};

struct ReportPicture {
    std::string_view name;
    PictureSize (*size)(const PictureGround& ground);
    void (*paint)(CCanvas& canvas, const PictureGround& ground);  ///< null for a chart
    const AccountChart* chart = nullptr;
    /// What is made white before: all of it if this is null.
    PictureSize (*whitened)(const PictureGround& ground) = nullptr;
};

// The title bars, which the page stretches.
PictureSize BannerSize(const PictureGround& ground) {
    return {ground.width, 135};
}
PictureSize BarSize(const PictureGround& ground) {
    return {ground.width, 35};
}

void PaintHead(CCanvas& canvas, const PictureGround& ground, bool withBanner) {
    PaintHeaderBlock(canvas,
                     {.days = ground.report.ReportDays,
                      .account = FieldText(ground.report.Request.Account),
                      .width = ground.width - 40,
                      .withBanner = withBanner},
                     0);
}
void PaintBannerHead(CCanvas& canvas, const PictureGround& ground) {
    PaintHead(canvas, ground, true);
}
void PaintBar(CCanvas& canvas, const PictureGround& ground) {
    PaintHead(canvas, ground, false);
}

// The tables.
PictureSize DetailSize(const PictureGround& ground) {
    const CReport& report = ground.report;
    const int width = ground.ScaledWidth();
    if (!report.IsForeign()) return {width, report.Scaled(kChartHeight) + 20};
    return {width, WrapAdd(WrapMultiply(CountCurrencyBlocks(report, width), report.Scaled(kBlockHeight)), 40)};
}
void PaintDetail(CCanvas& canvas, const PictureGround& ground) {
    const CReport& report = ground.report;
    if (report.IsForeign()) {
        PaintCurrencyTables(canvas, report,
                            {.width = ground.ScaledWidth(), .blockHeight = report.Scaled(kBlockHeight)});
    } else {
        PaintAccountTable(canvas, report);
    }
}
PictureSize PanelSize(const PictureGround& ground) {
    return {ground.ScaledWidth(), ground.report.Scaled(534)};
}
void PaintPanel(CCanvas& canvas, const PictureGround& ground) {
    PaintStatisticsPanel(canvas, ground.report);
}

// The charts.
PictureSize WideChartSize(const PictureGround& ground) {
    return {ground.ScaledWidth(), ground.report.Scaled(kChartHeight)};
}
PictureSize ChartSize(const PictureGround& ground) {
    return {ground.report.Scaled(kChartWidth), ground.report.Scaled(kChartHeight)};
}
PictureSize EquityChartSize(const PictureGround& ground) {
    return ground.report.IsForeign() ? WideChartSize(ground) : ChartSize(ground);
}
PictureSize UnscaledChartSize(const PictureGround& ground) {
    return {ground.width, kChartHeight};
}

// clang-format off
constexpr ReportPicture kPictures[] = {
    {kAccountSummary,  BannerSize,      PaintBannerHead},
    {kAccountDetail,   DetailSize,      PaintDetail},
    {kAccountFigure,   EquityChartSize, nullptr, &kEquityChart},
    {kBillStatistics,  BarSize,         PaintBar},
    {kAccountStatics,  PanelSize,       PaintPanel},
    {kHealthFigure,    ChartSize,       nullptr, &kAccountYieldChart},
    {kRiskFigure,      ChartSize,       nullptr, &kTradeYieldChart},
    {kTradeStatistics, BarSize,         PaintBar},
    {kLastPositions,   BarSize,         PaintBar},
    {kMatchDetails,    BarSize,         PaintBar},
    {kOffsetRecords,   BarSize,         PaintBar},
    // White as far as it would reach unscaled: without a chart the rest stays black.
    {kOffsetFigure,    WideChartSize,   nullptr, &kRealisedChart, UnscaledChartSize},
};
// clang-format on

void NoteSize(ChartSizes& sizes, const AccountChart& chart, const PictureSize& size) {
    sizes[chart.ownSize] = size.width;
    sizes[chart.ownSize + 1] = size.height;
}

/// A picture that the module carries inside and lays beside the painted ones.
struct Button {
    std::string_view name;
    int id;
};

constexpr Button kButtons[] = {{kShrinkPicture, kShrinkId}, {kExpandPicture, kExpandId}};

void SaveButton(const CReportDocument& document, const Button& button) {
    const auto picture = LoadPngResource(button.id);
    if (picture) static_cast<void>(SavePng(*picture, FullPicturePath(document, button.name)));
}

/// Passed over if it can't be made: the report comes out with what there is.
void SavePicture(const CReport& report, const ShownPicture& picture, ChartSizes& sizes) {
    try {
        CBitmap bitmap(picture.size.width, picture.size.height, 0);
        const auto canvas = MakeCanvas(bitmap);
        if (picture.chart != nullptr) NoteSize(sizes, *picture.chart, picture.size);
        picture.paint(*canvas);
        static_cast<void>(SaveJpeg(bitmap, FullPicturePath(report.ReportDocument, picture.name)));
    } catch (const std::bad_alloc&) {
        return;  // a large one may find no memory where the next finds it
    }
}

}  // namespace

std::vector<std::string_view> PagePictures() {
    std::vector<std::string_view> names;
    for (const Button& button : kButtons) names.push_back(button.name);
    for (const ReportPicture& picture : kPictures) {
        if (picture.name != kBillStatistics) names.push_back(picture.name);
    }
    return names;
}

void ShowReportPictures(const CReport& report, int baseWidth,
                        const std::function<void(const ShownPicture& picture)>& show) {
    const PictureGround ground{report, baseWidth};
    for (const ReportPicture& picture : kPictures) {
        const PictureSize size = picture.size(ground);
        const PictureSize white = picture.whitened != nullptr ? picture.whitened(ground) : size;
        show({.name = picture.name, .size = size, .chart = picture.chart, .paint = [&](CCanvas& canvas) {
                  canvas.SelectTextBackground(TextBackground::Transparent);
                  canvas.FillSolid({0, 0, white.width, white.height}, kWhite);
                  if (picture.chart != nullptr) {
                      DrawAccountChart(canvas, report, *picture.chart, size);
                  } else {
                      picture.paint(canvas, ground);
                  }
              }});
    }
}

std::optional<ReportImages> BuildReportImages(const CReport& report) {
    for (const Button& button : kButtons) SaveButton(report.ReportDocument, button);
    const auto banner = LoadPngResource(kBannerId);
    if (!banner) return std::nullopt;
    ReportImages images{.pageWidth = report.Scaled(banner->Width()), .chartSizes = report.MoneyStore.ChartSizes};
    ShowReportPictures(report, banner->Width(),
                       [&](const ShownPicture& picture) { SavePicture(report, picture, images.chartSizes); });
    return images;
}

std::optional<ChartSizes> MeasureCharts(const CReport& report) {
    const auto banner = LoadPngResource(kBannerId);
    if (!banner) return std::nullopt;
    const PictureGround ground{report, banner->Width()};
    ChartSizes sizes = report.MoneyStore.ChartSizes;
    for (const ReportPicture& picture : kPictures) {
        if (picture.chart != nullptr) NoteSize(sizes, *picture.chart, picture.size(ground));
    }
    return sizes;
}

}  // namespace tradebill
