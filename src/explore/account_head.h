// What the page knows of accounts before any of their tables is unpacked.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tradebill {

struct ExploredAccount;
struct SummedAccounts;

/// Tables and their rows.
using RowCounts = std::vector<std::pair<std::string_view, std::size_t>>;

/// The object of one account.
[[nodiscard]] std::string AccountHead(const ExploredAccount& account, const RowCounts& counts);

/// The object of the sum of all accounts.
[[nodiscard]] std::string SumHead(const SummedAccounts& sum, bool isForeign, const RowCounts& counts);

/// The page's own, around those of its accounts.
[[nodiscard]] std::string PageHead(std::span<const std::string> accounts);

}  // namespace tradebill
