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

    /// Serves a bitmap of this size from now on, whose colours are anything. False, and nothing has changed, if there
    /// is no room for it, or the system's own bitmap can't be another's. REQUIRES: both are at least 1.
    [[nodiscard]] bool ServeFor(std::int32_t width, std::int32_t height);

    [[nodiscard]] std::uint32_t* Pixels() const { return pixels_; }
    /// The system's own bitmap, where it has such; null without pixels.
    [[nodiscard]] void* NativeBitmap() const { return nativeBitmap_; }

private:
    std::uint32_t* pixels_ = nullptr;
    std::int64_t room_ = 0;  ///< pixels
    void* nativeBitmap_ = nullptr;
};

}  // namespace tradebill
