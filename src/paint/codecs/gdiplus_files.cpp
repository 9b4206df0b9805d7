#include "paint/picture_file.h"

#include <windows.h>

#include <objidl.h>
#include <shlwapi.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/file.h"
#include "platform/windows/gdiplus.h"

namespace tradebill {

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

namespace {

constexpr std::string_view kPngSignature = "\x89PNG\r\n\x1A\n";
constexpr std::wstring_view kJpegType = L"image/jpeg";
constexpr std::wstring_view kPngType = L"image/png";
constexpr CLSID kEncoderQuality = {0x1D5BE4B5, 0xFA4A, 0x452D, {0x9C, 0xDD, 0x5D, 0xB3, 0x51, 0x05, 0xE7, 0xEB}};

/// The class of the first encoder that has just this MIME type.
std::optional<CLSID> FindEncoderClsid(std::wstring_view mimeType) {
    UINT count = 0;
    UINT size = 0;
    if (GdipGetImageEncodersSize(&count, &size) != Ok || size == 0) return std::nullopt;
    const auto bytes = std::make_unique<std::byte[]>(size);  // the texts lie behind the records
    auto* const encoders = reinterpret_cast<ImageCodecInfo*>(bytes.get());
    if (GdipGetImageEncoders(count, size, encoders) != Ok) return std::nullopt;
    const auto* const end = encoders + count;
    const auto* const found =
        std::find_if(encoders, encoders + count, [&](const auto& encoder) { return encoder.MimeType == mimeType; });
    return found == end ? std::nullopt : std::optional(found->Clsid);
}

PictureSize SizeOfImage(const CGdiplusImage& image) {
    UINT width = 0;
    UINT height = 0;
    GdipGetImageWidth(image.Get(), &width);
    GdipGetImageHeight(image.Get(), &height);
    return {static_cast<int>(width), static_cast<int>(height)};
}

/// A copy of the bitmap's pixels, without transparency.
CGdiplusImage ImageOf(const CBitmap& bitmap) {
    GpBitmap* image = nullptr;
    const auto native = static_cast<HBITMAP>(bitmap.Memory().NativeBitmap());
    if (native == nullptr || GdipCreateBitmapFromHBITMAP(native, nullptr, &image) != Ok) return CGdiplusImage(nullptr);
    return CGdiplusImage(image);
}

/// Works on the picture's own pixels.
CGdiplusImage ImageOf(const CPicture& picture) {
    if (picture.Pixels().empty()) return CGdiplusImage(nullptr);
    return ImageOn({.top = const_cast<std::uint32_t*>(picture.Row(0)),  // only read
                    .width = picture.Width(),
                    .height = picture.Height(),
                    .pitch = picture.Width(),
                    .format = PixelFormat32bppARGB});
}

struct ReleaseStream {
    void operator()(IStream* stream) const { stream->Release(); }
};
using UniqueStream = std::unique_ptr<IStream, ReleaseStream>;

/// All that was written to a stream in memory.
std::string BytesOf(IStream& stream) {
    STATSTG state{};
    if (FAILED(stream.Stat(&state, STATFLAG_NONAME)) || FAILED(stream.Seek({}, STREAM_SEEK_SET, nullptr))) return {};
    std::string bytes(state.cbSize.LowPart, '\0');
    ULONG read = 0;
    if (FAILED(stream.Read(bytes.data(), state.cbSize.LowPart, &read))) return {};
    bytes.resize(read);
    return bytes;
}

std::string EncodeImage(const CGdiplusImage& image, std::wstring_view mimeType, const EncoderParameters* parameters) {
    const auto encoder = FindEncoderClsid(mimeType);
    if (image.Get() == nullptr || !encoder) return {};
    const UniqueStream stream(::SHCreateMemStream(nullptr, 0));
    if (stream == nullptr) return {};
    if (GdipSaveImageToStream(image.Get(), stream.get(), &*encoder, parameters) != Ok) return {};
    return BytesOf(*stream);
}

/// A picture file in memory. The image reads on from the stream while it lives.
struct DecodedFile {
    UniqueStream stream;
    CGdiplusImage image;
};

DecodedFile Decode(std::string_view content) {
    const auto* const bytes = reinterpret_cast<const BYTE*>(content.data());
    UniqueStream stream(::SHCreateMemStream(bytes, static_cast<UINT>(content.size())));
    GpBitmap* image = nullptr;
    if (stream == nullptr || GdipCreateBitmapFromStream(stream.get(), &image) != Ok) image = nullptr;
    return {std::move(stream), CGdiplusImage(image)};
}

bool ReadPixels(const CGdiplusImage& image, CPicture& picture) {
    constexpr UINT kRead = ImageLockModeRead | ImageLockModeUserInputBuf;
    const Rect whole(0, 0, picture.Width(), picture.Height());
    BitmapData data{};
    data.Width = static_cast<UINT>(picture.Width());
    data.Height = static_cast<UINT>(picture.Height());
    data.Stride = picture.Width() * static_cast<INT>(sizeof(std::uint32_t));
    data.PixelFormat = PixelFormat32bppARGB;
    data.Scan0 = picture.Row(0);
    auto* const bitmap = static_cast<GpBitmap*>(image.Get());
    return GdipBitmapLockBits(bitmap, &whole, kRead, PixelFormat32bppARGB, &data) == Ok &&
           GdipBitmapUnlockBits(bitmap, &data) == Ok;
}

}  // namespace

CPictureWork::CPictureWork() : token_(StartGdiplus()) {}

CPictureWork::~CPictureWork() {
    StopGdiplus(token_);
}

PictureSize ReadPictureSize(const std::string& path) {
    const CPictureWork work;
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state != FileState::Read) return {};
    const DecodedFile file = Decode(content.bytes);
    return file.image.Get() != nullptr ? SizeOfImage(file.image) : PictureSize{};
}

std::optional<PictureSize> PngSize(std::string_view content) {
    if (!content.starts_with(kPngSignature)) return std::nullopt;
    const CPictureWork work;
    const DecodedFile file = Decode(content);
    return file.image.Get() != nullptr ? std::optional(SizeOfImage(file.image)) : std::nullopt;
}

std::optional<CPicture> DecodePng(std::string_view content) {
    if (!content.starts_with(kPngSignature)) return std::nullopt;
    const CPictureWork work;
    const DecodedFile file = Decode(content);
    if (file.image.Get() == nullptr) return std::nullopt;
    const PictureSize size = SizeOfImage(file.image);
    CPicture picture(size.width, size.height);
    if (picture.Pixels().empty() || !ReadPixels(file.image, picture)) return std::nullopt;
    return picture;
}

std::string EncodeJpeg(const CBitmap& bitmap, int quality) {
    const CPictureWork work;
    ULONG percent = static_cast<ULONG>(std::clamp(quality, 1, 100));
    EncoderParameters parameters{};
    parameters.Count = 1;
    parameters.Parameter[0] = {kEncoderQuality, 1, EncoderParameterValueTypeLong, &percent};
    return EncodeImage(ImageOf(bitmap), kJpegType, &parameters);
}

std::string EncodePng(const CBitmap& bitmap) {
    const CPictureWork work;
    return EncodeImage(ImageOf(bitmap), kPngType, nullptr);
}

std::string EncodePng(const CPicture& picture) {
    const CPictureWork work;
    return EncodeImage(ImageOf(picture), kPngType, nullptr);
}

}  // namespace tradebill
