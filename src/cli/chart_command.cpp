#include "cli/chart_command.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

#include "cli/output_file.h"
#include "cli/usage_error.h"
#include "cli/watched_run.h"
#include "driver/repaint.h"
#include "paint/picture_file.h"
#include "platform/host_surface.h"
#include "report/stores.h"

namespace tradebill {
namespace {

constexpr std::int64_t kMostPixels = std::int64_t{1} << 24;

using StretchFunction = void(ChartTarget* target, const ChartRect* rect, std::int32_t width, std::int32_t height);

struct NamedChart {
    std::string_view name;
    StretchFunction* stretch;
    std::size_t sizeIndex;  ///< in MoneyStore.ChartSizes
};

constexpr NamedChart kCharts[] = {
    {"equity", StretchZjGraph, 0},
    {"realised", StretchOffsetGraph, 2},
    {"account-yield", StretchRiskAndProfit, 4},
    {"trading-yield", StretchRisk, 6},
};

const NamedChart& ChartCalled(const std::string& name) {
    const auto* const found = std::ranges::find(kCharts, name, &NamedChart::name);
    if (found == std::end(kCharts)) {
        throw CUsageError("expected equity, realised, account-yield or trading-yield, found \"" + name + "\"");
    }
    return *found;
}

/// Whole numbers with `separator` between them, and nothing else.
template <std::size_t Count>
std::optional<std::array<std::int32_t, Count>> NumbersIn(const std::string& text, char separator) {
    std::array<std::int32_t, Count> numbers{};
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t i = 0; i < Count; ++i) {
        if (i > 0 && (at == end || *at++ != separator)) return std::nullopt;
        const auto [behind, error] = std::from_chars(at, end, numbers[i]);
        if (error != std::errc{}) return std::nullopt;
        at = behind;
    }
    return at == end ? std::optional(numbers) : std::nullopt;
}

std::optional<PictureSize> SizeOf(const ChartCommand& command) {
    if (!command.size) return std::nullopt;
    const auto numbers = NumbersIn<2>(*command.size, 'x');
    if (!numbers || (*numbers)[0] < 1 || (*numbers)[1] < 1 ||
        std::int64_t{(*numbers)[0]} * (*numbers)[1] > kMostPixels) {
        throw CUsageError("--size: expected WIDTHxHEIGHT of at most 16777216 pixels, found \"" + *command.size + "\"");
    }
    return PictureSize{(*numbers)[0], (*numbers)[1]};
}

std::optional<ChartRect> RectOf(const ChartCommand& command) {
    if (!command.rect) return std::nullopt;
    const auto numbers = NumbersIn<4>(*command.rect, ',');
    if (!numbers || (*numbers)[0] >= (*numbers)[2] || (*numbers)[1] >= (*numbers)[3]) {
        throw CUsageError("--rect: expected LEFT,TOP,RIGHT,BOTTOM with room between them, found \"" + *command.rect +
                          "\"");
    }
    return ChartRect{(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]};
}

/// White where the chart doesn't reach.
CPicture WhitePicture(const PictureSize& size) {
    CPicture picture(size.width, size.height);
    for (std::int32_t y = 0; y < size.height; ++y) std::fill_n(picture.Row(y), size.width, 0xFFFFFFFF);
    return picture;
}

}  // namespace

int RunChartCommand(const ChartCommand& command) {
    const NamedChart& chart = ChartCalled(command.chart);
    const std::optional<PictureSize> wanted = SizeOf(command);
    const std::optional<ChartRect> part = RectOf(command);
    CheckOutputFile("--output", command.outputFile);
    if (!RunWatched(PrepareRequest(command.options), true, ReadAccount)) return kExitFailed;
    const auto& sizes = MoneyStore.ChartSizes;
    const PictureSize size = wanted.value_or(PictureSize{sizes[chart.sizeIndex], sizes[chart.sizeIndex + 1]});
    const ChartRect rect = part.value_or(ChartRect{0, 0, size.width, size.height});
    CPicture picture = WhitePicture(size);
    if (picture.Width() == 0) return Fail("the chart is too large for a picture: choose another --size");
    const std::int32_t status =
        PaintAsHost({picture.Row(0), picture.Width(), picture.Height()},
                    [&](ChartTarget* target) { chart.stretch(target, &rect, size.width, size.height); });
    if (status != kChartDone) return Fail("the chart can't be painted at this size");
    if (!SavePng(picture, command.outputFile)) return Fail("can't write " + command.outputFile);
    return kExitDone;
}

}  // namespace tradebill
