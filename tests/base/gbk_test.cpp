#include "base/gbk.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "platform/text_encoding.h"

namespace tradebill::gbk_test {
namespace {

static_assert("买"_gbk == "\xC2\xF2");
static_assert("卖"_gbk == "\xC2\xF4");
static_assert("　"_gbk == "\xA1\xA1");
static_assert(""_gbk.empty());

TEST(GbkLiteral, IsTheGbkBytesOfItsText) {
    EXPECT_EQ("权利金"_gbk, "\xC8\xA8\xC0\xFB\xBD\xF0");
    EXPECT_EQ("共"_gbk, "\xB9\xB2");
}

TEST(GbkLiteral, LeavesAsciiAsItIs) {
    EXPECT_EQ("<td>买\r\n"_gbk, "<td>\xC2\xF2\r\n");
    EXPECT_EQ("%s~\x7F"_gbk, "%s~\x7F");
}

TEST(GbkLiteral, IsFollowedByAZeroThatItDoesntCount) {
    constexpr std::string_view text = "买a"_gbk;
    EXPECT_EQ(text.size(), 3U);
    EXPECT_EQ(text.data()[text.size()], '\0');
}

std::string Utf8Of(char32_t point) {
    if (point < 0x80) return {static_cast<char>(point)};
    if (point < 0x800) return {static_cast<char>(0xC0 | (point >> 6)), static_cast<char>(0x80 | (point & 0x3F))};
    return {static_cast<char>(0xE0 | (point >> 12)), static_cast<char>(0x80 | ((point >> 6) & 0x3F)),
            static_cast<char>(0x80 | (point & 0x3F))};
}

TEST(GbkTable, AgreesWithTheSystemsConverter) {
    for (const auto& entry : gbk::kGbkTable) {
        const std::string bytes{static_cast<char>(entry.code >> 8), static_cast<char>(entry.code & 0xFF)};
        EXPECT_EQ(GbkToUtf8(bytes), Utf8Of(entry.point)) << std::hex << static_cast<std::uint32_t>(entry.point);
    }
}

TEST(GbkTable, AscendsByCodePoint) {
    for (std::size_t i = 1; i < std::size(gbk::kGbkTable); ++i) {
        EXPECT_LT(gbk::kGbkTable[i - 1].point, gbk::kGbkTable[i].point);
    }
}

}  // namespace
}  // namespace tradebill::gbk_test
