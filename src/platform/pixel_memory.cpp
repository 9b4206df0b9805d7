#include "platform/pixel_memory.h"

#include <utility>

namespace tradebill {

CPixelMemory::CPixelMemory(CPixelMemory&& other) noexcept
    : pixels_(std::exchange(other.pixels_, nullptr)), nativeBitmap_(std::exchange(other.nativeBitmap_, nullptr)) {}

CPixelMemory& CPixelMemory::operator=(CPixelMemory&& other) noexcept {
    std::swap(pixels_, other.pixels_);
    std::swap(nativeBitmap_, other.nativeBitmap_);
    return *this;
}

}  // namespace tradebill
