#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "paint/picture_file.h"
#include "support/png_bytes.h"
#include "support/temp_folder.h"

namespace tradebill::png_decode_test {
namespace {

using namespace std::string_literals;
using Pixels = std::vector<std::uint32_t>;

/// Two rows of two pixels with alpha; the first row red and half transparent green, the second transparent and white.
std::string FourPixels() {
    return PngOf({.width = 2, .height = 2}, StoredRows("\0\xFF\0\0\xFF\0\xFF\0\x80"
                                                       "\0\1\2\3\0\xFF\xFF\xFF\xFF"s));
}

TEST(DecodedPng, KeepsColorsAndAlphaWithRowsFromTheTop) {
    const auto picture = DecodePng(FourPixels());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->Width(), 2);
    EXPECT_EQ(picture->Height(), 2);
    EXPECT_EQ(picture->Pixels(), (Pixels{0xFFFF0000, 0x8000FF00, 0x00010203, 0xFFFFFFFF}));
    EXPECT_EQ(picture->Row(1)[0], 0x00010203u);
}

TEST(DecodedPng, IsReadOfEveryKindOfPixels) {
    const std::string palette = Chunk("PLTE", "\x10\x20\x30\x40\x50\x60"s);
    const struct {
        const char* what;
        PngHead head;
        std::string row;
        std::string chunks;
        Pixels pixels;
    } cases[] = {
        {"grey of one bit", {.width = 3, .depth = 1, .kind = 0}, "\0\xA0"s, "", {0xFFFFFFFF, 0xFF000000, 0xFFFFFFFF}},
        {"grey", {.width = 2, .depth = 8, .kind = 0}, "\0\x7F\x01"s, "", {0xFF7F7F7F, 0xFF010101}},
        {"grey, one of them transparent",
         {.width = 2, .depth = 8, .kind = 0},
         "\0\x7F\x01"s,
         Chunk("tRNS", "\0\x01"s),
         {0xFF7F7F7F, 0x00010101}},
        {"grey of 16 bits", {.width = 2, .depth = 16, .kind = 0}, "\0\x80\x80\xFF\xFF"s, "", {0xFF808080, 0xFFFFFFFF}},
        {"RGB", {.depth = 8, .kind = 2}, "\0\x0A\x14\x1E"s, "", {0xFF0A141E}},
        {"RGB of 16 bits", {.depth = 16, .kind = 2}, "\0\x40\x40\x80\x80\xC0\xC0"s, "", {0xFF4080C0}},
        {"palette", {.width = 2, .depth = 8, .kind = 3}, "\0\1\0"s, palette, {0xFF405060, 0xFF102030}},
        {"palette with alpha",
         {.width = 2, .depth = 1, .kind = 3},
         "\0\x40"s,
         palette + Chunk("tRNS", "\x22"),
         {0x22102030, 0xFF405060}},
        {"grey with alpha", {.depth = 8, .kind = 4}, "\0\xC8\x64"s, "", {0x64C8C8C8}},
        {"RGB with alpha", {.depth = 8, .kind = 6}, "\0\1\2\3\4"s, "", {0x04010203}},
    };
    for (const auto& test : cases) {
        const auto picture = DecodePng(PngOf(test.head, StoredRows(test.row), test.chunks));
        ASSERT_TRUE(picture) << test.what;
        EXPECT_EQ(picture->Pixels(), test.pixels) << test.what;
    }
}

TEST(DecodedPng, IsNothingOfWhatIsNone) {
    const std::string jpeg =
        "\xFF\xD8\xFF\xC0\x00\x0B\x08\0\1\0\1\x01\x01\x11\x00\xFF\xDA\x00\x08\x01\x01\x00\x00\x3F\x00"s;
    for (const std::string& content : {""s, "\0"s, "no picture at all"s, "\x89PNG\r\n\x1A\n"s, jpeg}) {
        EXPECT_FALSE(DecodePng(content));
    }
    EXPECT_FALSE(DecodePng(PngOf({.width = 0}, StoredRows("\0"s))));
    EXPECT_FALSE(DecodePng(PngOf({.height = 0}, StoredRows("\0"s))));
    EXPECT_FALSE(DecodePng(PngOf({.depth = 5}, StoredRows("\0\0\0\0\0"s))));
    EXPECT_FALSE(DecodePng(PngOf({.kind = 3}, StoredRows("\0\0"s))));  // a palette without colours
}

TEST(DecodedPng, IsNothingIfItEndsBeforeItsPixelsDo) {
    const std::string whole = FourPixels();
    const std::size_t endOfPixels = whole.size() - Chunk("IEND", "").size() - 4 - 4;  // check sums of chunk and data
    for (std::size_t size = 0; size < endOfPixels; ++size) EXPECT_FALSE(DecodePng(whole.substr(0, size))) << size;
    EXPECT_FALSE(DecodePng(PngOf({.width = 2, .height = 2}, StoredRows("\0\xFF\0\0\xFF\0\xFF\0\x80"s))));
}

TEST(DecodedPng, SurvivesAnyDamage) {
    const std::string whole = FourPixels();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int change : {1, 0x80, 0xFF}) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            const auto picture = DecodePng(damaged);
            EXPECT_EQ(picture ? picture->Pixels().size() : 4, 4u) << at;
        }
    }
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        std::string rows;
        for (int i = 0; i < 40; ++i) rows += static_cast<char>(random());
        const auto picture = DecodePng(PngOf({.width = 3, .height = 3, .kind = 2}, StoredRows(rows)));
        EXPECT_EQ(picture ? picture->Pixels().size() : 9, 9u);
    }
}

TEST(DecodedPng, HasAtMostAsManyPixelsAsAPictureMay) {
    const unsigned side = 1 << 12;
    const std::string rows = StoredRows(std::string(std::size_t{side} * (side / 8 + 1), '\0'));
    const auto largest = DecodePng(PngOf({.width = side, .height = side, .depth = 1, .kind = 0}, rows));
    ASSERT_TRUE(largest);
    EXPECT_EQ(largest->Row(side - 1)[side - 1], 0xFF000000);
    EXPECT_FALSE(DecodePng(PngOf({.width = side, .height = side + 1, .depth = 1, .kind = 0}, rows)));
    EXPECT_FALSE(DecodePng(PngOf({.width = 1000000, .height = 1000000}, StoredRows("\0"s))));
    EXPECT_FALSE(DecodePng(PngOf({.width = 0x7FFFFFFF, .height = 0x7FFFFFFF}, StoredRows("\0"s))));
    EXPECT_FALSE(DecodePng(PngOf({.width = 0xFFFFFFFF, .height = 0xFFFFFFFF}, StoredRows("\0"s))));
}

TEST(Picture, IsTransparentAtFirstAndHasNoPixelsWithoutASizeOrBeyondAllMeasure) {
    EXPECT_EQ(CPicture(2, 1).Pixels(), (Pixels{0, 0}));
    const struct {
        std::int32_t width;
        std::int32_t height;
        bool fits;
    } cases[] = {{0, 1, false},
                 {1, 0, false},
                 {-1, 1, false},
                 {1, -1, false},
                 {1 << 12, 1 << 12, true},
                 {(1 << 12) + 1, 1 << 12, false},
                 {0x7FFFFFFF, 0x7FFFFFFF, false}};
    for (const auto& size : cases) {
        const CPicture picture(size.width, size.height);
        EXPECT_EQ(picture.Width(), size.fits ? size.width : 0);
        EXPECT_EQ(picture.Height(), size.fits ? size.height : 0);
        EXPECT_EQ(picture.Pixels().empty(), !size.fits);
    }
}

TEST(SavedAlphaPicture, IsReadBackAsItWas) {
    const CTempFolder folder;
    for (const std::int32_t width : {1, 3}) {
        CPicture picture(width, 2);
        picture.Row(0)[0] = 0x80FF4020;
        picture.Row(1)[width - 1] = 0x00010203;
        ASSERT_TRUE(SavePictureFile(EncodePng(picture), folder.Path("mark.png")));
        EXPECT_EQ(DecodePng(ReadFile(folder.Path("mark.png"))), picture);
        EXPECT_EQ(ReadPictureSize(folder.Path("mark.png")), (PictureSize{width, 2}));
    }
}

TEST(SavedAlphaPicture, KeepsItsAlphaChannelWhereAllIsOpaque) {
    const CTempFolder folder;
    CPicture picture(1, 1);
    picture.Row(0)[0] = 0xFF102030;
    ASSERT_TRUE(SavePictureFile(EncodePng(picture), folder.Path("mark.png")));
    EXPECT_EQ(ReadFile(folder.Path("mark.png")).substr(24, 2), "\x08\x06");  // bits of a channel, kind of pixels
}

TEST(SavedAlphaPicture, IsRefusedWithoutPixelsOrAPlace) {
    const CTempFolder folder;
    EXPECT_FALSE(SavePictureFile(EncodePng(CPicture(0, 1)), folder.Path("none.png")));
    EXPECT_FALSE(SavePictureFile(EncodePng(CPicture(1, 1)), folder.Path("missing/none.png")));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

}  // namespace
}  // namespace tradebill::png_decode_test
