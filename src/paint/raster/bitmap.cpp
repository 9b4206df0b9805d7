#include "paint/bitmap.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include "paint/geometry.h"

namespace tradebill {

void CBitmap::Begin(std::int32_t width, std::int32_t height, Color color) {
    width_ = 0;
    height_ = 0;
    if (width <= 0 || height <= 0 || std::int64_t{width} * height > kMostBitmapPixels) return;
    if (!memory_.ServeFor(width, height)) {
        memory_ = CPixelMemory();  // gone before there is another
        memory_ = CPixelMemory(width, height);
    }
    width_ = width;
    height_ = height;
    // By rows: a copy moves more at once than a fill.
    std::uint32_t* const first = memory_.Pixels();
    std::fill_n(first, width, PixelOf(color));
    for (std::size_t row = 1; row < static_cast<std::size_t>(height); ++row) {
        std::copy_n(first, width, first + row * static_cast<std::size_t>(width));
    }
}

}  // namespace tradebill
