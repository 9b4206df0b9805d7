#include "paint/text_block.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "graph/recording_canvas.h"
#include "paint/canvas.h"
#include "support/gbk_text.h"

namespace tradebill::text_block_test {
namespace {

constexpr std::int32_t kLineHeight = 20;
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

class TextBlock : public testing::Test {
protected:
    TextBlock() { canvas_.SelectFont({.face = "Arial", .cellHeight = kLineHeight}); }

    /// The lines of a text that is wrapped at this many bytes' width.
    std::vector<std::string> Wrapped(std::string_view text, std::int32_t bytes) {
        canvas_.texts.clear();
        WriteWrappedText(canvas_, {100, 50, 100 + bytes * kByteWidth, 5000}, text);
        std::vector<std::string> lines;
        for (const PaintedText& painted : canvas_.texts) lines.push_back(painted.text);
        return lines;
    }

    CRecordingCanvas canvas_;
};

using Lines = std::vector<std::string>;

/// Lines from UTF-8.
Lines GbkLines(std::initializer_list<std::string_view> lines) {
    Lines result;
    for (const std::string_view line : lines) result.push_back(Gbk(line));
    return result;
}

TEST_F(TextBlock, IsAsWideAsItsWidestLineAndAsHighAsAllOfThem) {
    const struct {
        std::string_view text;
        std::int32_t bytes;
        std::int32_t lines;
    } cases[] = {
        {"", 0, 0},          {"a", 1, 1},       {"\xB9\xFA", 2, 1},
        {"abc\r\nde", 3, 2}, {"abc\nde", 3, 2}, {"abc\rdefg", 4, 2},
        {"a\n\rb", 1, 3},                                           // only CR LF is one end of a line
        {"a\r\r\nb", 1, 3},  {"a\n\nb", 1, 3},  {"abc\r\n", 3, 1},  // an end of a line at the end opens none
        {"abc\n", 3, 1},     {"\n", 0, 1},      {"\nabc", 3, 2},
        {"a\tb", 3, 1},  // a tab isn't expanded
        {"a   ", 4, 1},      {"a&b", 2, 1},     {"a&&b", 3, 1},
        {"&", 0, 1},         {"a\n&", 1, 2},    {"word word word word word word word", 34, 1},
    };
    for (const auto& given : cases) {
        const TextExtent extent = MeasureTextBlock(canvas_, given.text);
        EXPECT_EQ(extent.width, given.bytes * kByteWidth) << given.text;
        EXPECT_EQ(extent.height, given.lines * kLineHeight) << given.text;
    }
    EXPECT_TRUE(canvas_.texts.empty());
}

TEST_F(TextBlock, WritesItsLinesBelowEachOther) {
    WriteTextBlock(canvas_, {30, 7}, "one\r\n\r\ntwo\rthree\nfour");
    ASSERT_EQ(canvas_.texts.size(), 4u);
    EXPECT_EQ(canvas_.PlacesOf("one"), (std::vector<Point>{{30, 7}}));
    EXPECT_EQ(canvas_.PlacesOf("two"), (std::vector<Point>{{30, 47}}));
    EXPECT_EQ(canvas_.PlacesOf("three"), (std::vector<Point>{{30, 67}}));
    EXPECT_EQ(canvas_.PlacesOf("four"), (std::vector<Point>{{30, 87}}));
    EXPECT_EQ(canvas_.texts[0].clip, Clip());
    EXPECT_TRUE(canvas_.fills.empty());
}

TEST_F(TextBlock, UnderlinesTheCharacterBehindAnAmpersandInTheColorOfTheText) {
    canvas_.SelectTextColor(0x123456);
    WriteTextBlock(canvas_, {10, 100}, Gbk("ab&国&&c\nd&e"));
    EXPECT_EQ(canvas_.texts[0].text, Gbk("ab国&c"));
    EXPECT_EQ(canvas_.texts[1].text, "de");
    // In the font of this canvas the base line is the lowest row of the cell, row 19.
    EXPECT_EQ(canvas_.fills,
              (std::vector<PaintedFill>{{{22, 121, 34, 122}, 0x123456}, {{16, 141, 22, 142}, 0x123456}}));
    EXPECT_EQ(canvas_.SelectTextColor(0), 0x123456u);
}

TEST_F(TextBlock, UnderlinesOnlyTheLastMarkedCharacterOfALine) {
    WriteTextBlock(canvas_, {0, 0}, "&a&b\n&c");
    EXPECT_EQ(canvas_.fills, (std::vector<PaintedFill>{{{6, 21, 12, 22}, 0}, {{0, 41, 6, 42}, 0}}));
}

TEST_F(TextBlock, UnderlinesNothingBehindAnAmpersandAtTheEndOfALine) {
    WriteTextBlock(canvas_, {0, 0}, "a&\nb&");
    EXPECT_EQ(canvas_.texts[0].text, "a");
    EXPECT_EQ(canvas_.texts[1].text, "b");
    EXPECT_TRUE(canvas_.fills.empty());
}

TEST_F(TextBlock, WrapsAtBlanksWhichVanishThere) {
    EXPECT_EQ(Wrapped("one two three", 7), (Lines{"one two", "three"}));
    EXPECT_EQ(Wrapped("one two three", 6), (Lines{"one", "two", "three"}));
    EXPECT_EQ(Wrapped("one    two", 5), (Lines{"one", "two"}));
    EXPECT_EQ(Wrapped("one two  ", 7), (Lines{"one two"}));
    EXPECT_EQ(Wrapped("  one", 5), (Lines{"  one"}));
    EXPECT_EQ(Wrapped("a-b/c,d.e", 3), (Lines{"a-b/c,d.e"}));  // blanks alone part Latin words
    EXPECT_EQ(Wrapped("a\tb c", 3), (Lines{"a\tb", "c"}));
}

TEST_F(TextBlock, WrapsBetweenAnyTwoDoubleByteCharacters) {
    EXPECT_EQ(Wrapped(Gbk("账户收益率"), 10), GbkLines({"账户收益率"}));
    EXPECT_EQ(Wrapped(Gbk("账户收益率"), 9), GbkLines({"账户收益", "率"}));
    EXPECT_EQ(Wrapped(Gbk("率：率"), 2), GbkLines({"率", "：", "率"}));
    EXPECT_EQ(Wrapped(Gbk("收ab益"), 3), GbkLines({"收", "ab", "益"}));
    EXPECT_EQ(Wrapped(Gbk("收ab益"), 4), GbkLines({"收ab", "益"}));
    EXPECT_EQ(Wrapped(Gbk("收 益"), 4), GbkLines({"收", "益"}));
}

TEST_F(TextBlock, LetsAWordThatIsTooLongStandOut) {
    EXPECT_EQ(Wrapped("a overlong b", 4), (Lines{"a", "overlong", "b"}));
    EXPECT_EQ(Wrapped("overlong", 0), (Lines{"overlong"}));
    EXPECT_EQ(Wrapped("overlong", -3), (Lines{"overlong"}));
}

TEST_F(TextBlock, KeepsItsOwnLinesWhenItIsWrapped) {
    EXPECT_EQ(Wrapped("one two\r\nthree", 5), (Lines{"one", "two", "three"}));
    WriteWrappedText(canvas_, {0, 0, 100, 100}, "x\n\ny");
    EXPECT_EQ(canvas_.PlacesOf("y"), (std::vector<Point>{{0, 2 * kLineHeight}}));
}

TEST_F(TextBlock, MeasuresWrappedLinesWithoutTheirAmpersands) {
    EXPECT_EQ(Wrapped("o&ne t&wo", 7), (Lines{"one two"}));
    EXPECT_EQ(canvas_.fills.size(), 1u);
    canvas_.fills.clear();
    EXPECT_EQ(Wrapped("o&ne t&wo", 6), (Lines{"one", "two"}));
    EXPECT_EQ(canvas_.fills, (std::vector<PaintedFill>{{{106, 71, 112, 72}, 0}, {{106, 91, 112, 92}, 0}}));
}

TEST_F(TextBlock, IsClippedToItsBoxWhenItIsWrapped) {
    WriteWrappedText(canvas_, {10, 20, 28, 60}, "one two six");
    ASSERT_EQ(canvas_.texts.size(), 2u);  // the third would begin at the lower edge
    EXPECT_EQ(canvas_.texts[0].at, (Point{10, 20}));
    EXPECT_EQ(canvas_.texts[1].at, (Point{10, 40}));
    EXPECT_EQ(canvas_.texts[0].clip, (Clip(Box{10, 20, 28, 60})));
    EXPECT_EQ(canvas_.SelectClip({}), Clip());
}

TEST_F(TextBlock, ShowsALineOfWhichThereIsRoomForOnePixel) {
    WriteWrappedText(canvas_, {10, 20, 28, 61}, "one two six");
    EXPECT_EQ(canvas_.PlacesOf("six"), (std::vector<Point>{{10, 60}}));
}

TEST_F(TextBlock, StaysInsideTheClipAroundIt) {
    const CClipScope clip(canvas_, {0, 0, 20, 30});
    WriteWrappedText(canvas_, {10, 20, 40, 60}, "one");
    EXPECT_EQ(canvas_.texts.at(0).clip, (Clip(Box{10, 20, 20, 30})));
}

TEST_F(TextBlock, IsSafeAtTheEndsOfAllCoordinates) {
    for (const std::int32_t at : {kLeast, -1, kMost - 1, kMost}) {
        WriteTextBlock(canvas_, {at, at}, "&a\n&b\n&c");
        WriteWrappedText(canvas_, {at, at, kMost, kMost}, "&a &b\n&c");
        WriteWrappedText(canvas_, {kMost, kMost, at, at}, "&a &b\n&c");
    }
    canvas_.SelectFont({.face = "Arial", .cellHeight = 2000});
    EXPECT_EQ(MeasureTextBlock(canvas_, std::string(1'000'000, '\n')).height, 2'000'000'000);
    EXPECT_EQ(MeasureTextBlock(canvas_, std::string(1'100'000, '\n')).height, kMost);
}

TEST_F(TextBlock, TakesAnyBytes) {
    std::mt19937 random(3);
    constexpr std::string_view kBytes = "\x81\x7F\xB9\xFA\xFF\x80 & \r\n\tab";
    CBitmap bitmap(80, 80, kWhite);
    const std::unique_ptr<CCanvas> real = MakeCanvas(bitmap);
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (std::size_t left = random() % 12; left > 0; --left) text += kBytes[random() % kBytes.size()];
        const auto bytes = static_cast<std::int32_t>(random() % 8);
        for (const std::string& line : Wrapped(text, bytes)) EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
        if (round % 20 == 0) WriteWrappedText(*real, {5, 5, 5 + bytes * 8, 60}, text);
    }
}

TEST(TextBlockPicture, PaintsNothingOutsideOfItsBox) {
    CBitmap bitmap(120, 80, kWhite);
    const std::unique_ptr<CCanvas> canvas = MakeCanvas(bitmap);
    canvas->SelectFont({.face = "Arial", .cellHeight = 16});
    WriteWrappedText(*canvas, {20, 10, 60, 30}, "&wwwwwwwwwwwwwww\nwww www www www");
    int inside = 0;
    int outside = 0;
    for (std::int32_t y = 0; y < bitmap.Height(); ++y) {
        for (std::int32_t x = 0; x < bitmap.Width(); ++x) {
            if (bitmap.Row(y)[x] == 0xFFFFFF) continue;
            const bool isInside = x >= 20 && x < 60 && y >= 10 && y < 30;
            ++(isInside ? inside : outside);
        }
    }
    EXPECT_GT(inside, 0);
    EXPECT_EQ(outside, 0);
}

TEST(TextBlockPicture, HasTheHeightOfTheFontsCells) {
    CBitmap bitmap(10, 10, kWhite);
    const std::unique_ptr<CCanvas> canvas = MakeCanvas(bitmap);
    canvas->SelectFont({.face = "Arial", .cellHeight = 15});
    EXPECT_EQ(MeasureTextBlock(*canvas, "one\ntwo").height, 2 * canvas->Metrics().height);
}

}  // namespace
}  // namespace tradebill::text_block_test
