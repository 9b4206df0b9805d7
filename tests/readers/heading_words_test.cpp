#include "readers/heading_words.h"

#include <gtest/gtest.h>

#include "base/gbk.h"

namespace tradebill::heading_words_test {

TEST(HeadingWords, AreTheChineseCharactersAlone) {
    EXPECT_EQ(HanziOf("手 续 费 Commission："_gbk), "手续费"_gbk);
    EXPECT_EQ(HanziOf("投/保"_gbk), "投保"_gbk);
    EXPECT_EQ(HanziOf("Deposit"), "");
    EXPECT_EQ(HanziOf(""), "");
}

TEST(HeadingWords, LeaveOutSignsOfFullWidth) {
    EXPECT_FALSE(IsHanzi("："_gbk));
    EXPECT_FALSE(IsHanzi("A"));
    EXPECT_TRUE(IsHanzi("金"_gbk));
}

}  // namespace tradebill::heading_words_test
