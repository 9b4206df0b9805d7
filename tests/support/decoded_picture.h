// The pixels of a picture file, as other programs read them.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "paint/picture.h"
#include "support/temp_folder.h"

#if defined(_WIN32)
#include "platform/windows/gdiplus.h"
#include "platform/windows/wide_text.h"
#else
#include <turbojpeg.h>

#include "paint/picture_file.h"
#endif

namespace tradebill {

#if defined(_WIN32)
/// Without pixels if it is no picture.
inline CPicture DecodedPicture(const std::string& path) {
    using namespace Gdiplus;
    using namespace Gdiplus::DllExports;
    const CGdiplusUse use;
    GpBitmap* bitmap = nullptr;
    EXPECT_EQ(GdipCreateBitmapFromFile(WidePath(path).c_str(), &bitmap), Ok) << path;
    const CGdiplusImage owner(bitmap);
    UINT width = 0;
    UINT height = 0;
    GdipGetImageWidth(bitmap, &width);
    GdipGetImageHeight(bitmap, &height);
    CPicture picture(static_cast<int>(width), static_cast<int>(height));
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            ARGB pixel = 0;
            GdipBitmapGetPixel(bitmap, x, y, &pixel);
            picture.Row(y)[x] = pixel;
        }
    }
    return picture;
}
#else
/// Without pixels if it is no picture.
inline CPicture DecodedPicture(const std::string& path) {
    const std::string content = ReadFile(path);
    if (auto png = DecodePng(content)) return std::move(*png);
    const PictureSize size = ReadPictureSize(path);
    CPicture picture(size.width, size.height);
    const tjhandle decoder = tjInitDecompress();
    EXPECT_EQ(tjDecompress2(decoder, reinterpret_cast<const unsigned char*>(content.data()), content.size(),
                            reinterpret_cast<unsigned char*>(picture.Row(0)), size.width, 0, size.height, TJPF_BGRA, 0),
              0)
        << path;
    tjDestroy(decoder);
    return picture;
}
#endif

}  // namespace tradebill
