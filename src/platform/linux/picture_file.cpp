#include "platform/picture_file.h"

#include <png.h>
#include <turbojpeg.h>

#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>

#include "platform/file.h"

namespace tradebill {
namespace {

struct DestroyDecoder {
    void operator()(tjhandle handle) const { tjDestroy(handle); }
};
using UniqueDecoder = std::unique_ptr<std::remove_pointer_t<tjhandle>, DestroyDecoder>;

std::optional<PictureSize> PngSize(std::string_view content) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const bool isPng = png_image_begin_read_from_memory(&image, content.data(), content.size()) != 0;
    const PictureSize size{static_cast<int>(image.width), static_cast<int>(image.height)};
    png_image_free(&image);
    return isPng ? std::optional(size) : std::nullopt;
}

std::optional<PictureSize> JpegSize(std::string_view content) {
    const UniqueDecoder decoder(tjInitDecompress());
    const auto* const bytes = reinterpret_cast<const unsigned char*>(content.data());
    PictureSize size;
    int subsampling = 0;
    int colours = 0;
    const int status = tjDecompressHeader3(decoder.get(), bytes, static_cast<unsigned long>(content.size()),
                                           &size.width, &size.height, &subsampling, &colours);
    return status == 0 ? std::optional(size) : std::nullopt;
}

}  // namespace

PictureSize ReadPictureSize(const std::string& path) {
    const CFile file(path, FileMode::Read);
    const auto content = file.IsOpen() ? file.ReadAll() : std::nullopt;
    if (!content) return {};
    if (const auto png = PngSize(*content)) return *png;
    return JpegSize(*content).value_or(PictureSize{});
}

}  // namespace tradebill
