// Pictures in the hands of GDI+. A CPictureWork starts its library, or counts one more user of it, for as long as
// somebody works with it: a DLL has no good moment at its own loading and unloading, when it may not wait for other
// threads.
#pragma once

#include <windows.h>
// After it come what GDI+ needs, and GDI+.
#include <objidl.h>

#include <gdiplus.h>

#include <cstdint>
#include <utility>

#include "paint/bitmap.h"
#include "paint/picture.h"
#include "paint/picture_file.h"

namespace tradebill {

/// Null for none.
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

/// A copy of the bitmap's pixels, without transparency.
[[nodiscard]] CGdiplusImage ImageOf(const CBitmap& bitmap);

/// Works on the picture's own pixels: it must outlive the image.
[[nodiscard]] CGdiplusImage ImageOf(const CPicture& picture);

}  // namespace tradebill
