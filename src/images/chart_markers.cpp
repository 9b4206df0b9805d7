#include "images/chart_markers.h"

#include <algorithm>
#include <cstdint>

#include "base/scale.h"

namespace tradebill {
namespace {

constexpr std::int32_t kLargeRadius = 3;
constexpr std::int32_t kSmallRadius = 2;

}  // namespace

std::int32_t MarkerRadius(const DotSpace& space) {
    const bool isLarge = space.days < 1 || space.width / space.days / 2 >= kLargeRadius;
    return ScaleByDpi(isLarge ? kLargeRadius : kSmallRadius, space.dpi);
}

std::int32_t StretchedMarkerRadius(const DotSpace& space, std::int32_t savedWidth) {
    if (space.days < 1 || savedWidth < 1) return MarkerRadius(space);
    const std::int64_t zoom = std::int64_t{std::max(space.width, 0) / savedWidth} * kLargeRadius;
    // pixels of the picture, whatever the resolution of the screen
    if (space.width / space.days >= 2 * zoom) return static_cast<std::int32_t>(zoom);
    return MarkerRadius(space);
}

}  // namespace tradebill
