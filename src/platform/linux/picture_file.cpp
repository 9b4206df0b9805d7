#include "platform/picture_file.h"

#include <png.h>
#include <turbojpeg.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <vector>

#include "platform/file.h"

namespace tradebill {
namespace {

struct DestroyCodec {
    void operator()(tjhandle handle) const { tjDestroy(handle); }
};
using UniqueCodec = std::unique_ptr<std::remove_pointer_t<tjhandle>, DestroyCodec>;

struct FreeJpeg {
    void operator()(unsigned char* bytes) const { tjFree(bytes); }
};

std::optional<PictureSize> PngSize(std::string_view content) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const bool isPng = png_image_begin_read_from_memory(&image, content.data(), content.size()) != 0;
    const PictureSize size{static_cast<int>(image.width), static_cast<int>(image.height)};
    png_image_free(&image);
    return isPng ? std::optional(size) : std::nullopt;
}

std::optional<PictureSize> JpegSize(std::string_view content) {
    const UniqueCodec decoder(tjInitDecompress());
    const auto* const bytes = reinterpret_cast<const unsigned char*>(content.data());
    PictureSize size;
    int subsampling = 0;
    int colours = 0;
    const int status = tjDecompressHeader3(decoder.get(), bytes, static_cast<unsigned long>(content.size()),
                                           &size.width, &size.height, &subsampling, &colours);
    return status == 0 ? std::optional(size) : std::nullopt;
}

std::string_view BytesOf(const unsigned char* bytes, std::size_t size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

bool SaveBytes(std::string_view bytes, const std::string& path) {
    const std::string unfinished = path + ".part";
    bool saved = false;
    {
        CFile file(unfinished, FileMode::Create);
        saved = file.IsOpen() && file.Write(bytes);
    }
    std::error_code error;
    if (saved) std::filesystem::rename(unfinished, path, error);
    if (saved && !error) return true;
    std::filesystem::remove(unfinished, error);
    return false;
}

/// Red, green and blue, rows from the top.
std::vector<std::uint8_t> RgbRows(const CBitmap& bitmap) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(bitmap.Pixels().size() * 3);
    for (std::int32_t y = 0; y < bitmap.Height(); ++y) {
        for (const std::uint32_t pixel : std::span(bitmap.Row(y), static_cast<std::size_t>(bitmap.Width()))) {
            for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<std::uint8_t>(pixel >> shift & 0xFF));
        }
    }
    return bytes;
}

}  // namespace

PictureSize ReadPictureSize(const std::string& path) {
    const CFile file(path, FileMode::Read);
    const auto content = file.IsOpen() ? file.ReadAll() : std::nullopt;
    if (!content) return {};
    if (const auto png = PngSize(*content)) return *png;
    return JpegSize(*content).value_or(PictureSize{});
}

bool SaveJpeg(const CBitmap& bitmap, const std::string& path, int quality) {
    if (bitmap.Pixels().empty()) return false;
    const UniqueCodec encoder(tjInitCompress());
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    const auto* const pixels = reinterpret_cast<const unsigned char*>(bitmap.Pixels().data());
    // Colours keep their full resolution: thin red and green lines would fade otherwise.
    const int status = tjCompress2(encoder.get(), pixels, bitmap.Width(), 0, bitmap.Height(), TJPF_BGRX, &bytes, &size,
                                   TJSAMP_444, std::clamp(quality, 1, 100), TJFLAG_BOTTOMUP);
    const std::unique_ptr<unsigned char, FreeJpeg> owner(bytes);
    return status == 0 && SaveBytes(BytesOf(bytes, size), path);
}

bool SavePng(const CBitmap& bitmap, const std::string& path) {
    if (bitmap.Pixels().empty()) return false;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(bitmap.Width());
    image.height = static_cast<png_uint_32>(bitmap.Height());
    image.format = PNG_FORMAT_RGB;
    const std::vector<std::uint8_t> rows = RgbRows(bitmap);
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::vector<unsigned char> bytes(size);
    const int written = png_image_write_to_memory(&image, bytes.data(), &size, 0, rows.data(), 0, nullptr);
    png_image_free(&image);
    return written != 0 && SaveBytes(BytesOf(bytes.data(), size), path);
}

}  // namespace tradebill
