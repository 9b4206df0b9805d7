#include "intake/decoded_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "intake/text_forms.h"
#include "support/gbk_text.h"

namespace tradebill::decoded_text_test {
namespace {

constexpr std::string_view kUtf8 = "资金状况\r\n上日结存: 1.00\r\n";

struct Form {
    std::string bytes;
    const char* encoding;
};

TEST(DecodedText, IsGbkWithCrlfWhateverItsEncoding) {
    const Form forms[] = {
        {Gbk(kUtf8), "GBK"},
        {std::string(kUtf8), "UTF-8"},
        {std::string(kUtf8Mark).append(kUtf8), "UTF-8 with a mark"},
        {std::string(kUtf8Mark) + Gbk(kUtf8), "GBK"},
        {Utf16(kUtf8, false), "UTF-16LE"},
        {Utf16(kUtf8, true), "UTF-16BE"},
        {std::string(kLittleEndianMark) + Utf16(kUtf8, false), "UTF-16LE with a mark"},
        {std::string(kBigEndianMark) + Utf16(kUtf8, true), "UTF-16BE with a mark"},
    };
    for (const Form& form : forms) {
        const DecodedText decoded = DecodeText(form.bytes);
        EXPECT_EQ(decoded.refusal, "") << form.encoding;
        EXPECT_EQ(decoded.text, Gbk(kUtf8)) << form.encoding;
        EXPECT_EQ(decoded.encoding, form.encoding);
        EXPECT_EQ(decoded.replaced, "") << form.encoding;
    }
}

TEST(DecodedText, HasCrlfWhateverItsLineEnds) {
    for (const char* const end : {"\r\n", "\n", "\r", "\r\r\n"}) {
        const std::string text = std::string("a").append(end).append(end).append("b").append(end);
        EXPECT_EQ(DecodeText(text).text, "a\r\n\r\nb\r\n") << text;
        EXPECT_EQ(DecodeText(WithLineEnds(std::string(kUtf8), end)).text, Gbk(kUtf8)) << end;
    }
    EXPECT_EQ(DecodeText("a\rb\nc\r\nd").text, "a\r\nb\r\nc\r\nd");
    EXPECT_EQ(DecodeText("\n").text, "\r\n");
    EXPECT_EQ(DecodeText("").text, "");
    EXPECT_EQ(DecodeText("a").text, "a");
}

TEST(DecodedText, LeavesOutTheMarksOfFilesThatWerePutTogether) {
    const std::string marked = std::string(kUtf8Mark).append(kUtf8);
    EXPECT_EQ(DecodeText(marked + marked).text, Gbk(std::string(kUtf8).append(kUtf8)));
    EXPECT_EQ(DecodeText(marked + marked).replaced, "");
    EXPECT_EQ(DecodeText(std::string(kUtf8).append("\n").append(marked)).text,
              Gbk(std::string(kUtf8).append("\r\n").append(kUtf8)));
    const std::string wide = std::string(kLittleEndianMark) + Utf16(kUtf8, false);
    EXPECT_EQ(DecodeText(wide + wide).text, Gbk(std::string(kUtf8).append(kUtf8)));
    EXPECT_EQ(DecodeText("资" + std::string(kUtf8Mark) + "金").text, Gbk("资?金"));
}

TEST(DecodedText, HasQuestionMarksForCharactersOfNamesThatGbkLacks) {
    const DecodedText decoded = DecodeText("客户号: 90010005 客户名称: 王𠮷 日期: 20240102\n手数 12\n");
    EXPECT_EQ(decoded.refusal, "");
    EXPECT_EQ(decoded.text, Gbk("客户号: 90010005 客户名称: 王? 日期: 20240102\r\n手数 12\r\n"));
    EXPECT_EQ(decoded.replaced, "GBK lacks 𠮷 in line 1: it is replaced by ?");
    EXPECT_EQ(DecodeText("王𠮷\n𠮷\n𠮷𠮷\n").replaced,
              "GBK lacks 𠮷 in line 1, 𠮷 in line 2, 𠮷 in line 3 and 1 more: they are replaced by ?");
}

TEST(DecodedText, IsRefusedForACharacterAmongFiguresThatGbkLacks) {
    const DecodedText decoded = DecodeText("客户名称: 王\n上日结存: 1.00 𠮷\n");
    EXPECT_EQ(decoded.refusal, "line 2 has figures, and 𠮷, which GBK lacks");
    EXPECT_EQ(decoded.text, "");
    EXPECT_EQ(decoded.encoding, "UTF-8");
}

TEST(DecodedText, KnowsTheEuroSignToBeNoneOfGbk) {
    EXPECT_EQ(DecodeText("客户 €\n").text, Gbk("客户 ?\r\n"));
    EXPECT_EQ(DecodeText(Gbk("客户 ") + "\x80\n").refusal,
              "line 1 has bytes that are characters neither of GBK nor of UTF-8");
}

TEST(DecodedText, TakesCharactersOfFourBytesForThoseThatGbkLacks) {
    const std::string quad = "\x81\x30\x81\x30";
    const DecodedText decoded = DecodeText(Gbk("客户名称: ") + quad + "\n" + Gbk("手数 3\n"));
    EXPECT_EQ(decoded.refusal, "");
    EXPECT_EQ(decoded.encoding, "GB18030");
    EXPECT_EQ(decoded.text, Gbk("客户名称: ?\r\n手数 3\r\n"));
    EXPECT_EQ(decoded.replaced, "GBK lacks a character of four bytes in line 1: it is replaced by ?");
    EXPECT_EQ(DecodeText(Gbk("权益 1.00 ") + quad).refusal,
              "line 1 has figures, and a character of four bytes, which GBK lacks");
}

TEST(DecodedText, IsRefusedWithMoreForeignCharactersThanNamesHave) {
    std::string text;
    for (int i = 0; i < 999; ++i) text += "𠮷\n";
    EXPECT_EQ(DecodeText(text).refusal, "");
    EXPECT_EQ(DecodeText(text + "𠮷\n").refusal, "it has 1000 characters or more that GBK lacks");
}

TEST(DecodedText, ReplacesCharactersOfALongLineWhereTheyStand) {
    std::string utf8;
    std::string expected;
    for (int i = 0; i < 600; ++i) {  // of characters of one to four bytes, which end wherever a piece may end
        utf8 += i % 200 == 7 ? "a𠮷" : "a资";
        expected += i % 200 == 7 ? "a?" : "a资";
    }
    EXPECT_EQ(DecodeText(utf8).text, Gbk(expected));
}

TEST(DecodedText, HasAtMostTwoMillionLines) {
    EXPECT_EQ(DecodeText(std::string(1'999'999, '\n') + "a").refusal, "");
    EXPECT_EQ(DecodeText(std::string(2'000'000, '\n') + "a").refusal, "it has more than 2000000 lines");
}

TEST(DecodedText, IsRefusedForBytesThatAreNoCharacters) {
    EXPECT_EQ(DecodeText(Gbk("资金\n") + "\xFF\xFFo\n").refusal,
              "line 2 has bytes that are characters neither of GBK nor of UTF-8");
    EXPECT_EQ(DecodeText(Gbk("资金") + "\xD7").refusal, "it is cut: its last byte is half a character");
    EXPECT_EQ(DecodeText(std::string("a\0b, and more", 13)).refusal, "it has zero bytes, as no text has");
    EXPECT_EQ(DecodeText(std::string(kLittleEndianMark) + "a").refusal,
              "it has bytes that are no characters of UTF-16");
    for (const char32_t half : {U'\xD800', U'\xDC00'}) {
        std::string bytes(kLittleEndianMark);
        AppendUnit(bytes, half, false);
        AppendUnit(bytes, 'a', false);
        EXPECT_EQ(DecodeText(bytes).refusal, "it has bytes that are no characters of UTF-16");
    }
    EXPECT_EQ(DecodeText(std::string(kLittleEndianMark) + std::string("\0\0", 2)).refusal, "it has zero characters");
}

TEST(DecodedText, KnowsUtf16WhoseCharactersHaveZerosInTheOtherHalf) {
    const std::string text = "一一 ──── 20240102 1,000.00 1,000.00\r\n";  // U+4E00 and U+2500
    EXPECT_EQ(DecodeText(Utf16(text, false)).text, Gbk(text));
    EXPECT_EQ(DecodeText(Utf16(text, true)).text, Gbk(text));
}

struct Line {
    const char* text;
    bool hasFigures;
};

TEST(HasFigures, AreAmountsAndRowsOfNumbers) {
    const Line lines[] = {
        {"", false},
        {"90010005", false},
        {"20240102 90010005", false},
        {"客户号：90010004    客户名称：示例客户丙    制表时间：20240102", false},
        {"日期: 2024.01.05", false},
        {"1. 说明", false},
        {".5", false},
        {"权益: 1.00", true},
        {"权益1.00元", true},
        {"1,000.00", true},
        {"-5.5", true},
        {"20240102 5 7", true},
        {"|20240102|螺纹|5|7%|", true},
        {"|20240102|螺纹|5|x7|", false},
        {"1 -2 +3", true},
        {"- + % . ,", false},
    };
    for (const Line& line : lines) EXPECT_EQ(HasFigures(Gbk(line.text)), line.hasFigures) << line.text;
}

}  // namespace
}  // namespace tradebill::decoded_text_test
