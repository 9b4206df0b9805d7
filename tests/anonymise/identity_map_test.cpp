// What stands for numbers and names.
#include "anonymise/identity_map.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <set>
#include <string>

#include "support/gbk_text.h"

namespace tradebill::identity_map_test {
namespace {

TEST(IdentityMap, KeepsLengthAndKinds) {
    CIdentityMap map(7);
    const std::string trade = map.Of("00068138");
    ASSERT_EQ(trade.size(), 8u);
    EXPECT_TRUE(trade.starts_with("000"));
    EXPECT_NE(trade[3], '0');
    EXPECT_NE(trade, "00068138");
    const std::string code = map.Of("Test-1");
    ASSERT_EQ(code.size(), 6u);
    EXPECT_TRUE(std::isupper(static_cast<unsigned char>(code[0])));
    EXPECT_TRUE(std::islower(static_cast<unsigned char>(code[1])));
    EXPECT_EQ(code[4], '-');
    EXPECT_TRUE(std::isdigit(static_cast<unsigned char>(code[5])));
}

TEST(IdentityMap, KeepsSignsAndChineseCharactersAndChangesZerosAlone) {
    CIdentityMap map(7);
    EXPECT_EQ(map.Of("a~{")[1], '~');
    EXPECT_EQ(map.Of("a~{")[2], '{');
    EXPECT_TRUE(map.Of(Gbk("客1")).starts_with(Gbk("客")));
    EXPECT_EQ(map.Of("000").size(), 3u);
    EXPECT_NE(map.Of("000"), "000");
}

TEST(IdentityMap, TellsWhatCanBeChanged) {
    for (const std::string& text : {std::string("A"), std::string("z"), std::string("0"), Gbk("客户 1")}) {
        EXPECT_TRUE(HasLettersOrDigits(text)) << text;
    }
    for (const std::string& text : {std::string(), std::string("-~ [{@"), Gbk("客户")}) {
        EXPECT_FALSE(HasLettersOrDigits(text)) << text;
    }
}

TEST(IdentityMap, MapsAlikeWhateverTheOrder) {
    CIdentityMap one(7);
    CIdentityMap other(7);
    CIdentityMap seeded(8);
    const std::string first = one.Of("90010002");
    EXPECT_EQ(one.Of("90010003"), other.Of("90010003"));
    EXPECT_EQ(other.Of("90010002"), first);
    EXPECT_NE(seeded.Of("90010002"), first);
}

TEST(IdentityMap, GivesNoNumberThatIsThereAndNoneTwice) {
    CIdentityMap map(1);
    std::set<std::string> known;
    for (int i = 10; i < 50; ++i) known.insert(std::to_string(i));
    for (const std::string& number : known) map.Know(number);
    std::set<std::string> given;
    for (const std::string& number : known) {
        EXPECT_FALSE(known.contains(map.Of(number))) << number;
        EXPECT_TRUE(given.insert(map.Of(number)).second) << number;
    }
}

TEST(IdentityMap, FindsOneWhereAllAreTaken) {
    CIdentityMap map(1);
    for (char digit = '1'; digit <= '9'; ++digit) map.Know(std::string(1, digit));
    for (char digit = '1'; digit <= '9'; ++digit) EXPECT_EQ(map.Of(std::string(1, digit)).size(), 1u);
}

TEST(IdentityMap, KeepsWhatWasFixed) {
    CIdentityMap map(1);
    map.Fix("123", "987");
    EXPECT_EQ(map.Of("123"), "987");
}

TEST(IdentityMap, MasksNames) {
    EXPECT_EQ(MaskedText(Gbk("示例客户甲")), Gbk("某某某某某"));
    EXPECT_EQ(MaskedText(Gbk("某甲")), Gbk("甲某"));
    EXPECT_EQ(MaskedText(Gbk("Li, 12（示例）")), Gbk("Xx, 00（某某）"));
    EXPECT_EQ(MaskedText("\x81\x40~"), Gbk("某~")) << "a character from before the signs";
}

}  // namespace
}  // namespace tradebill::identity_map_test
