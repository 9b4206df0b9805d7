#include "images/header_block.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/day.h"
#include "graph/recording_canvas.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"
#include "support/gbk_text.h"

namespace tradebill::header_block_test {
namespace {

constexpr Font kBold16{.face = "Arial", .cellHeight = 16, .weight = 600};
constexpr std::int32_t kWidth = 785;  // the banner's 825 without 40

HeaderBlock Block(bool withBanner) {
    return {.days = {MidnightOf({2024, 1, 2}), MidnightOf({2024, 12, 31})},
            .account = "90010002",
            .width = kWidth,
            .withBanner = withBanner};
}

CBitmap Painted(const HeaderBlock& block, std::int32_t height) {
    CBitmap bitmap(825, height, kWhite);
    const auto canvas = MakeCanvas(bitmap);
    canvas->SelectTextBackground(TextBackground::Transparent);
    PaintHeaderBlock(*canvas, block, 0);
    return bitmap;
}

/// Whether a row of the bitmap is that of a picture, up to `end`.
bool IsRowOf(int id, std::int32_t pictureRow, const std::uint32_t* row, std::int32_t end = 825) {
    const auto picture = LoadPngResource(id);
    for (std::int32_t x = 0; x < end; ++x) {
        if ((picture->Row(pictureRow)[x] & 0xFFFFFF) != row[x]) return false;
    }
    return true;
}

TEST(HeaderBlock, WithTheBannerHasTheTitleBarAHundredPixelsLower) {
    CRecordingCanvas canvas;
    EXPECT_EQ(PaintHeaderBlock(canvas, Block(true), 0), 100);
    ASSERT_EQ(canvas.pictures.size(), 2u);
    EXPECT_EQ(canvas.pictures[0].picture, LoadPngResource(5003));
    EXPECT_EQ(canvas.pictures[0].at, (Point{0, 0}));
    EXPECT_EQ(canvas.pictures[1].picture, LoadPngResource(5000));
    EXPECT_EQ(canvas.pictures[1].at, (Point{0, 100}));
}

TEST(HeaderBlock, WithoutTheBannerIsTheTitleBarAlone) {
    CRecordingCanvas canvas;
    EXPECT_EQ(PaintHeaderBlock(canvas, Block(false), 0), 0);
    ASSERT_EQ(canvas.pictures.size(), 1u);
    EXPECT_EQ(canvas.pictures[0].picture, LoadPngResource(5000));
    EXPECT_EQ(canvas.pictures[0].at, (Point{0, 0}));
    ASSERT_EQ(canvas.texts.size(), 1u);
    EXPECT_EQ(canvas.texts[0].text, "");
}

TEST(HeaderBlock, NamesAccountAndDaysOnTheBanner) {
    CRecordingCanvas canvas;
    PaintHeaderBlock(canvas, Block(true), 0);
    ASSERT_EQ(canvas.texts.size(), 3u);
    EXPECT_EQ(canvas.texts[0].text, Gbk("账号:\r\r90010002"));
    EXPECT_EQ(canvas.texts[0].at, (Point{585, 40}));
    EXPECT_EQ(canvas.texts[1].text, Gbk("报告期间:\r\r20240102-20241231"));
    EXPECT_EQ(canvas.texts[1].at, (Point{585, 60}));
    for (const int i : {0, 1}) {
        EXPECT_EQ(canvas.texts[static_cast<std::size_t>(i)].font, kBold16);
        EXPECT_EQ(canvas.texts[static_cast<std::size_t>(i)].color, 0xFBEEEEu);  // rgb(238,238,251)
    }
}

TEST(HeaderBlock, EndsWithAnEmptyWhiteTitleInTheMiddleOfTheBar) {
    for (const bool withBanner : {true, false}) {
        CRecordingCanvas canvas;
        PaintHeaderBlock(canvas, Block(withBanner), 0);
        const PaintedText& title = canvas.texts.back();
        EXPECT_EQ(title.text, "");
        EXPECT_EQ(title.at, (Point{725, (withBanner ? 100 : 0) + 8}));  // (32 - 16) / 2
        EXPECT_EQ(title.font, kBold16);
        EXPECT_EQ(title.color, kWhite);
    }
}

TEST(HeaderBlock, MovesWithTheHeightThatItBeginsAt) {
    CRecordingCanvas canvas;
    EXPECT_EQ(PaintHeaderBlock(canvas, Block(true), 7), 107);
    EXPECT_EQ(canvas.pictures[0].at, (Point{0, 7}));
    EXPECT_EQ(canvas.pictures[1].at, (Point{0, 107}));
    EXPECT_EQ(canvas.texts[0].at, (Point{585, 47}));
    EXPECT_EQ(canvas.texts[1].at, (Point{585, 67}));
    EXPECT_EQ(canvas.texts[2].at, (Point{725, 115}));
    EXPECT_EQ(PaintHeaderBlock(canvas, Block(false), 7), 7);
}

TEST(HeaderBlock, GivesBackTheFont) {
    CRecordingCanvas canvas;
    const Font before{.face = "Arial", .cellHeight = 31};
    canvas.SelectFont(before);
    PaintHeaderBlock(canvas, Block(true), 0);
    EXPECT_EQ(canvas.SelectFont({}), before);
}

TEST(HeaderBlock, WritesZerosForADayBeyondTheCalendar) {
    CRecordingCanvas canvas;
    HeaderBlock block = Block(true);
    block.days.last = std::numeric_limits<std::time_t>::max();
    PaintHeaderBlock(canvas, block, 0);
    EXPECT_EQ(canvas.texts[1].text, Gbk("报告期间:\r\r20240102-   00000"));
}

TEST(HeaderBlock, TakesADayAtAnyTimeOfIt) {
    CRecordingCanvas canvas;
    HeaderBlock block = Block(true);
    block.days = {MidnightOf({2024, 2, 29}) + kSecondsPerDay - 1, MidnightOf({2024, 3, 1})};
    PaintHeaderBlock(canvas, block, 0);
    EXPECT_EQ(canvas.texts[1].text, Gbk("报告期间:\r\r20240229-20240301"));
}

TEST(HeaderBlock, WritesAnyAccountAsItIs) {
    for (const std::string& account : {std::string(), std::string("1234567890123456"), Gbk("账")}) {
        CRecordingCanvas canvas;
        HeaderBlock block = Block(true);
        block.account = account;
        PaintHeaderBlock(canvas, block, 0);
        EXPECT_EQ(canvas.texts[0].text, Gbk("账号:\r\r") + account);
    }
}

TEST(HeaderBlock, LeavesWhiteBetweenBannerAndBarAndBelow) {
    const CBitmap bitmap = Painted(Block(true), 135);
    for (const std::int32_t y : {86, 99, 132, 134}) {
        for (std::int32_t x = 0; x < 825; ++x) ASSERT_EQ(bitmap.Row(y)[x], 0xFFFFFFu) << x << ' ' << y;
    }
    EXPECT_TRUE(IsRowOf(kBannerId, 0, bitmap.Row(0)));
    EXPECT_TRUE(IsRowOf(kBannerId, 50, bitmap.Row(50), 585));
    EXPECT_TRUE(IsRowOf(kBannerId, 85, bitmap.Row(85)));
    EXPECT_TRUE(IsRowOf(kTitleBarId, 0, bitmap.Row(100)));
    EXPECT_TRUE(IsRowOf(kTitleBarId, 16, bitmap.Row(116)));
    EXPECT_TRUE(IsRowOf(kTitleBarId, 31, bitmap.Row(131)));
}

TEST(HeaderBlock, FillsAPictureOfTheBarAloneButForThreeRows) {
    const CBitmap bitmap = Painted(Block(false), 35);
    for (std::int32_t y = 0; y < 32; ++y) EXPECT_TRUE(IsRowOf(kTitleBarId, y, bitmap.Row(y))) << y;
    for (std::int32_t x = 0; x < 825; ++x) ASSERT_EQ(bitmap.Row(32)[x], 0xFFFFFFu);
}

TEST(HeaderBlock, WritesItsTextsLightOverTheBanner) {
    ASSERT_TRUE(HasFontsFor("0"));
    const CBitmap bitmap = Painted(Block(true), 135);
    for (const std::int32_t top : {40, 60}) {
        int light = 0;
        for (std::int32_t y = top; y < top + 16; ++y) {
            for (std::int32_t x = 585; x < 785; ++x) light += bitmap.Row(y)[x] == 0xEEEEFB ? 1 : 0;
        }
        EXPECT_GT(light, 50) << top;
    }
    EXPECT_TRUE(IsRowOf(kBannerId, 38, bitmap.Row(38)));
    EXPECT_TRUE(IsRowOf(kBannerId, 77, bitmap.Row(77)));
}

}  // namespace
}  // namespace tradebill::header_block_test
