#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill::text_encoding_test {
namespace {

TEST(GbkToUtf8, DecodesCharactersOfOneAndTwoBytes) {
    EXPECT_EQ(GbkToUtf8(""), "");
    EXPECT_EQ(GbkToUtf8("cu1105\r\n\x7F"), "cu1105\r\n\x7F");
    EXPECT_EQ(GbkToUtf8("\xC2\xF2/\xC2\xF4"), "买/卖");
    EXPECT_EQ(GbkToUtf8("\xA1\xA1"), "\u3000");
    EXPECT_EQ(GbkToUtf8("\x81\x40"), "丂");  // the first of GBK
    EXPECT_EQ(GbkToUtf8("\x96\x7C"), "東");  // a second byte that is ASCII
}

TEST(GbkToUtf8, MakesOneReplacementOfEachByteThatBelongsToNoCharacter) {
    const struct {
        std::string_view gbk;
        std::string_view utf8;
    } cases[] = {
        {"\x80", "\uFFFD"},
        {"\xFF", "\uFFFD"},
        {"\x80\xFF", "\uFFFD\uFFFD"},
        {"a\xC2", "a\uFFFD"},  // cut through a character
        {"\x81\x30",
         "\uFFFD"
         "0"},                              // no second byte
        {"\xC2\x20\xC2\xF2", "\uFFFD 买"},  // on again with the next byte
        {"\xC2\x7F", "\uFFFD\x7F"},
        {"\xC2\xFF", "\uFFFD\uFFFD"},
        {"\x80\xC2\xF2\xFF", "\uFFFD买\uFFFD"},
    };
    for (const auto& row : cases) EXPECT_EQ(GbkToUtf8(row.gbk), row.utf8);
}

TEST(GbkToUtf8, DecodesLongTexts) {
    std::string gbk;
    std::string utf8;
    for (int i = 0; i < 1000; ++i) {
        gbk += "a\xC2\xF2\xFF";
        utf8 += "a买\uFFFD";
    }
    EXPECT_EQ(GbkToUtf8(gbk), utf8);
}

TEST(Utf8ToGbk, EncodesCharacters) {
    EXPECT_EQ(Utf8ToGbk(""), "");
    EXPECT_EQ(Utf8ToGbk("cu1105\r\n"), "cu1105\r\n");
    EXPECT_EQ(Utf8ToGbk("买/卖\u3000"), "\xC2\xF2/\xC2\xF4\xA1\xA1");
    EXPECT_EQ(Utf8ToGbk("東丂"), "\x96\x7C\x81\x40");
}

TEST(Utf8ToGbk, RefusesWhatIsNoUtf8) {
    for (const char* const text : {"\xC2\xF2", "a\xE4\xB9", "\xFF", "\x80", "\xC0\x80", "\xED\xA0\x80"}) {
        EXPECT_FALSE(Utf8ToGbk(text).has_value()) << text;
    }
}

TEST(Utf8ToGbk, RefusesWhatGbkLacks) {
    for (const char* const text : {"😀", "ñ", "한", "\u20AC", "\uFFFD"}) {
        EXPECT_FALSE(Utf8ToGbk(text).has_value()) << text;
    }
}

TEST(Utf8ToGbk, TakesBackAllThatIsDecoded) {
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        for (int trail = 0x40; trail <= 0xFE; ++trail) {
            const std::string gbk{static_cast<char>(lead), static_cast<char>(trail)};
            const std::string utf8 = GbkToUtf8(gbk);
            if (utf8.find("\uFFFD") == std::string::npos) {
                EXPECT_EQ(Utf8ToGbk(utf8), gbk) << std::hex << lead << trail;
            }
        }
    }
}

TEST(Utf8ToGbk, EncodesLongTexts) {
    std::string utf8;
    std::string gbk;
    for (int i = 0; i < 1000; ++i) {
        utf8 += "b买";
        gbk += "b\xC2\xF2";
    }
    EXPECT_EQ(Utf8ToGbk(utf8), gbk);
}

}  // namespace
}  // namespace tradebill::text_encoding_test
