#include "paint/codecs/gdiplus_image.h"

namespace tradebill {

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

CPictureWork::CPictureWork() : token_(0) {
    const GdiplusStartupInput input;
    ULONG_PTR token = 0;
    if (GdiplusStartup(&token, &input, nullptr) == Ok) token_ = token;  // otherwise every call fails
}

CPictureWork::~CPictureWork() {
    if (token_ != 0) GdiplusShutdown(token_);
}

CGdiplusImage::~CGdiplusImage() {
    if (image_ != nullptr) GdipDisposeImage(image_);
}

CGdiplusImage ImageOf(const CBitmap& bitmap) {
    GpBitmap* image = nullptr;
    const auto native = static_cast<HBITMAP>(bitmap.Memory().NativeBitmap());
    if (native == nullptr || GdipCreateBitmapFromHBITMAP(native, nullptr, &image) != Ok) return CGdiplusImage(nullptr);
    return CGdiplusImage(image);
}

CGdiplusImage ImageOf(const CPicture& picture) {
    GpBitmap* image = nullptr;
    if (picture.Pixels().empty()) return CGdiplusImage(nullptr);
    const INT stride = picture.Width() * static_cast<INT>(sizeof(std::uint32_t));
    auto* const pixels = reinterpret_cast<BYTE*>(const_cast<std::uint32_t*>(picture.Row(0)));  // only read
    const Status status =
        GdipCreateBitmapFromScan0(picture.Width(), picture.Height(), stride, PixelFormat32bppARGB, pixels, &image);
    return CGdiplusImage(status == Ok ? image : nullptr);
}

}  // namespace tradebill
