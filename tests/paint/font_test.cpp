#include "paint/font.h"

#include <gtest/gtest.h>

#include <string>

#include "support/gbk_text.h"

namespace tradebill::font_test {
namespace {

/// Fonts differ from system to system, so only what holds for each of them is told here.
int WidthOf(std::string_view text, int cellHeight = 20) {
    return MeasureText({.face = "Arial", .cellHeight = cellHeight, .weight = 400}, text).width;
}

TEST(MeasureText, IsAsHighAsTheFontsOwnCell) {
    for (const int height : {1, 12, 13, 48}) {
        const Font font{.face = "Arial", .cellHeight = height, .weight = 400};
        const TextMetrics metrics = MetricsOf(font);
        EXPECT_EQ(MeasureText(font, "abc").height, metrics.height);
        EXPECT_EQ(metrics.height, metrics.ascent + metrics.descent);
        EXPECT_LE(metrics.height, height + 1);  // ascent and descent are rounded each for itself
        EXPECT_GE(metrics.height, height - 2);
    }
}

TEST(MeasureText, GivesAnEmptyTextNoWidth) {
    EXPECT_EQ(WidthOf(""), 0);
}

TEST(MeasureText, AddsUpItsCharacters) {
    EXPECT_GT(WidthOf("8"), 0);
    EXPECT_EQ(WidthOf("8888"), 4 * WidthOf("8"));
    EXPECT_EQ(WidthOf(Gbk("账户8")), WidthOf(Gbk("账")) + WidthOf(Gbk("户")) + WidthOf("8"));
}

TEST(MeasureText, CountsACharacterOfTwoBytesOnce) {
    EXPECT_GT(WidthOf(Gbk("国")), WidthOf("i"));
    EXPECT_LE(WidthOf(Gbk("国")), 2 * 20);
}

TEST(MeasureText, GrowsWithTheFont) {
    EXPECT_GT(WidthOf("account", 40), WidthOf("account", 20));
}

TEST(MeasureText, TakesAnyFaceWeightAndBytes) {
    const std::string face = Gbk("宋体");
    for (const int weight : {0, 400, 599, 600, 900}) {
        EXPECT_GT(MeasureText({.face = face, .cellHeight = 16, .weight = weight}, "abc").width, 0);
    }
    EXPECT_GT(MeasureText({.face = "", .cellHeight = 16, .weight = 400}, "abc").width, 0);
    EXPECT_GE(WidthOf("\x80\xFF\xC2"), 0);
}

TEST(MeasureText, IsSafeAtAnySize) {
    for (const int height : {-2'000'000'000, -1, 0, 5000, 2'000'000'000}) {
        EXPECT_GE(MeasureText({.face = "Arial", .cellHeight = height}, "a").width, 0) << height;
        EXPECT_GE(MetricsOf({.face = "Arial", .cellHeight = height}).height, 1) << height;
    }
}

}  // namespace
}  // namespace tradebill::font_test
