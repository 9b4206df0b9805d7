// GDI+, as the module works with it. Its library is started for as long as somebody works with it: a DLL has no good
// moment for that at its own loading and unloading, when it may not wait for other threads.
#pragma once

#include <windows.h>
// After it come what GDI+ needs, and GDI+.
#include <objidl.h>

#include <gdiplus.h>

#include <cstdint>
#include <utility>

namespace tradebill {

/// Starts the library, or counts one more user of it. 0 if it can't be started: then all its functions fail.
[[nodiscard]] std::uintptr_t StartGdiplus();

/// REQUIRES: `token` is from StartGdiplus, and no object that was made since then is left.
void StopGdiplus(std::uintptr_t token);

/// The library is there for as long as it lives. To be declared before whatever needs it.
class CGdiplusUse {
public:
    CGdiplusUse() : token_(StartGdiplus()) {}
    ~CGdiplusUse() { StopGdiplus(token_); }
    CGdiplusUse(const CGdiplusUse&) = delete;
    CGdiplusUse& operator=(const CGdiplusUse&) = delete;

private:
    std::uintptr_t token_;
};

/// A picture in its hands. Null for none.
class CGdiplusImage {
public:
    explicit CGdiplusImage(Gdiplus::GpImage* image) : image_(image) {}
    CGdiplusImage(CGdiplusImage&& other) noexcept : image_(std::exchange(other.image_, nullptr)) {}
    CGdiplusImage& operator=(CGdiplusImage&&) = delete;
    ~CGdiplusImage();

    [[nodiscard]] Gdiplus::GpImage* Get() const { return image_; }

private:
    Gdiplus::GpImage* image_;
};

/// Pixels that stay where they are.
struct ImagePixels {
    std::uint32_t* top;  ///< the highest row
    std::int32_t width;
    std::int32_t height;
    std::int32_t pitch;  ///< pixels from the start of a row to that of the row below; negative if rows lie bottom-up
    Gdiplus::PixelFormat format;  ///< one of 32 bits
};

/// Works on the pixels themselves, which must outlive it.
[[nodiscard]] CGdiplusImage ImageOn(const ImagePixels& pixels);

}  // namespace tradebill
