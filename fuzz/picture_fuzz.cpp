// Any bytes as a picture file: it has the size that is told without its pixels, and written as a file again it gives
// the same pixels.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz_target.h"
#include "paint/bitmap.h"
#include "paint/picture.h"
#include "paint/picture_file.h"

namespace tradebill {
namespace {

constexpr std::int64_t kMostPixels = 1 << 16;  // larger ones only take their time

bool IsSmall(const PictureSize& size) {
    return std::int64_t{size.width} * size.height <= kMostPixels;
}

void RequirePng(std::string_view bytes) {
    const std::optional<PictureSize> size = PngSize(bytes);
    if (size && !IsSmall(*size)) return;
    const std::optional<CPicture> picture = DecodePng(bytes);
    Require(size || !picture, "a picture has a size");
    if (!picture) return;
    Require(size == PictureSize{picture->Width(), picture->Height()}, "a picture has the size that is told of it");
    const std::optional<CPicture> again = DecodePng(EncodePng(*picture));
    Require(again && *again == *picture, "a picture's file gives its pixels");
}

/// A bitmap of any pixels, saved and measured.
void RequireBitmap(CFuzzInput& input) {
    const auto width = static_cast<std::int32_t>(input.Choice(40));
    const auto height = static_cast<std::int32_t>(input.Choice(40));
    const int quality = input.Byte();
    CBitmap bitmap(width, height, static_cast<Color>(input.Integer()) & 0xFFFFFF);
    const bool hasPixels = !bitmap.Pixels().empty();
    if (hasPixels) bitmap.Row(height / 2)[width / 2] = static_cast<std::uint32_t>(input.Integer()) & 0xFFFFFF;
    const std::string png = EncodePng(bitmap);
    Require(png.empty() == !hasPixels, "a bitmap with pixels has a file");
    const std::string jpeg = EncodeJpeg(bitmap, quality);
    Require(jpeg.empty() == !hasPixels, "and a JPEG file");
    if (!hasPixels) return;
    const PictureSize size{width, height};
    Require(PngSize(png) == size, "its PNG file has its size");
    Require(ReadPictureSize(WriteFuzzFile("made.jpg", jpeg)) == size, "its JPEG file has its size");
    const std::optional<CPicture> picture = DecodePng(png);
    Require(picture && picture->Row(height / 2)[width / 2] == (bitmap.Row(height / 2)[width / 2] | 0xFF000000),
            "its PNG file has its pixels");
}

}  // namespace

void FuzzPicture(std::string_view bytes) {
    RequirePng(bytes);
    const PictureSize size = ReadPictureSize(WriteFuzzFile("any.jpg", bytes));
    Require(size.width >= 0 && size.height >= 0, "no picture is smaller than nothing");
    Require((size.width == 0) == (size.height == 0), "what has no width has no height");
    CFuzzInput input(bytes);
    RequireBitmap(input);
}

}  // namespace tradebill
