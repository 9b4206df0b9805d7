// Picture files: JPEG and PNG, made of bitmaps and pictures, measured for the page, and PNG read from memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "paint/bitmap.h"
#include "paint/picture.h"

namespace tradebill {

/// Keeps what reads and writes pictures ready for as long as it lives. Everything here works without it; one around
/// many pictures saves the time to begin anew for each.
class CPictureWork {
public:
    CPictureWork();
    ~CPictureWork();
    CPictureWork(const CPictureWork&) = delete;
    CPictureWork& operator=(const CPictureWork&) = delete;

private:
    [[maybe_unused]] std::uintptr_t token_;  ///< the library's own
};

struct PictureSize {
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels
    bool operator==(const PictureSize&) const = default;
};

/// Size of the picture in the bytes of a PNG file, which is told without its pixels. Nothing if they can't be read as
/// one.
[[nodiscard]] std::optional<PictureSize> PngSize(std::string_view content);

/// Size of a JPEG or PNG file; 0 by 0 if it can't be read as one.
[[nodiscard]] PictureSize ReadPictureSize(const std::string& path);

/// The picture in the bytes of a PNG file, whatever its kind of pixels. Nothing if they can't be read as one, or make
/// more pixels than a picture may have.
[[nodiscard]] std::optional<CPicture> DecodePng(std::string_view content);

/// A picture that the module carries inside, by its id in embedded_picture.h; nothing for any other id.
[[nodiscard]] std::optional<CPicture> LoadPngResource(int id);

inline constexpr int kUsualJpegQuality = 75;

// The bytes of picture files; none for a picture without pixels, and for one that the format can't hold.

/// `quality` is 1 to 100.
[[nodiscard]] std::string EncodeJpeg(const CBitmap& bitmap, int quality = kUsualJpegQuality);
[[nodiscard]] std::string EncodePng(const CBitmap& bitmap);
/// Keeps what can be seen through.
[[nodiscard]] std::string EncodePng(const CPicture& picture);

// These write under another name first and then move the file to `path`, so that nobody meets half a picture. They
// return false, and leave what was at `path`, for no bytes and for a place that can't be written.

[[nodiscard]] bool SavePictureFile(std::string_view content, const std::string& path);
[[nodiscard]] bool SaveJpeg(const CBitmap& bitmap, const std::string& path, int quality = kUsualJpegQuality);
[[nodiscard]] bool SavePng(const CBitmap& bitmap, const std::string& path);

}  // namespace tradebill
