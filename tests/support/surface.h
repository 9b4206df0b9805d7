// What a host lets charts be repainted on.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "driver/report_request.h"
#include "paint/picture.h"

#if defined(_WIN32)
#include "platform/windows/gdiplus.h"
#endif

namespace tradebill {

/// Pixels are 0xAARRGGBB. There is room behind each row and above and below all of them, which nothing may touch.
class CSurface {
public:
    CSurface(std::int32_t width, std::int32_t height, std::uint32_t pixel)
        : width_(width), height_(height), pixel_(pixel), pixels_(SizeOf(width + 2, height + 2), pixel) {
        std::uint32_t* const first = pixels_.data() + width + 3;
        const std::int32_t stride = (width + 2) * static_cast<std::int32_t>(sizeof(std::uint32_t));
#if defined(_WIN32)
        using namespace Gdiplus::DllExports;
        GdipCreateBitmapFromScan0(width, height, stride, PixelFormat32bppARGB, reinterpret_cast<BYTE*>(first), &image_);
        GdipGetImageGraphicsContext(image_, &target_.native);
#else
        target_ = {.Pixels = first, .Width = width, .Height = height, .Stride = stride, .LastStatus = kChartDone};
#endif
    }
#if defined(_WIN32)
    ~CSurface() {
        Gdiplus::DllExports::GdipDeleteGraphics(target_.native);
        Gdiplus::DllExports::GdipDisposeImage(image_);
    }
#endif
    CSurface(const CSurface&) = delete;
    CSurface& operator=(const CSurface&) = delete;

    [[nodiscard]] ChartTarget* Target() {
        return &target_;
    }
    [[nodiscard]] std::int32_t LastStatus() const {
#if defined(_WIN32)
        return target_.lastStatus;
#else
        return target_.LastStatus;
#endif
    }

    [[nodiscard]] std::uint32_t At(std::int32_t x, std::int32_t y) const {
        return pixels_[SizeOf(width_ + 2, y + 1) + static_cast<std::size_t>(x + 1)];
    }
    /// Of the surface itself.
    [[nodiscard]] int CountOf(std::uint32_t color) const {
        int count = 0;
        for (std::int32_t y = 0; y < height_; ++y) {
            for (std::int32_t x = 0; x < width_; ++x) count += At(x, y) == color ? 1 : 0;
        }
        return count;
    }
    /// All of the surface, the top row first.
    [[nodiscard]] std::vector<std::uint32_t> Pixels() const {
        std::vector<std::uint32_t> pixels;
        for (std::int32_t y = 0; y < height_; ++y) {
            for (std::int32_t x = 0; x < width_; ++x) pixels.push_back(At(x, y));
        }
        return pixels;
    }
    [[nodiscard]] bool IsRoomUntouched() const {
        const auto all = static_cast<int>(std::count(pixels_.begin(), pixels_.end(), pixel_));
        return all - CountOf(pixel_) == 2 * (width_ + 2) + 2 * height_;
    }

private:
    static std::size_t SizeOf(std::int32_t width, std::int32_t height) {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }

#if defined(_WIN32)
    CGdiplusUse use_;  // before what it is needed for
#endif
    std::int32_t width_;
    std::int32_t height_;
    std::uint32_t pixel_;
    std::vector<std::uint32_t> pixels_;
#if defined(_WIN32)
    /// A Gdiplus::Graphics object as it lies in memory.
    struct {
        Gdiplus::GpGraphics* native = nullptr;
        Gdiplus::Status lastStatus = Gdiplus::Ok;
    } target_;
    Gdiplus::GpBitmap* image_ = nullptr;
#else
    ChartTarget target_{};
#endif
};

}  // namespace tradebill
