#include "paint/picture.h"

#include <cstddef>
#include <cstdint>

namespace tradebill {

CPicture::CPicture(std::int32_t width, std::int32_t height) {
    constexpr std::int64_t kMostPixels = std::int64_t{1} << 24;
    if (width <= 0 || height <= 0 || std::int64_t{width} * height > kMostPixels) return;
    width_ = width;
    height_ = height;
    pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

}  // namespace tradebill
