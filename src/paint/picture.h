// A picture that can be seen through in places, such as a button's mark.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tradebill {

/// Pixels are 0xAARRGGBB, rows from the top. Alpha 0 is transparent, 255 opaque; colours aren't multiplied by it. A
/// picture without width or height, or of more than 2^24 pixels, has none.
class CPicture {
public:
    /// All transparent.
    CPicture(std::int32_t width, std::int32_t height);

    [[nodiscard]] std::int32_t Width() const { return width_; }
    [[nodiscard]] std::int32_t Height() const { return height_; }

    /// Width() pixels. REQUIRES: 0 <= y < Height().
    [[nodiscard]] std::uint32_t* Row(std::int32_t y) { return pixels_.data() + RowOffset(y); }
    [[nodiscard]] const std::uint32_t* Row(std::int32_t y) const { return pixels_.data() + RowOffset(y); }

    /// All rows, the highest first.
    [[nodiscard]] const std::vector<std::uint32_t>& Pixels() const { return pixels_; }

    bool operator==(const CPicture&) const = default;

private:
    [[nodiscard]] std::size_t RowOffset(std::int32_t y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
    }

    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    std::vector<std::uint32_t> pixels_;
};

}  // namespace tradebill
