#include "batch/result_order.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "batch/account_result.h"
#include "batch/results_file.h"

namespace tradebill::result_order_test {
namespace {

struct Row {
    AccountKey account;
    AccountStatus status = AccountStatus::Ok;
    std::int64_t errors = 0;
    std::int64_t warnings = 0;
};

std::vector<std::string> Order(const std::vector<Row>& rows) {
    ResultsByAccount results;
    for (const Row& row : rows) {
        AccountResult& result = results[row.account];
        result.account = row.account;
        result.status = row.status;
        result.errors = row.errors;
        result.warnings = row.warnings;
    }
    std::vector<std::string> order;
    for (const AccountResult* result : FindingsFirst(results)) {
        const AccountKey& key = result->account;
        order.push_back(key.user + " " + key.account + (key.isForeign ? " foreign" : ""));
    }
    return order;
}

using Names = std::vector<std::string>;

TEST(FindingsFirst, PutsAccountsWithoutAReportBeforeAnyFinding) {
    EXPECT_EQ(Order({{{"a", "1"}, AccountStatus::Findings, 9, 9},
                     {{"a", "2"}, AccountStatus::TimedOut},
                     {{"a", "3"}, AccountStatus::Ok},
                     {{"a", "4"}, AccountStatus::Failed},
                     {{"a", "5"}, AccountStatus::Crashed}}),
              (Names{"a 2", "a 4", "a 5", "a 1", "a 3"}));
}

TEST(FindingsFirst, GoesByErrorsThenWarningsMostFirst) {
    EXPECT_EQ(Order({{{"a", "1"}, AccountStatus::Findings, 1, 50},
                     {{"a", "2"}, AccountStatus::Findings, 2, 0},
                     {{"a", "3"}, AccountStatus::Findings, 0, 3},
                     {{"a", "4"}, AccountStatus::Findings, 1, 51},
                     {{"a", "5"}, AccountStatus::Failed, 1, 0},
                     {{"a", "6"}, AccountStatus::Failed, 2, 0}}),
              (Names{"a 6", "a 5", "a 2", "a 4", "a 1", "a 3"}));
}

TEST(FindingsFirst, GoesByUserAccountAndKindAmongAlikeOnes) {
    EXPECT_EQ(Order({{{"b", "1"}}, {{"a", "2", true}}, {{"a", "2"}}, {{"a", "10"}}}),
              (Names{"a 10", "a 2", "a 2 foreign", "b 1"}));
}

TEST(FindingsFirst, HasNothingOfNothing) {
    EXPECT_EQ(Order({}), Names{});
}

}  // namespace
}  // namespace tradebill::result_order_test
