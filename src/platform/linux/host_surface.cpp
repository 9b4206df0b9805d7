#include "platform/host_surface.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <vector>
#include "driver/report_request.h"

namespace tradebill {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;

/// The pixels along one axis that both sides have.
struct Overlap {
    std::int64_t source;
    std::int64_t target;
    std::int64_t count;
};

Overlap OverlapOf(std::int64_t from, std::int64_t to, std::int64_t sourceSize, std::int64_t at,
                  std::int64_t targetSize) {
    const std::int64_t shift = at - from;
    const std::int64_t first = std::max({from, std::int64_t{0}, -shift});
    const std::int64_t end = std::min({to, sourceSize, targetSize - shift});
    return {first, first + shift, std::max<std::int64_t>(end - first, 0)};
}

}  // namespace

std::int32_t ShowOnSurface(ChartTarget* target, const ShownPixels& pixels, const ChartRect& part, SurfacePlace at) {
    constexpr std::int64_t kPixelBytes = sizeof(std::uint32_t);
    const bool hasPixels = target->Pixels != nullptr && target->Width > 0 && target->Height > 0;
    if (!hasPixels || target->Stride < kPixelBytes * target->Width) return kChartInvalidParameter;
    const Overlap across = OverlapOf(part.Left, part.Right, pixels.width, at.x, target->Width);
    const Overlap down = OverlapOf(part.Top, part.Bottom, pixels.height, at.y, target->Height);
    if (across.count == 0) return kChartDone;
    std::vector<std::uint32_t> row(static_cast<std::size_t>(across.count));
    auto* const bytes = reinterpret_cast<std::byte*>(target->Pixels);
    for (std::int64_t y = 0; y < down.count; ++y) {
        const std::uint32_t* const source = pixels.top + (down.source + y) * pixels.pitch + across.source;
        std::transform(source, source + across.count, row.begin(), [](std::uint32_t pixel) { return pixel | kOpaque; });
        std::byte* const to = bytes + (down.target + y) * target->Stride + across.target * kPixelBytes;
        std::memcpy(to, row.data(), row.size() * sizeof(std::uint32_t));  // a stride needn't be a multiple of 4
    }
    return kChartDone;
}

void SetSurfaceStatus(ChartTarget* target, std::int32_t status) {
    target->LastStatus = status;
}

std::int32_t PaintAsHost(const PaintedPixels& pixels, const std::function<void(ChartTarget* target)>& paint) {
    ChartTarget target{.Pixels = pixels.top,
                       .Width = pixels.width,
                       .Height = pixels.height,
                       .Stride = pixels.width * static_cast<std::int32_t>(sizeof(std::uint32_t)),
                       .LastStatus = kChartDone};
    paint(&target);
    return target.LastStatus;
}

}  // namespace tradebill
