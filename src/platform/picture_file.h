// Picture files: JPEG and PNG, written from bitmaps, and measured for the page.
#pragma once

#include <string>

#include "platform/bitmap.h"

namespace tradebill {

struct PictureSize {
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels
    bool operator==(const PictureSize&) const = default;
};

/// Size of a JPEG or PNG file; 0 by 0 if it can't be read as one.
[[nodiscard]] PictureSize ReadPictureSize(const std::string& path);

inline constexpr int kUsualJpegQuality = 75;

/// Writes `bitmap` under another name first and then moves it to `path`, so that nobody meets half a picture. Returns
/// false, and leaves what was at `path`, for a bitmap without pixels and for a place that can't be written. `quality`
/// is 1 to 100.
[[nodiscard]] bool SaveJpeg(const CBitmap& bitmap, const std::string& path, int quality = kUsualJpegQuality);
[[nodiscard]] bool SavePng(const CBitmap& bitmap, const std::string& path);

}  // namespace tradebill
