#include "platform/pixel_memory.h"

#include <utility>

namespace tradebill {

CPixelMemory::CPixelMemory(CPixelMemory&& other) noexcept
    : pixels_(std::exchange(other.pixels_, nullptr)),
      room_(std::exchange(other.room_, 0)),
      nativeBitmap_(std::exchange(other.nativeBitmap_, nullptr)) {}

CPixelMemory& CPixelMemory::operator=(CPixelMemory&& other) noexcept {
    std::swap(pixels_, other.pixels_);
    std::swap(room_, other.room_);
    std::swap(nativeBitmap_, other.nativeBitmap_);
    return *this;
}

}  // namespace tradebill
