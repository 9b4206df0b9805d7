#include "images/chart_markers.h"

#include <algorithm>

#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr std::int32_t kLargeRadius = 3;
constexpr std::int32_t kSmallRadius = 2;

}  // namespace

std::int32_t MarkerRadius(std::int32_t width, std::int32_t days) {
    const bool isLarge = days < 1 || width / days / 2 >= kLargeRadius;
    return ScaleByRequest(isLarge ? kLargeRadius : kSmallRadius);
}

std::int32_t StretchedMarkerRadius(std::int32_t width, std::int32_t days, std::int32_t savedWidth) {
    if (days < 1 || savedWidth < 1) return MarkerRadius(width, days);
    const std::int64_t zoom = std::int64_t{std::max(width, 0) / savedWidth} * kLargeRadius;
    // pixels of the picture, whatever the resolution of the screen
    if (width / days >= 2 * zoom) return static_cast<std::int32_t>(zoom);
    return MarkerRadius(width, days);
}

}  // namespace tradebill
