#include "batch/account_result.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>

#include "batch/made_results.h"
#include "report/account_key.h"

namespace tradebill::account_result_test {
namespace {

TEST(AccountResult, IsALineThatReadsBackToTheSame) {
    for (const AccountStatus status : {AccountStatus::Ok, AccountStatus::Findings, AccountStatus::Failed,
                                       AccountStatus::Crashed, AccountStatus::TimedOut}) {
        AccountResult result = MadeResult("90010002");
        result.status = status;
        const std::string line = ResultLine(result);
        ASSERT_TRUE(line.ends_with("}\n"));
        EXPECT_EQ(line.find('\n'), line.size() - 1);
        EXPECT_EQ(ParseResultLine(line.substr(0, line.size() - 1)), result);
    }
}

TEST(AccountResult, SaysWhoseItIsAndHowItEndedFirst) {
    AccountResult result = MadeResult("90010002");
    result.status = AccountStatus::TimedOut;
    EXPECT_TRUE(ResultLine(result).starts_with(
        R"({"user":"demo","account":"90010002","kind":"domestic","status":"timeout","equity":1.5,)"));
    result.account.isForeign = true;
    result.equity.reset();
    EXPECT_TRUE(ResultLine(result).starts_with(
        R"({"user":"demo","account":"90010002","kind":"foreign","status":"timeout","equity":null,)"));
}

TEST(AccountResult, IsNoneOfALineThatIsCutOrSaysLess) {
    const std::string line = ResultLine(MadeResult("1"));
    for (std::size_t size = 0; size + 1 < line.size(); ++size) {
        EXPECT_FALSE(ParseResultLine(line.substr(0, size - (size > 0 ? 1 : 0))).has_value()) << size;
    }
    const auto whole = nlohmann::json::parse(line);
    for (const auto& [name, value] : whole.items()) {
        nlohmann::json less = whole;
        less.erase(name);
        EXPECT_FALSE(ParseResultLine(less.dump()).has_value()) << name;
        nlohmann::json other = whole;
        other[name] = nlohmann::json::array({1, nullptr});
        EXPECT_FALSE(ParseResultLine(other.dump()).has_value()) << name;
    }
    nlohmann::json unknown = whole;
    unknown["status"] = "perhaps";
    EXPECT_FALSE(ParseResultLine(unknown.dump()).has_value());
    unknown = whole;
    unknown["kind"] = "";
    EXPECT_FALSE(ParseResultLine(unknown.dump()).has_value());
    EXPECT_FALSE(ParseResultLine("[]").has_value());
}

TEST(AccountResult, OfALaterProgramMaySayMore) {
    auto more = nlohmann::json::parse(ResultLine(MadeResult("1")));
    more["new"] = 1;
    EXPECT_EQ(ParseResultLine(more.dump()), MadeResult("1"));
}

TEST(AccountResult, HasNothingWhereAFigureIsNoNumber) {
    AccountResult result = MadeResult("1");
    result.pl = std::numeric_limits<double>::infinity();
    const auto read = ParseResultLine(ResultLine(result));
    ASSERT_TRUE(read.has_value());
    EXPECT_FALSE(read->pl.has_value());
}

TEST(AccountResult, KeepsAFaultyTextReadable) {
    AccountResult result = MadeResult("1");
    result.reason = "\xD6\n\"";
    const auto read = ParseResultLine(ResultLine(result));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->reason, "\xEF\xBF\xBD\n\"");
}

}  // namespace
}  // namespace tradebill::account_result_test
