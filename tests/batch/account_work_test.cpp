#include "batch/account_work.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "batch/account_result.h"
#include "batch/made_results.h"

namespace tradebill::account_work_test {
namespace {

TEST(AccountWork, IsALineWhateverItHolds) {
    const AccountQuestion question{
        .account = {.user = "a\nb", .account = "\"1\"", .isForeign = true},
        .settings = {{"from", "2024-01-02"}, {"user", "\xE5\xBC\xA0"}},
        .made = MadeFrom{.options = "o", .inputs = "i", .outputs = {{"x/y", "z"}}, .version = "v"}};
    const std::string line = QuestionLine(question);
    EXPECT_EQ(std::ranges::count(line, '\n'), 0);
    const auto read = ParseQuestion(line);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->account, question.account);
    EXPECT_EQ(read->settings, question.settings);
    ASSERT_TRUE(read->made);
    EXPECT_EQ(read->made->options, "o");
    EXPECT_EQ(read->made->inputs, "i");
    EXPECT_EQ(read->made->outputs, question.made->outputs);
    EXPECT_EQ(read->made->version, "v");
}

TEST(AccountWork, OfAnAccountThatIsToBeMadeAsksForNothingElse) {
    EXPECT_FALSE(ParseQuestion(QuestionLine({.account = {.user = "u", .account = "1"}}))->made);
}

TEST(AccountWork, IsAnsweredByALineToo) {
    const AccountAnswer answer{.result = MadeResult("1"), .isAsMade = true, .told = {"a\nb", "c"}};
    const std::string line = AnswerLine(answer);
    EXPECT_EQ(std::ranges::count(line, '\n'), 0);
    const auto read = ParseAnswer(line);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->result, answer.result);
    EXPECT_TRUE(read->isAsMade);
    EXPECT_EQ(read->told, answer.told);
    EXPECT_FALSE(ParseAnswer(AnswerLine({}))->result);
}

TEST(AccountWork, IsNothingOfOtherLines) {
    for (const char* const line : {"", "x", "{}", "[]", "{\"account\":1}", "{\"isAsMade\":1,\"told\":[]}"}) {
        EXPECT_FALSE(ParseQuestion(line)) << line;
        EXPECT_FALSE(ParseAnswer(line)) << line;
    }
}

}  // namespace
}  // namespace tradebill::account_work_test
