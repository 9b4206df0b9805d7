// Results as they are looked at: what needs a hand first.
#pragma once

#include <vector>

#include "batch/account_result.h"
#include "batch/results_file.h"

namespace tradebill {

/// Accounts without a report first, then those with more errors, then with more warnings; alike ones by user, account
/// and kind. Points into `results`, which must outlive it.
[[nodiscard]] std::vector<const AccountResult*> FindingsFirst(const ResultsByAccount& results);

}  // namespace tradebill
