#include "base/utf8.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace tradebill::utf8_test {
namespace {

using namespace std::string_literals;

struct Case {
    std::string text;
    std::optional<char32_t> point;
    std::size_t size;
};

TEST(Utf8, IsReadCharacterByCharacter) {
    const Case cases[] = {
        {"\0"s, 0, 1},
        {"a", 0x61, 1},
        {"\x7F", 0x7F, 1},
        {"\xC2\x80", 0x80, 2},
        {"\xDF\xBF", 0x7FF, 2},
        {"\xE0\xA0\x80", 0x800, 3},
        {"买", 0x4E70, 3},
        {"\xED\x9F\xBF", 0xD7FF, 3},
        {"\xEE\x80\x80", 0xE000, 3},
        {"\xEF\xBF\xBF", 0xFFFF, 3},
        {"\xF0\x90\x80\x80", 0x10000, 4},
        {"\xF4\x8F\xBF\xBF", 0x10FFFF, 4},
    };
    for (const Case& row : cases) {
        const Utf8Character character = FirstUtf8Character(row.text + "more");
        EXPECT_EQ(character.point, row.point) << row.text;
        EXPECT_EQ(character.size, row.size) << row.text;
        EXPECT_TRUE(IsUtf8(row.text + row.text)) << row.text;
    }
    EXPECT_TRUE(IsUtf8(""));
}

TEST(Utf8, IsBrokenByteByByte) {
    for (const std::string text :
         {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xC2x", "\xE4\xB9x", "\xC2\xC2\x80", "\xE4x\x80"}) {
        const Utf8Character character = FirstUtf8Character(text);
        EXPECT_EQ(character.point, std::nullopt) << text;
        EXPECT_EQ(character.size, 1U) << text;
        EXPECT_FALSE(character.isCut) << text;
        EXPECT_FALSE(IsUtf8("买" + text)) << text;
    }
}

TEST(Utf8, MayBeCut) {
    for (const std::string text : {"\xC2", "\xE4", "\xE4\xB9", "\xF0", "\xF0\x90", "\xF0\x90\x80"}) {
        EXPECT_TRUE(FirstUtf8Character(text).isCut) << text;
        EXPECT_EQ(FirstUtf8Character(text).point, std::nullopt) << text;
        EXPECT_FALSE(IsUtf8(text)) << text;
    }
    EXPECT_FALSE(FirstUtf8Character("\xE4x").isCut);
}

TEST(IsUtf8, TakesWholeCharacters) {
    for (const std::string_view text : {"", "abc", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "资金状况", "\xED\x9F\xBF",
                                        "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF",
                                        "a\xE2\x82\xAC"
                                        "b"}) {
        EXPECT_TRUE(IsUtf8(text)) << text;
    }
}

TEST(IsUtf8, RefusesWhatIsNoCharacter) {
    for (const std::string_view text :
         {"\x80", "\xC0\xAF", "\xC1\xBF", "\xC2", "\xC2\x7F", "\xE0\x9F\xBF", "\xE4\xBD", "\xED\xA0\x80",
          "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xD7\xCA\xBD\xF0",  // 资金 in GBK
          "\xE4\xBD\x20"}) {
        EXPECT_FALSE(IsUtf8(text));
    }
}

}  // namespace
}  // namespace tradebill::utf8_test
