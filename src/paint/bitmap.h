// An off-screen picture of 32 bits a pixel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "paint/geometry.h"
#include "platform/pixel_memory.h"

namespace tradebill {

inline constexpr std::int64_t kMostBitmapPixels = std::int64_t{1} << 28;

/// Pixels are 0x00RRGGBB. Rows lie bottom-up in memory, as in a device-independent bitmap of positive height; all
/// operations count rows from the top. A bitmap without width or height, or of more than kMostBitmapPixels, has none.
class CBitmap {
public:
    CBitmap(std::int32_t width, std::int32_t height, Color color) { Begin(width, height, color); }

    /// As a new bitmap, in the memory that this one has if there is room: pages that were touched before cost nothing.
    /// Throws std::bad_alloc and has no pixels then.
    /// REQUIRES: no canvas is left on it.
    void Begin(std::int32_t width, std::int32_t height, Color color);

    [[nodiscard]] std::int32_t Width() const { return width_; }
    [[nodiscard]] std::int32_t Height() const { return height_; }

    /// Width() pixels. REQUIRES: 0 <= y < Height().
    [[nodiscard]] std::uint32_t* Row(std::int32_t y) { return memory_.Pixels() + RowOffset(y); }
    [[nodiscard]] const std::uint32_t* Row(std::int32_t y) const { return memory_.Pixels() + RowOffset(y); }

    /// All rows, the lowest first.
    [[nodiscard]] std::span<const std::uint32_t> Pixels() const { return {memory_.Pixels(), Count()}; }

    /// Where the pixels lie, for what paints on them.
    [[nodiscard]] const CPixelMemory& Memory() const { return memory_; }

private:
    [[nodiscard]] std::size_t RowOffset(std::int32_t y) const {
        return static_cast<std::size_t>(height_ - 1 - y) * static_cast<std::size_t>(width_);
    }

    [[nodiscard]] std::size_t Count() const {
        return static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
    }

    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    CPixelMemory memory_;
};

/// A colour as a pixel.
[[nodiscard]] constexpr std::uint32_t PixelOf(Color color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

}  // namespace tradebill
