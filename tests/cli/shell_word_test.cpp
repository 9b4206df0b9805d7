#include "cli/shell_word.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace tradebill::shell_word_test {
namespace {

TEST(ReadShellWord, TakesQuotesAway) {
    EXPECT_EQ(ReadShellWord(R"(my\ root)").text, "my root");
    EXPECT_EQ(ReadShellWord(R"('my root'/"of \"me\"")").text, R"(my root/of "me")");
    EXPECT_EQ(ReadShellWord(R"('a\b')").text, R"(a\b)");
    EXPECT_EQ(ReadShellWord(R"("a\b")").text, R"(a\b)");
    EXPECT_EQ(ReadShellWord("张\\ 三").text, "张 三");
    EXPECT_EQ(ReadShellWord("").text, "");
}

TEST(ReadShellWord, FillsNothingIn) {
    EXPECT_EQ(ReadShellWord("\"$(touch x)\"`y`$HOME").text, "$(touch x)`y`$HOME");
}

TEST(ReadShellWord, TellsTheQuoteThatIsOpen) {
    EXPECT_EQ(ReadShellWord("'my ro").text, "my ro");
    EXPECT_EQ(ReadShellWord("'my ro").openQuote, '\'');
    EXPECT_EQ(ReadShellWord("a\"b'").openQuote, '"');
    EXPECT_EQ(ReadShellWord("'a'").openQuote, 0);
    EXPECT_EQ(ReadShellWord("a\\").text, "a\\");
}

TEST(WithHome, IsForTheUsersOwnAlone) {
    EXPECT_EQ(WithHome("~/root", "/home/me"), "/home/me/root");
    EXPECT_EQ(WithHome("~", "/home/me"), "/home/me");
    EXPECT_EQ(WithHome("~you/root", "/home/me"), "~you/root");
    EXPECT_EQ(WithHome("a/~", "/home/me"), "a/~");
    EXPECT_EQ(WithHome("~/root", nullptr), "~/root");
}

TEST(IsOneLine, MeansNoControlCharacters) {
    EXPECT_TRUE(IsOneLine("张 三 'x'"));
    EXPECT_FALSE(IsOneLine("a\nb"));
    EXPECT_FALSE(IsOneLine("a\tb"));
    EXPECT_FALSE(IsOneLine("a\x7f"));
    EXPECT_FALSE(IsOneLine("\x1b[m"));
}

TEST(BashWord, IsReadBackAsItIs) {
    EXPECT_EQ(BashWord("90010002", 0), "90010002");
    EXPECT_EQ(BashWord("张三", 0), "张三");
    EXPECT_EQ(BashWord("a b", 0), R"(a\ b)");
    EXPECT_EQ(BashWord("$(x)`y`", 0), R"(\$\(x\)\`y\`)");
    EXPECT_EQ(BashWord("~;&|<>*?[]{}!#'\"\\", 0), R"(\~\;\&\|\<\>\*\?\[\]\{\}\!\#\'\"\\)");
}

TEST(BashWord, GoesBehindAnOpenQuote) {
    EXPECT_EQ(BashWord("a $(b)", '\''), "a $(b)");
    EXPECT_EQ(BashWord("it's", '\''), std::nullopt);
    EXPECT_EQ(BashWord(R"(a "$b\`)", '"'), R"(a \"\$b\\\`)");
    EXPECT_EQ(BashWord("a!b", '"'), std::nullopt);
}

}  // namespace
}  // namespace tradebill::shell_word_test
