#include "platform/pixel_memory.h"

#include <cstddef>
#include <cstdint>

namespace tradebill {

CPixelMemory::CPixelMemory(std::int32_t width, std::int32_t height)
    : pixels_(new std::uint32_t[static_cast<std::size_t>(width) * static_cast<std::size_t>(height)]),
      room_(std::int64_t{width} * height) {}

CPixelMemory::~CPixelMemory() {
    delete[] pixels_;
}

bool CPixelMemory::ServeFor(std::int32_t width, std::int32_t height) {
    return std::int64_t{width} * height <= room_;
}

}  // namespace tradebill
