#include "cli/wrapped_text.h"

#include <gtest/gtest.h>

namespace tradebill::wrapped_text_test {
namespace {

TEST(WrappedText, CountsColumns) {
    EXPECT_EQ(ColumnsOf(""), 0U);
    EXPECT_EQ(ColumnsOf("abc"), 3U);
    EXPECT_EQ(ColumnsOf("结算单 1"), 8U);
    EXPECT_EQ(ColumnsOf("\xC3\xA9"), 1U);  // an accented letter
    EXPECT_EQ(ColumnsOf("\xFF"), 1U);
}

TEST(WrappedText, BreaksAtBlanks) {
    EXPECT_EQ(WrappedText("one two three", 7, 0), "one two\nthree");
    EXPECT_EQ(WrappedText("one two three", 6, 0), "one\ntwo\nthree");
    EXPECT_EQ(WrappedText("one two three", 13, 0), "one two three");
    EXPECT_EQ(WrappedText("", 13, 4), "");
}

TEST(WrappedText, BeginsLinesBelowTheFirst) {
    EXPECT_EQ(WrappedText("one two three", 9, 2), "one two\n  three");
    EXPECT_EQ(WrappedText("one two three", 8, 2), "one\n  two\n  three");
}

TEST(WrappedText, KeepsLongWordsWhole) {
    EXPECT_EQ(WrappedText("a verylongword b", 6, 0), "a\nverylongword\nb");
    EXPECT_EQ(WrappedText("verylongword", 6, 0), "verylongword");
}

TEST(WrappedText, BreaksBetweenChineseCharacters) {
    EXPECT_EQ(WrappedText("客户权益表", 6, 0), "客户权\n益表");
    EXPECT_EQ(WrappedText("用 --root 指定目录", 9, 0), "用 --root\n指定目录");
    EXPECT_EQ(WrappedText("用--root指定", 6, 0), "用\n--root\n指定");
}

TEST(WrappedText, KeepsBlanksThatLead) {
    EXPECT_EQ(WrappedText("  tradebill report", 40, 0), "  tradebill report");
}

}  // namespace
}  // namespace tradebill::wrapped_text_test
