// The functions of the interface on charts.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "driver/repaint.h"
#include "driver/report_request.h"
#include "hosts/host_buffer.h"
#include "hosts/host_report.h"
#include "hosts/tradebill.h"
#include "images/chart_kinds.h"
#include "paint/picture.h"
#include "paint/picture_file.h"
#include "platform/host_surface.h"
#include "report/money_store.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::int64_t kMostPixels = std::int64_t{1} << 24;

bool IsSize(std::int32_t width, std::int32_t height) {
    return width > 0 && height > 0 && std::int64_t{width} * height <= kMostPixels;
}

bool ArePixels(const TradeBillPixels& pixels) {
    constexpr std::int32_t kPixelBytes = 4;
    return pixels.Size >= sizeof pixels && pixels.Pixels != nullptr && IsSize(pixels.Width, pixels.Height) &&
           pixels.Stride % kPixelBytes == 0 && pixels.Stride / kPixelBytes >= pixels.Width;
}

PictureSize PageSizeOf(const CReport& report, const AccountChart& chart) {
    const ChartSizes& sizes = report.MoneyStore.ChartSizes;
    return {sizes[chart.ownSize], sizes[chart.ownSize + 1]};
}

std::int32_t ResultOf(std::int32_t status) {
    switch (status) {
        case kChartDone:
            return TRADEBILL_DONE;
        case kChartOutOfMemory:
            return TRADEBILL_OUT_OF_MEMORY;
        default:
            return TRADEBILL_FAILED;
    }
}

/// White where the chart doesn't reach.
std::int32_t PaintOn(CPicture& picture, const CReport& report, const AccountChart& chart) {
    const PictureSize size{picture.Width(), picture.Height()};
    for (std::int32_t y = 0; y < size.height; ++y) std::fill_n(picture.Row(y), size.width, 0xFFFFFFFF);
    const ChartRect all{0, 0, size.width, size.height};
    return ResultOf(PaintAsHost({picture.Row(0), size.width, size.height},
                                [&](ChartTarget* target) { Repaint(report, chart, target, &all, size); }));
}

std::int32_t Paint(const CHostReport& report, const char* name, const TradeBillPixels& pixels) {
    const AccountChart* const chart = FindAccountChart(name);
    if (chart == nullptr) return TRADEBILL_NO_SUCH_NAME;
    CPicture picture(pixels.Width, pixels.Height);
    const std::int32_t result = PaintOn(picture, report.Report(), *chart);
    if (result != TRADEBILL_DONE) return result;
    for (std::int32_t y = 0; y < pixels.Height; ++y) {
        auto* const row = pixels.Pixels + static_cast<std::ptrdiff_t>(y) * (pixels.Stride / 4);
        std::copy_n(picture.Row(y), pixels.Width, row);
    }
    return TRADEBILL_DONE;
}

std::int32_t EncodeChart(const CHostReport& report, const char* name, PictureSize size, std::string& png) {
    const AccountChart* const chart = FindAccountChart(name);
    if (chart == nullptr) return TRADEBILL_NO_SUCH_NAME;
    const PictureSize onPage = PageSizeOf(report.Report(), *chart);
    if (size.width == 0) size.width = onPage.width;
    if (size.height == 0) size.height = onPage.height;
    if (!IsSize(size.width, size.height)) return TRADEBILL_WRONG_ARGUMENT;
    CPicture picture(size.width, size.height);
    const std::int32_t result = PaintOn(picture, report.Report(), *chart);
    if (result != TRADEBILL_DONE) return result;
    png = EncodePng(picture);
    return png.empty() ? TRADEBILL_FAILED : TRADEBILL_DONE;
}

}  // namespace
}  // namespace tradebill

int32_t TradeBillChartCount(void) {
    return static_cast<int32_t>(tradebill::AccountCharts().size());
}

const char* TradeBillChartName(int32_t chart) {
    const auto charts = tradebill::AccountCharts();
    const bool isThere = chart >= 0 && static_cast<std::size_t>(chart) < charts.size();
    return isThere ? charts[static_cast<std::size_t>(chart)]->name.data() : nullptr;
}

int32_t TradeBillPaint(TradeBillReport* report, const char* chart, const TradeBillPixels* pixels) {
    if (report == nullptr) return TRADEBILL_WRONG_ARGUMENT;
    return report->report.Ask([&] {
        const bool isAsked = chart != nullptr && pixels != nullptr && tradebill::ArePixels(*pixels);
        return isAsked ? tradebill::Paint(report->report, chart, *pixels) : std::int32_t{TRADEBILL_WRONG_ARGUMENT};
    });
}

int32_t TradeBillPng(TradeBillReport* report, const char* chart, int32_t width, int32_t height, void** png,
                     size_t* bytes) {
    if (png != nullptr) *png = nullptr;
    if (report == nullptr) return TRADEBILL_WRONG_ARGUMENT;
    return report->report.Ask([&] {
        if (chart == nullptr || png == nullptr || bytes == nullptr) return std::int32_t{TRADEBILL_WRONG_ARGUMENT};
        std::string content;
        const std::int32_t result = tradebill::EncodeChart(report->report, chart, {width, height}, content);
        if (result != TRADEBILL_DONE) return result;
        *png = tradebill::BufferOf(content);
        *bytes = content.size();
        return result;
    });
}
