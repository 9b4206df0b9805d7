#include "platform/windows/gdiplus.h"

namespace tradebill {

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

std::uintptr_t StartGdiplus() {
    const GdiplusStartupInput input;
    ULONG_PTR token = 0;
    return GdiplusStartup(&token, &input, nullptr) == Ok ? token : 0;
}

void StopGdiplus(std::uintptr_t token) {
    if (token != 0) GdiplusShutdown(token);
}

CGdiplusImage::~CGdiplusImage() {
    if (image_ != nullptr) GdipDisposeImage(image_);
}

CGdiplusImage ImageOn(const ImagePixels& pixels) {
    const INT stride = pixels.pitch * static_cast<INT>(sizeof(std::uint32_t));
    auto* const bytes = reinterpret_cast<BYTE*>(pixels.top);
    GpBitmap* image = nullptr;
    const Status status = GdipCreateBitmapFromScan0(pixels.width, pixels.height, stride, pixels.format, bytes, &image);
    return CGdiplusImage(status == Ok ? image : nullptr);
}

}  // namespace tradebill
