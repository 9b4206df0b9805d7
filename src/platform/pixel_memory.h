// Memory of 32-bit pixels that the platform can paint on.
#pragma once

#include <cstdint>

namespace tradebill {

/// Rows lie bottom-up and without gaps. On Windows it is the section of a device-independent bitmap.
class CPixelMemory {
public:
    /// Of no pixels.
    CPixelMemory() = default;
    /// Their colours are anything. Throws std::bad_alloc.
    /// REQUIRES: both are at least 1.
    CPixelMemory(std::int32_t width, std::int32_t height);
    CPixelMemory(CPixelMemory&& other) noexcept;
    CPixelMemory& operator=(CPixelMemory&& other) noexcept;
    ~CPixelMemory();

    [[nodiscard]] std::uint32_t* Pixels() const { return pixels_; }
    /// The system's own bitmap, where it has such; null without pixels.
    [[nodiscard]] void* NativeBitmap() const { return nativeBitmap_; }

private:
    std::uint32_t* pixels_ = nullptr;
    void* nativeBitmap_ = nullptr;
};

}  // namespace tradebill
