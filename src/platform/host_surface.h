// The surface of a host on which charts are repainted.
#pragma once

#include <cstdint>
#include <functional>

#include "driver/report_request.h"

// REQUIRES, of all functions here: the target isn't null.
namespace tradebill {

/// Pixels of 0x00RRGGBB to be shown; they belong to somebody else.
struct ShownPixels {
    const std::uint32_t* top = nullptr;  ///< the highest row
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t pitch = 0;  ///< pixels from the start of a row to that of the row below; negative if that lies before
};

/// A place on a surface, in pixels from its left top corner.
struct SurfacePlace {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// Copies `part` of the pixels to `target`, the left top corner of the part to `at`. What lies outside of either is
/// left out. A status as hosts know it.
[[nodiscard]] std::int32_t ShowOnSurface(ChartTarget* target, const ShownPixels& pixels, const ChartRect& part,
                                         SurfacePlace at);

void SetSurfaceStatus(ChartTarget* target, std::int32_t status);

/// Pixels of 0xAARRGGBB to be painted on, rows from the top and without gaps; they belong to somebody else.
struct PaintedPixels {
    std::uint32_t* top = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// Hands `pixels` to `paint` as a host hands over its surface, and returns the last status it was left with.
[[nodiscard]] std::int32_t PaintAsHost(const PaintedPixels& pixels,
                                       const std::function<void(ChartTarget* target)>& paint);

}  // namespace tradebill
