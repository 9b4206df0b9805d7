#include "made_pictures.h"

#include <png.h>
#include <turbojpeg.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace tradebill {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kGrid = 0xD7D7D7;
constexpr std::uint32_t kLine = 0x007CFE;
constexpr std::uint32_t kLetters = 0x383838;
constexpr std::uint32_t kBand = 0x317DC2;
constexpr int kQuality = 75;

struct PictureShape {
    const char* name;
    int width;
    int height;
    bool isBand;  ///< a band of colour instead of a chart
};

constexpr PictureShape kShapes[] = {
    {"AccountSummary", 825, 135, true}, {"AccountDetail", 825, 270, false},  {"AccountFigure", 500, 250, false},
    {"BillStatistics", 825, 35, true},  {"AccountStatics", 825, 534, false}, {"HealthFigure", 500, 250, false},
    {"RiskFigure", 500, 250, false},    {"TradeStatistics", 825, 35, true},  {"LastPositions", 825, 35, true},
    {"MatchDetails", 825, 35, true},    {"OffsetRecords", 825, 35, true},    {"OffsetFigure", 825, 250, false},
};

class CPainter {
public:
    explicit CPainter(const PictureShape& shape)
        : picture_{
              shape.name, shape.width, shape.height,
              std::vector(static_cast<std::size_t>(shape.width) * static_cast<std::size_t>(shape.height), kWhite)} {}

    /// A band, its colour not quite even.
    void PaintBand() {
        for (std::uint32_t& pixel : picture_.pixels) pixel = kBand + (Random() & 3) * 0x010101;
    }

    void PaintGrid() {
        for (int y = 20; y < picture_.height - 30; y += 20) {
            for (int x = 40; x < picture_.width - 40; ++x) Set(x, y, kGrid);
        }
    }

    /// A jagged line two pixels thick.
    void PaintLine() {
        int y = picture_.height / 2;
        for (int x = 40; x < picture_.width - 40; ++x) {
            const int next = std::clamp(y + static_cast<int>(Random() % 9) - 4, 22, picture_.height - 32);
            for (int at = std::min(y, next); at <= std::max(y, next) + 1; ++at) Set(x, at, kLine);
            y = next;
        }
    }

    /// Rows of dots as dense as small letters.
    void PaintLetters() {
        for (int row = 12; row + 9 < picture_.height; row += 22) {
            for (int y = row; y < row + 9; ++y) {
                for (int x = 4; x < 150; ++x) {
                    if (Random() % 3 == 0) Set(x, y, kLetters);
                }
            }
        }
    }

    [[nodiscard]] MadePicture Take() { return std::move(picture_); }

private:
    std::uint32_t Random() { return (state_ = state_ * 1664525 + 1013904223) >> 16; }
    void Set(int x, int y, std::uint32_t color) {
        picture_.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture_.width) +
                        static_cast<std::size_t>(x)] = color;
    }

    MadePicture picture_;
    std::uint32_t state_ = 12345;
};

MadePicture MakePicture(const PictureShape& shape) {
    CPainter painter(shape);
    if (shape.isBand) {
        painter.PaintBand();
    } else {
        painter.PaintGrid();
        painter.PaintLine();
        painter.PaintLetters();
    }
    return painter.Take();
}

}  // namespace

std::vector<MadePicture> MakePictures() {
    std::vector<MadePicture> pictures;
    for (const PictureShape& shape : kShapes) pictures.push_back(MakePicture(shape));
    return pictures;
}

void EncodeJpeg(const MadePicture& picture, const std::string& path) {
    const tjhandle encoder = tjInitCompress();
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    const int status = tjCompress2(encoder, reinterpret_cast<const unsigned char*>(picture.pixels.data()),
                                   picture.width, 0, picture.height, TJPF_BGRX, &bytes, &size, TJSAMP_420, kQuality, 0);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    file.close();
    tjFree(bytes);
    tjDestroy(encoder);
    if (status != 0 || file.fail()) throw std::runtime_error("can't write " + path);
}

void EncodeMark(const std::string& path) {
    constexpr png_uint_32 kSide = 8;
    std::uint32_t pixels[kSide * kSide];
    for (png_uint_32 i = 0; i < kSide * kSide; ++i) pixels[i] = (i + i / kSide) % 3 == 0 ? 0xFFFFFFFF : 0;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = kSide;
    image.height = kSide;
    image.format = PNG_FORMAT_BGRA;
    if (png_image_write_to_file(&image, path.c_str(), 0, pixels, kSide * sizeof pixels[0], nullptr) == 0) {
        throw std::runtime_error("can't write " + path);
    }
}

}  // namespace tradebill
