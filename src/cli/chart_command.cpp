#include "cli/chart_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <system_error>

#include "base/ini_file.h"
#include "cli/awaited_work.h"
#include "cli/command_table.h"
#include "cli/output_file.h"
#include "cli/report_arguments.h"
#include "cli/voice.h"
#include "cli/watched_run.h"
#include "driver/repaint.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "images/chart_kinds.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "paint/picture.h"
#include "paint/picture_file.h"
#include "platform/host_surface.h"
#include "platform/paths.h"
#include "report/money_store.h"
#include "report/report.h"
#include "requests/report_options.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::int64_t kMostPixels = std::int64_t{1} << 24;

std::string ChartNames() {
    return OneOf(AccountCharts(), [](const AccountChart* chart) { return chart->name; });
}

const AccountChart& ChartCalled(const std::string& name) {
    const AccountChart* const found = FindAccountChart(name);
    if (found == nullptr) throw CUsageError("expected " + ChartNames() + ", found \"" + name + "\"");
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

std::optional<PictureSize> AreaSizeOf(const ChartCommand& command) {
    if (!command.size) return std::nullopt;
    const auto numbers = NumbersIn<2>(*command.size, 'x');
    if (!numbers || (*numbers)[0] < 1 || (*numbers)[1] < 1 ||
        std::int64_t{(*numbers)[0]} * (*numbers)[1] > kMostPixels) {
        throw CUsageError("--size: expected WIDTHxHEIGHT of at most 16777216 pixels, found \"" + *command.size + "\"");
    }
    return PictureSize{(*numbers)[0], (*numbers)[1]};
}

std::optional<ChartRect> PartOf(const ChartCommand& command) {
    if (!command.rect) return std::nullopt;
    const auto numbers = NumbersIn<4>(*command.rect, ',');
    if (!numbers || (*numbers)[0] >= (*numbers)[2] || (*numbers)[1] >= (*numbers)[3]) {
        throw CUsageError("--rect: expected LEFT,TOP,RIGHT,BOTTOM with room between them, found \"" + *command.rect +
                          "\"");
    }
    return ChartRect{(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]};
}

/// White where the chart doesn't reach; without pixels if they would be too many.
CPicture WhitePicture(const PictureSize& size) {
    CPicture picture(size.width, size.height);
    for (std::int32_t y = 0; y < picture.Height(); ++y) std::fill_n(picture.Row(y), picture.Width(), 0xFFFFFFFF);
    return picture;
}

std::string EncodeAsPng(const CPicture& picture) {
    return EncodePng(picture);
}

/// REQUIRES: nothing of the picture can be seen through.
std::string EncodeAsJpeg(const CPicture& picture) {
    CBitmap bitmap(picture.Width(), picture.Height(), kWhite);
    for (std::int32_t y = 0; y < picture.Height(); ++y) {
        std::ranges::transform(std::span(picture.Row(y), static_cast<std::size_t>(picture.Width())), bitmap.Row(y),
                               [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
    }
    return EncodeJpeg(bitmap);
}

using Encoder = std::string (*)(const CPicture& picture);

struct PictureEnding {
    const char* ending;
    Encoder encode;
};

// clang-format off
constexpr PictureEnding kPictureEndings[] = {
    {".png",  EncodeAsPng},
    {".jpg",  EncodeAsJpeg},
    {".jpeg", EncodeAsJpeg},
};
// clang-format on

/// By the ending of the name; PNG without one. Throws CUsageError for any other. Names of devices and pipes end as they
/// like.
Encoder EncoderFor(const COutputFile& output, const std::string& given) {
    const std::string name = FileNameOf(given);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos) return EncodeAsPng;
    for (const PictureEnding& known : kPictureEndings) {
        if (EqualsIgnoringCase(known.ending, name.substr(dot))) return known.encode;
    }
    if (!output.IsFile()) return EncodeAsPng;
    throw CUsageError(output.Option() + ": expected a name that ends in " +
                      OneOf(kPictureEndings, [](const PictureEnding& row) { return row.ending; }) + ", found \"" +
                      given + "\"");
}

int SavePicture(const std::string& content, const COutputFile& output) {
    if (content.empty()) return Fail("no such picture file can be this large: choose another --size");
    const auto write = [&content](std::ostream& out) {
        out << content;
        return true;
    };
    return output.Save(write) ? kExitDone : Fail("can't write " + output.Name());
}

}  // namespace

CommandRun DeclareChart(CLI::App& app) {
    const auto command = std::make_shared<ChartCommand>();
    DeclareReportOptions(app, command->options);
    app.add_option("CHART", command->chart, ChartNames())->required()->type_name("");
    app.add_option("--size", command->size, "Painting area; that of the report's chart if not given")->type_name("WxH");
    app.add_option("--rect", command->rect, "The chart's rectangle in it; all of it if not given")
        ->type_name("L,T,R,B");
    app.add_option("-o,--output", command->outputFile,
                   "The picture: .png, .jpg or .jpeg; - for a PNG on standard output")
        ->required()
        ->type_name("FILE");
    return [command] { return RunChartCommand(*command); };
}

int RunChartCommand(const ChartCommand& command) {
    CAwaitedWork work(true);
    const AccountChart& chart = ChartCalled(command.chart);
    const std::optional<PictureSize> wanted = AreaSizeOf(command);
    const std::optional<ChartRect> part = PartOf(command);
    const COutputFile output("--output", command.outputFile);
    const Encoder encode = EncoderFor(output, command.outputFile);
    const PreparedRequest prepared = PrepareRequest(command.options);
    RequireTemplate(prepared);
    CReport report;
    const auto result = RunWatched(report, prepared, &work, ReadAccount, {.needsStatement = true});
    if (!result) return kExitFailed;
    if (result->end == RunEnd::NothingRead) return FailWithoutStatement(*result, "nothing is written");
    const ChartSizes& sizes = report.MoneyStore.ChartSizes;
    const PictureSize size = wanted.value_or(PictureSize{sizes[chart.ownSize], sizes[chart.ownSize + 1]});
    const ChartRect rect = part.value_or(ChartRect{0, 0, size.width, size.height});
    work.BeginFile(output.Name());
    CPicture picture = WhitePicture(size);
    if (picture.Width() == 0) return Fail("the chart is too large for a picture: choose another --size");
    const std::int32_t status = PaintAsHost({picture.Row(0), picture.Width(), picture.Height()},
                                            [&](ChartTarget* target) { Repaint(report, chart, target, &rect, size); });
    if (status != kChartDone) return Fail("the chart can't be painted at this size");
    if (SavePicture(encode(picture), output) != kExitDone) return kExitFailed;
    const int painted = FinishPainting();
    return result->problems.IsEmpty() ? painted : kExitFailed;
}

}  // namespace tradebill
