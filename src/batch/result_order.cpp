#include "batch/result_order.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "batch/account_result.h"
#include "batch/results_file.h"

namespace tradebill {
namespace {

bool IsUnfinished(AccountStatus status) {
    return status != AccountStatus::Ok && status != AccountStatus::Findings;
}

auto RankOf(const AccountResult& result) {
    return std::tuple(!IsUnfinished(result.status), -result.errors, -result.warnings);
}

}  // namespace

std::vector<const AccountResult*> FindingsFirst(const ResultsByAccount& results) {
    std::vector<const AccountResult*> rows;
    rows.reserve(results.size());
    for (const auto& [account, result] : results) rows.push_back(&result);
    // Stable, since the results come in the order of their accounts.
    std::ranges::stable_sort(rows, {}, [](const AccountResult* result) { return RankOf(*result); });
    return rows;
}

}  // namespace tradebill
