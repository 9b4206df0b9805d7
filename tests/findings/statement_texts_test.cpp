#include "findings/statement_texts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"
#include "support/gbk_text.h"

namespace tradebill::statement_texts_test {
namespace {

using namespace std::string_literals;

/// What is wrong; empty for nothing.
std::string FaultOf(std::string_view bytes) {
    const auto fault = FindEncodingFault(bytes);
    return fault ? fault->what : "";
}

TEST(Encoding, IsGbkOrAscii) {
    for (const std::string& bytes :
         {""s, "plain text\r\n"s, Gbk("资金状况"), Gbk("客户权益：（示例）"), "a\x80"s, Gbk("资金") + "\xD7"}) {
        EXPECT_EQ(FaultOf(bytes), "") << bytes.size();
    }
}

TEST(Encoding, IsUtf8IfAllCharactersAreSound) {
    EXPECT_EQ(FaultOf("资金状况"), "UTF-8");
    EXPECT_EQ(FaultOf("\xEF\xBB\xBF资金状况"), "UTF-8 with a mark at the start");
    EXPECT_EQ(FaultOf("\xEF\xBB\xBFplain"), "a UTF-8 mark at the start of GBK text");
    EXPECT_EQ(FaultOf("\xEF\xBB\xBF" + Gbk("资金状况")), "a UTF-8 mark at the start of GBK text");
    EXPECT_EQ(FaultOf("资金状\xE5\x86"), "UTF-8");  // cut inside a character
    EXPECT_TRUE(FindEncodingFault("资金状况")->isUnreadable);
    EXPECT_FALSE(FindEncodingFault("\xEF\xBB\xBF" + Gbk("资金"))->isUnreadable);
    EXPECT_EQ(FindEncodingFault("\xEF\xBB\xBF" + Gbk("资金"))->row, 1);
}

TEST(Encoding, IsUtf16ByItsMarkOrItsZeroBytes) {
    EXPECT_EQ(FaultOf("\xFF\xFE"
                      "a\0b\0"s),
              "UTF-16");
    EXPECT_EQ(FaultOf("\xFE\xFF\0a\0b"s), "UTF-16");
    EXPECT_EQ(FaultOf("a\0b\0c\0"s), "UTF-16 without a mark");
    EXPECT_EQ(FaultOf("line\nabc\0 rest"s), "a zero byte, at which reading ends");
    EXPECT_EQ(FindEncodingFault("line\nabc\0 rest"s)->row, 2);
}

TEST(Encoding, IsUtf16WithoutAMarkIfAZeroByteIsAmongTheFirstCharacters) {
    EXPECT_EQ(FaultOf(std::string(63, 'a') + "\0b\0"s), "UTF-16 without a mark");
    EXPECT_EQ(FaultOf(std::string(64, 'a') + "\0b\0"s), "a zero byte, at which reading ends");
    EXPECT_EQ(FaultOf(std::string(63, 'a') + "\0bc"s), "a zero byte, at which reading ends");
}

TEST(Encoding, TellsTheLineOfTheFirstStrangeByte) {
    const auto fault = FindEncodingFault(Gbk("资金\r\n") + "ab\xFF\r\n" + Gbk("状况"));
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->what, "bytes that are no GBK characters");
    EXPECT_EQ(fault->row, 2);
    EXPECT_FALSE(fault->isUnreadable);
    EXPECT_EQ(FaultOf("\xD7 a"), "bytes that are no GBK characters");
    EXPECT_EQ(FaultOf("\xD7\x7F"), "bytes that are no GBK characters");
}

TEST(PrintedAccount, StandsBehindItsLabel) {
    const struct {
        const char* text;
        const char* account;
    } cases[] = {
        {"客户号: 90010002          客户名称: 示例客户乙", "90010002"},
        {"客户号 Client ID：  90010009          客户名称 Client Name：  示例客户丙", "90010009"},
        {"客户: 90010012  示例客户乙   日期：20240116", "90010012"},
        {"客户代码: AB-12_3          客户姓名: 林示例", "AB-12_3"},
        {"客户账号 Account：60010001         客户姓名 Name：林示例", "60010001"},
        {"资金账号:8801", "8801"},
    };
    for (const auto& row : cases) EXPECT_EQ(PrintedAccount(Gbk(row.text)), row.account) << row.text;
}

TEST(PrintedAccount, IsNothingThatCantBeCompared) {
    for (const char* const text :
         {"", "客户号 90010002", "客户名称: 90010002", "客户号: 9001****", "客户: ABC", "客户号:"}) {
        EXPECT_EQ(PrintedAccount(Gbk(text)), std::nullopt) << text;
    }
    EXPECT_EQ(PrintedAccount(std::string(4096, '\n') + Gbk("客户号: 1")), std::nullopt);
}

TEST(PrintedDay, StandsBehindItsLabel) {
    const struct {
        const char* text;
        const char* day;
    } cases[] = {
        {"日  期:20240111", "20240111"},  {"日期 Date：20240111", "20240111"}, {"日期：2024-01-05", "20240105"},
        {"结算日: 2024.1.5", "20240105"}, {"日期: 2024年1月5日", "20240105"},
    };
    for (const auto& row : cases) EXPECT_EQ(PrintedDay(Gbk(row.text)), row.day) << row.text;
}

TEST(PrintedDay, IsNotTheDayOnWhichAStatementWasMade) {
    EXPECT_EQ(PrintedDay(Gbk("制表日期：20240202\r\n日期：20240201")), "20240201");
    EXPECT_EQ(PrintedDay(Gbk("打印日期：20240202")), std::nullopt);
    EXPECT_EQ(PrintedDay(Gbk("成交日期 交易所")), std::nullopt);
    EXPECT_EQ(PrintedDay(Gbk("日期：2024")), std::nullopt);
}

TEST(PackedDate, HasEightDigitsOrWhatThereIs) {
    EXPECT_EQ(PackedDate("20240105"), "20240105");
    EXPECT_EQ(PackedDate("  2024-01-05 x"), "20240105");
    EXPECT_EQ(PackedDate("2024/1/5"), "20240105");
    EXPECT_EQ(PackedDate(Gbk("2024年12月31日")), "20241231");
    EXPECT_EQ(PackedDate("2024"), "2024");
    EXPECT_EQ(PackedDate("x"), "");
    EXPECT_EQ(PackedDate(""), "");
}

TEST(HashOf, IsThatOfItsBytesAlone) {
    std::set<std::uint64_t> hashes;
    std::string text;
    for (int i = 0; i < 300; ++i) {
        EXPECT_TRUE(hashes.insert(HashOf(text)).second) << i;
        EXPECT_EQ(HashOf(text), HashOf(std::string(text)));
        text += '\0';
    }
    EXPECT_NE(HashOf("0123456789"), HashOf("0123456798"));
    EXPECT_NE(HashOf("1023456789"), HashOf("0123456789"));
}

TEST(Encoding, IsUtf8WithCharactersOfEachLength) {
    EXPECT_EQ(FaultOf("caf\xC3\xA9"), "UTF-8");
    EXPECT_EQ(FaultOf("\xE2\x82\xAC 5"), "UTF-8");
    EXPECT_EQ(FaultOf("\xF0\x9F\x98\x80 5"), "UTF-8");
    EXPECT_EQ(FaultOf("\xF8\x88\x80\x80\x80 5"), "bytes that are no GBK characters");
    EXPECT_EQ(FaultOf("\xC1\x81 5 6"), "");  // GBK: the shorter form of UTF-8 is a byte more
    EXPECT_EQ(FaultOf("\xF4\x8F\xBF\xBF 5"), "UTF-8");
    EXPECT_NE(FaultOf("\xF4\x90\x80\x80 5"), "UTF-8");  // beyond the last character
    EXPECT_NE(FaultOf("\xED\xA0\x80 5 6"), "UTF-8");    // half of a pair
    EXPECT_NE(FaultOf("\xE0\x80\x80 5 6"), "UTF-8");    // a longer form than there need be
}

TEST(Encoding, IsGbkUpToItsFirstAndLastBytes) {
    EXPECT_EQ(FaultOf("\x81\x40 56"), "");
    EXPECT_EQ(FaultOf("\xFE\xFE 56"), "");
    EXPECT_EQ(FaultOf("\x81\x3F 56"), "bytes that are no GBK characters");
    EXPECT_EQ(FaultOf("\x80\x40 56"), "bytes that are no GBK characters");
    EXPECT_EQ(FaultOf("\xB0\xFF 56"), "bytes that are no GBK characters");
    EXPECT_EQ(FaultOf("\xFF\x40 56"), "bytes that are no GBK characters");
}

TEST(PrintedAccount, HasLatinWordsBeforeItsColonAndLettersOfBothKinds) {
    EXPECT_EQ(PrintedAccount(Gbk("客户号 No. Az: ab_1Z{2")), "ab_1Z");
    EXPECT_EQ(PrintedAccount(Gbk("客户号 9: 1")), std::nullopt);
    EXPECT_EQ(PrintedAccount(Gbk("客户号 {: 1")), std::nullopt);
    EXPECT_EQ(PrintedAccount(Gbk("客户号 @: 1")), std::nullopt);
    EXPECT_EQ(PrintedAccount(Gbk("客户号 Client")), std::nullopt);
    EXPECT_EQ(PrintedAccount(Gbk("客户号: @1")), std::nullopt);
}

TEST(PrintedAccount, StandsBehindALaterLabelOfItsKind) {
    EXPECT_EQ(PrintedAccount(Gbk("客户号一览\r\n客户号: 88")), "88");
    EXPECT_EQ(PrintedAccount(Gbk("客户号, 客户号, 客户号: 88")), "88");
}

TEST(PrintedDay, NeedsAColonBehindItsLabel) {
    EXPECT_EQ(PrintedDay(Gbk("日期 20240111")), std::nullopt);
    EXPECT_EQ(PrintedDay(Gbk("日期 20240111\r\n日期: 20240112")), "20240112");
}

TEST(Encoding, IsUtf8WhereTheFileEndsInACharacterOfFourBytes) {
    EXPECT_EQ(FaultOf("资金\xF0\x9F\x98"), "UTF-8");
    EXPECT_EQ(FaultOf("资金\xF0\x9F\x98 567"), "bytes that are no GBK characters");
}

std::string LabelOf(const std::optional<StatedLabel>& label) {
    return label ? GbkToUtf8(label->label) + " > " + GbkToUtf8(label->behind.substr(0, 8)) : "";
}

TEST(StatedLabel, HasWhatStandsBeforeItsWordsWithoutABlank) {
    EXPECT_EQ(LabelOf(FindAccountLabel(Gbk("客户号 Client ID：  90010009  客户名称：周"))), "客户号 > 90010009");
    EXPECT_EQ(LabelOf(FindDayLabel(Gbk("  到期日期: 20240301"))), "到期日期 > 20240301");
    EXPECT_EQ(LabelOf(FindDayLabel(Gbk("|日  期:20240301"))), "日  期 > 20240301");
    EXPECT_EQ(LabelOf(FindDayLabel(Gbk("制表日期: 20240301"))), "");
    EXPECT_EQ(LabelOf(FindMakingDayLabel(Gbk("客户号：1 制表时间：20240301"))), "制表时间 > 20240301");
    EXPECT_EQ(LabelOf(FindMakingDayLabel(Gbk("制表时间：周三"))), "");
    EXPECT_EQ(LabelOf(FindAccountLabel(Gbk("客户号: 90****09"))), "");
}

TEST(StatedLabel, BeginsACellWhereItIsLookedForByItsWords) {
    EXPECT_EQ(BehindLabelOf(Gbk("到期日期: 1 日期: 2"), Gbk("日期")), "2");
    EXPECT_EQ(BehindLabelOf(Gbk("日期 Date：3"), Gbk("日期")), "3");
    EXPECT_EQ(BehindLabelOf(Gbk("|日期:4"), Gbk("日期")), "4");
    EXPECT_EQ(BehindLabelOf(Gbk("到期日期: 1"), Gbk("日期")), std::nullopt);
    EXPECT_EQ(BehindLabelOf(Gbk("日期 20240101"), Gbk("日期")), std::nullopt);
}

TEST(StatedLabel, IsFollowedByAnAccountAsFarAsItGoes) {
    EXPECT_EQ(AccountAt("90-1_a*/x"), "90-1_a*");
    EXPECT_EQ(AccountAt(" 1"), "");
}

}  // namespace
}  // namespace tradebill::statement_texts_test
