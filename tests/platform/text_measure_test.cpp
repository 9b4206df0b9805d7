#include "platform/text_measure.h"

#include <gtest/gtest.h>

#include <string>

#include "support/gbk_text.h"

namespace tradebill {
namespace {

/// Fonts differ from system to system, so only what holds for each of them is told here.
int WidthOf(std::string_view text, int cellHeight = 20) {
    return MeasureText({.face = "Arial", .cellHeight = cellHeight, .weight = 400}, text).width;
}

TEST(MeasureText, IsAsHighAsTheFontsCell) {
    for (const int height : {1, 12, 48}) {
        EXPECT_EQ(MeasureText({.face = "Arial", .cellHeight = height, .weight = 400}, "abc").height, height);
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

}  // namespace
}  // namespace tradebill
