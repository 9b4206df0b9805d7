#include "paint/bitmap.h"

#include <algorithm>
#include <cstdint>
#include "paint/geometry.h"

namespace tradebill {

CBitmap::CBitmap(std::int32_t width, std::int32_t height, Color color) {
    constexpr std::int64_t kMostPixels = std::int64_t{1} << 28;
    if (width <= 0 || height <= 0 || std::int64_t{width} * height > kMostPixels) return;
    width_ = width;
    height_ = height;
    memory_ = CPixelMemory(width, height);
    std::fill_n(memory_.Pixels(), Count(), PixelOf(color));
}

}  // namespace tradebill
