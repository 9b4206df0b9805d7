#include "paint/bitmap.h"
#include "paint/picture.h"
#include "paint/picture_file.h"

#include <png.h>
#include <pngconf.h>
#include <turbojpeg.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/file.h"

namespace tradebill {
namespace {

/// 0xAARRGGBB in memory.
constexpr png_uint_32 kPicturePixels = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;

struct DestroyCodec {
    void operator()(tjhandle handle) const { tjDestroy(handle); }
};
using UniqueCodec = std::unique_ptr<std::remove_pointer_t<tjhandle>, DestroyCodec>;

struct FreeJpeg {
    void operator()(unsigned char* bytes) const { tjFree(bytes); }
};

/// A PNG as far as its header is read.
class CPngReader {
public:
    explicit CPngReader(std::string_view content) {
        image_.version = PNG_IMAGE_VERSION;
        isOpen_ = png_image_begin_read_from_memory(&image_, content.data(), content.size()) != 0;
        if (!isOpen_) ThrowIfShort();
    }
    ~CPngReader() { png_image_free(&image_); }
    CPngReader(const CPngReader&) = delete;
    CPngReader& operator=(const CPngReader&) = delete;

    [[nodiscard]] bool IsOpen() const { return isOpen_; }
    [[nodiscard]] PictureSize Size() const { return {static_cast<int>(image_.width), static_cast<int>(image_.height)}; }

    /// Fills a picture of this size.
    [[nodiscard]] bool ReadPixels(CPicture& picture) {
        // Sixteen bits without a word on their meaning are taken as eight are: as screens show them.
        image_.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
        image_.format = kPicturePixels;
        if (png_image_finish_read(&image_, nullptr, picture.Row(0), 0, nullptr) != 0) return true;
        ThrowIfShort();
        return false;
    }

private:
    /// The library tells a lack of memory by its words alone.
    void ThrowIfShort() const {
        const std::string_view words(image_.message);
        for (const std::string_view lack : {"ut of memory", "ut of Memory", "nsufficient memory"}) {
            if (words.find(lack) != std::string_view::npos) throw std::bad_alloc();
        }
    }

    png_image image_{};
    bool isOpen_ = false;
};

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

/// Rows from the top, in a pixel format of the library; empty of a size without pixels, which has neither side.
std::string EncodePixels(PictureSize size, png_uint_32 format, const void* pixels) {
    if (size.width <= 0) return {};
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(size.width);
    image.height = static_cast<png_uint_32>(size.height);
    image.format = format;
    png_alloc_size_t written = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(written, '\0');
    const int isMade = png_image_write_to_memory(&image, bytes.data(), &written, 0, pixels, 0, nullptr);
    png_image_free(&image);
    bytes.resize(isMade != 0 ? written : 0);
    return bytes;
}

}  // namespace

// The libraries need nothing beforehand.
CPictureWork::CPictureWork() : token_(0) {}
CPictureWork::~CPictureWork() = default;

std::optional<CPicture> DecodePng(std::string_view content) {
    CPngReader reader(content);
    if (!reader.IsOpen()) return std::nullopt;
    CPicture picture(reader.Size().width, reader.Size().height);
    if (picture.Pixels().empty() || !reader.ReadPixels(picture)) return std::nullopt;
    return picture;
}

std::optional<PictureSize> PngSize(std::string_view content) {
    const CPngReader reader(content);
    return reader.IsOpen() ? std::optional(reader.Size()) : std::nullopt;
}

PictureSize ReadPictureSize(const std::string& path) {
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state != FileState::Read) return {};
    if (const auto png = PngSize(content.bytes)) return *png;
    return JpegSize(content.bytes).value_or(PictureSize{});
}

std::string EncodeJpeg(const CBitmap& bitmap, int quality) {
    if (bitmap.Pixels().empty()) return {};
    const UniqueCodec encoder(tjInitCompress());
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    const auto* const pixels = reinterpret_cast<const unsigned char*>(bitmap.Pixels().data());
    // Colours keep their full resolution: thin red and green lines would fade otherwise.
    const int status = tjCompress2(encoder.get(), pixels, bitmap.Width(), 0, bitmap.Height(), TJPF_BGRX, &bytes, &size,
                                   TJSAMP_444, std::clamp(quality, 1, 100), TJFLAG_BOTTOMUP);
    const std::unique_ptr<unsigned char, FreeJpeg> owner(bytes);
    return status == 0 ? std::string(reinterpret_cast<const char*>(bytes), size) : std::string();
}

std::string EncodePng(const CBitmap& bitmap) {
    const std::vector<std::uint8_t> rows = RgbRows(bitmap);
    return EncodePixels({bitmap.Width(), bitmap.Height()}, PNG_FORMAT_RGB, rows.data());
}

std::string EncodePng(const CPicture& picture) {
    return EncodePixels({picture.Width(), picture.Height()}, kPicturePixels, picture.Pixels().data());
}

}  // namespace tradebill
