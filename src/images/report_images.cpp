#include "images/report_images.h"

#include <new>
#include <string_view>

#include "base/number.h"
#include "base/text.h"
#include "images/account_charts.h"
#include "images/account_table.h"
#include "images/currency_tables.h"
#include "images/header_block.h"
#include "images/picture_names.h"
#include "images/statistics_panel.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"
#include "report/report_document.h"
#include "report/request_copy.h"
#include "report/stores.h"

namespace tradebill {
namespace {

constexpr int kBlockHeight = 230;
constexpr int kChartWidth = 500;
constexpr int kChartHeight = 250;

/// The report's base width: that of the banner, whatever it is.
struct BaseWidth {
    int pixels;

    [[nodiscard]] int Scaled() const { return ScaleByRequest(pixels); }
};

struct ReportPicture {
    std::string_view name;
    PictureSize (*size)(BaseWidth base);
    void (*paint)(CCanvas& canvas, BaseWidth base, const PictureSize& size);
    /// What is made white before: all of it if this is null.
    PictureSize (*ground)(BaseWidth base) = nullptr;
};

// The title bars, which the page stretches.
PictureSize BannerSize(BaseWidth base) {
    return {base.pixels, 135};
}
PictureSize BarSize(BaseWidth base) {
    return {base.pixels, 35};
}

void PaintHead(CCanvas& canvas, BaseWidth base, bool withBanner) {
    PaintHeaderBlock(canvas,
                     {.days = ReportDays,
                      .account = FieldText(Request.Account),
                      .width = base.pixels - 40,
                      .withBanner = withBanner},
                     0);
}
void PaintBannerHead(CCanvas& canvas, BaseWidth base, const PictureSize& /*size*/) {
    PaintHead(canvas, base, true);
}
void PaintBar(CCanvas& canvas, BaseWidth base, const PictureSize& /*size*/) {
    PaintHead(canvas, base, false);
}

// The tables.
PictureSize DetailSize(BaseWidth base) {
    const int width = base.Scaled();
    if (!IsForeign()) return {width, ScaleByRequest(kChartHeight) + 20};
    return {width, WrapAdd(WrapMultiply(CountCurrencyBlocks(width), ScaleByRequest(kBlockHeight)), 40)};
}
void PaintDetail(CCanvas& canvas, BaseWidth base, const PictureSize& /*size*/) {
    if (IsForeign()) {
        PaintCurrencyTables(canvas, {.width = base.Scaled(), .blockHeight = ScaleByRequest(kBlockHeight)});
    } else {
        PaintAccountTable(canvas);
    }
}
PictureSize PanelSize(BaseWidth base) {
    return {base.Scaled(), ScaleByRequest(534)};
}
void PaintPanel(CCanvas& canvas, BaseWidth /*base*/, const PictureSize& /*size*/) {
    PaintStatisticsPanel(canvas);
}

// The charts.
PictureSize WideChartSize(BaseWidth base) {
    return {base.Scaled(), ScaleByRequest(kChartHeight)};
}
PictureSize ChartSize(BaseWidth /*base*/) {
    return {ScaleByRequest(kChartWidth), ScaleByRequest(kChartHeight)};
}
PictureSize EquityChartSize(BaseWidth base) {
    return IsForeign() ? WideChartSize(base) : ChartSize(base);
}
PictureSize UnscaledChartSize(BaseWidth base) {
    return {base.pixels, kChartHeight};
}
template <void (*Draw)(CCanvas&, const ReportRange&, const PictureSize&)>
void PaintChart(CCanvas& canvas, BaseWidth /*base*/, const PictureSize& size) {
    Draw(canvas, ReportDays, size);
}

// clang-format off
constexpr ReportPicture kPictures[] = {
    {kAccountSummary,  BannerSize,      PaintBannerHead},
    {kAccountDetail,   DetailSize,      PaintDetail},
    {kAccountFigure,   EquityChartSize, PaintChart<DrawEquityChart>},
    {kBillStatistics,  BarSize,         PaintBar},
    {kAccountStatics,  PanelSize,       PaintPanel},
    {kHealthFigure,    ChartSize,       PaintChart<DrawAccountYieldChart>},
    {kRiskFigure,      ChartSize,       PaintChart<DrawTradeYieldChart>},
    {kTradeStatistics, BarSize,         PaintBar},
    {kLastPositions,   BarSize,         PaintBar},
    {kMatchDetails,    BarSize,         PaintBar},
    {kOffsetRecords,   BarSize,         PaintBar},
    // White as far as it would reach unscaled: without a chart the rest stays black.
    {kOffsetFigure,    WideChartSize,   PaintChart<DrawOffsetChart>, UnscaledChartSize},
};
// clang-format on

void SaveButton(int id, std::string_view name) {
    if (const auto button = LoadPngResource(id)) static_cast<void>(SavePng(*button, FullPicturePath(name)));
}

/// Passed over if it can't be made: the report comes out with what there is.
void SavePicture(std::string_view name, const PictureSize& size, const PicturePainter& paint) {
    try {
        CBitmap bitmap(size.width, size.height, 0);
        paint(*MakeCanvas(bitmap));
        static_cast<void>(SaveJpeg(bitmap, FullPicturePath(name)));
    } catch (const std::bad_alloc&) {
        return;  // a large one may find no memory where the next finds it
    }
}

}  // namespace

void NoteChartSizes() {
    const auto banner = LoadPngResource(kBannerId);
    if (!banner) return;
    const BaseWidth base{banner->Width()};
    const PictureSize equity = EquityChartSize(base);
    const PictureSize realised = WideChartSize(base);
    const PictureSize yield = ChartSize(base);
    MoneyStore.ChartSizes = {equity.width, equity.height, realised.width, realised.height,
                             yield.width,  yield.height,  yield.width,    yield.height};
}

void ShowReportPictures(int baseWidth, const PictureViewer& show) {
    const BaseWidth base{baseWidth};
    for (const ReportPicture& picture : kPictures) {
        const PictureSize size = picture.size(base);
        const PictureSize ground = picture.ground != nullptr ? picture.ground(base) : size;
        show(picture.name, size, [&](CCanvas& canvas) {
            canvas.SelectTextBackground(TextBackground::Transparent);
            canvas.FillSolid({0, 0, ground.width, ground.height}, kWhite);
            picture.paint(canvas, base, size);
        });
    }
}

bool BuildReportImages() {
    SaveButton(kShrinkId, kShrinkPicture);
    SaveButton(kExpandId, kExpandPicture);
    const auto banner = LoadPngResource(kBannerId);
    if (!banner) return false;
    const BaseWidth base{banner->Width()};
    ReportDocument.PageWidth = base.Scaled();
    ShowReportPictures(base.pixels, SavePicture);
    return true;
}

}  // namespace tradebill
