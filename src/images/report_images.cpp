#include "images/report_images.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/number.h"
#include "base/shortage.h"
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
#include "platform/file.h"
#include "platform/system_error.h"
#include "report/money_store.h"
#include "report/report.h"
#include "report/report_document.h"

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

/// Whether a picture can be painted: a host may name any resolution. No side is too long for a JPEG file then.
bool IsWithinBounds(const PictureSize& size) {
    return std::int64_t{size.width} * size.height <= kMostBitmapPixels;
}

/// A picture that the module carries inside and lays beside the painted ones.
struct Button {
    std::string_view name;
    int id;
};

constexpr Button kButtons[] = {{kShrinkPicture, kShrinkId}, {kExpandPicture, kExpandId}};

/// Nobody meets half a picture: what is not at its place yet is not looked at.
bool SaveIn(const CReportDocument& document, std::string_view name, std::string_view content) {
    const std::string path = FullPicturePath(document, name);
    if (document.WorkFolder.empty()) return SavePictureFile(content, path);
    CFile file(path, FileMode::Create);
    return file.IsOpen() && file.Write(content) && file.Close();
}

/// Saves what makes up a page's pictures, one after another. What can't be made is passed over: the report comes out
/// with what there is.
class CPictureSaver {
public:
    CPictureSaver(const CReport& report, ReportImages& images) : report_(report), images_(images) {}

    /// Gets memory that no picture up to this size asks for again. To go without it is no harm.
    void PrepareFor(const PictureSize& largest) {
        try {
            bitmap_.Begin(largest.width, largest.height, 0);
        } catch (const std::bad_alloc&) {
            return;  // the smaller ones may find theirs
        }
    }

    void Save(const Button& button) {
        const auto picture = LoadPngResource(button.id);
        if (!picture) {
            Fail(button.name, PictureStage::Decoding);
            return;
        }
        SaveFile(button.name, {picture->Width(), picture->Height()}, EncodePng(*picture));
    }

    void Save(const ShownPicture& picture) {
        if (!IsWithinBounds(picture.size)) {
            Fail(picture.name, PictureStage::Painting,
                 std::to_string(picture.size.width) + " by " + std::to_string(picture.size.height) +
                     " pixels are more than a picture may have");
            return;
        }
        try {
            if (picture.isTitleBar && titleBar_.empty()) titleBar_ = Paint(picture);
            SaveFile(picture.name, picture.size, picture.isTitleBar ? titleBar_ : Paint(picture));
        } catch (const std::bad_alloc& shortage) {
            // A large one may find no memory where the next finds it.
            Fail(picture.name, PictureStage::Painting, ShortageText(shortage));
        }
    }

    void Fail(std::string_view name, PictureStage stage, std::string reason = {}) {
        images_.failures.push_back({name, stage, ShownPicturePath(report_.ReportDocument, name), std::move(reason)});
    }

private:
    std::string Paint(const ShownPicture& picture) {
        bitmap_.Begin(picture.size.width, picture.size.height, 0);
        const auto canvas = MakeCanvas(bitmap_);
        if (picture.chart != nullptr) NoteSize(images_.chartSizes, *picture.chart, picture.size);
        picture.paint(*canvas);
        return EncodeJpeg(bitmap_);
    }

    void SaveFile(std::string_view name, PictureSize size, std::string_view content) {
        if (content.empty()) {
            Fail(name, PictureStage::Painting);
        } else if (SaveIn(report_.ReportDocument, name, content)) {
            images_.saved.push_back({.name = name, .width = size.width, .height = size.height});
        } else {
            Fail(name, PictureStage::Saving, SystemErrorText(LastSystemError()));
        }
    }

    const CReport& report_;
    ReportImages& images_;
    CBitmap bitmap_{0, 0, 0};  ///< of the picture at hand
    std::string titleBar_;     ///< its file's bytes, once they are made
};

PictureSize LargestSize(const PictureGround& ground) {
    const auto pixelsOf = [](const PictureSize& size) { return std::int64_t{size.width} * size.height; };
    PictureSize largest;
    for (const ReportPicture& picture : kPictures) {
        const PictureSize size = picture.size(ground);
        if (IsWithinBounds(size)) largest = std::ranges::max(largest, size, {}, pixelsOf);
    }
    return largest;
}

}  // namespace

void ShowReportPictures(const CReport& report, int baseWidth,
                        const std::function<void(const ShownPicture& picture)>& show) {
    const PictureGround ground{report, baseWidth};
    for (const ReportPicture& picture : kPictures) {
        const PictureSize size = picture.size(ground);
        const PictureSize white = picture.whitened != nullptr ? picture.whitened(ground) : size;
        show({.name = picture.name,
              .size = size,
              .chart = picture.chart,
              .isTitleBar = picture.paint == PaintBar,
              .paint = [&](CCanvas& canvas) {
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

std::vector<std::string_view> ReportPictureNames() {
    std::vector<std::string_view> names;
    std::ranges::transform(kButtons, std::back_inserter(names), &Button::name);
    std::ranges::transform(kPictures, std::back_inserter(names), &ReportPicture::name);
    return names;
}

void BuildReportImages(const CReport& report, ReportImages& images, std::string_view banner) {
    images.chartSizes = report.MoneyStore.ChartSizes;
    CPictureSaver saver(report, images);
    for (const Button& button : kButtons) saver.Save(button);
    const auto size = PngSize(banner);
    if (!size) {
        for (const ReportPicture& picture : kPictures) saver.Fail(picture.name, PictureStage::Decoding);
        return;
    }
    images.pageWidth = report.Scaled(size->width);
    saver.PrepareFor(LargestSize({report, size->width}));
    ShowReportPictures(report, size->width, [&](const ShownPicture& picture) { saver.Save(picture); });
}

ChartSizes MeasureCharts(const CReport& report, std::string_view banner) {
    ChartSizes sizes = report.MoneyStore.ChartSizes;
    const auto size = PngSize(banner);
    if (!size) return sizes;
    const PictureGround ground{report, size->width};
    for (const ReportPicture& picture : kPictures) {
        if (picture.chart != nullptr) NoteSize(sizes, *picture.chart, picture.size(ground));
    }
    return sizes;
}

}  // namespace tradebill
