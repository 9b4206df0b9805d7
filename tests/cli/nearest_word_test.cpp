#include "cli/nearest_word.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tradebill::nearest_word_test {
namespace {

TEST(WordDistance, CountsLetters) {
    EXPECT_EQ(WordDistance("report", "report"), 0U);
    EXPECT_EQ(WordDistance("reprot", "report"), 1U);  // two neighbours swapped
    EXPECT_EQ(WordDistance("repot", "report"), 1U);
    EXPECT_EQ(WordDistance("reports", "report"), 1U);
    EXPECT_EQ(WordDistance("resort", "report"), 1U);
    EXPECT_EQ(WordDistance("kitten", "sitting"), 3U);
    EXPECT_EQ(WordDistance("", "abc"), 3U);
    EXPECT_EQ(WordDistance("abc", ""), 3U);
    EXPECT_EQ(WordDistance("ca", "abc"), 3U);  // no letter is touched twice
}

TEST(NearestWord, IsTheOneThatMayHaveBeenMeant) {
    const std::vector<std::string> words{"report", "reset", "export", "explain", "explore"};
    EXPECT_EQ(NearestWord("reprot", words), "report");
    EXPECT_EQ(NearestWord("exprot", words), "export");
    EXPECT_EQ(NearestWord("explian", words), "explain");
    EXPECT_EQ(NearestWord("rset", words), "reset");
    EXPECT_EQ(NearestWord("xport", words), "export");
}

TEST(NearestWord, IsNoneThatIsFar) {
    const std::vector<std::string> words{"report", "reset", "to"};
    EXPECT_EQ(NearestWord("frobnicate", words), "");
    EXPECT_EQ(NearestWord("", words), "");
    EXPECT_EQ(NearestWord("xy", words), "");
    EXPECT_EQ(NearestWord("report", {}), "");
}

TEST(NearestWord, IsTheFirstOfSeveral) {
    const std::vector<std::string> words{"--from", "--form"};
    EXPECT_EQ(NearestWord("--fror", words), "--from");
}

}  // namespace
}  // namespace tradebill::nearest_word_test
