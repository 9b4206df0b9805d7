// The accounts below a root folder, and the days that they have statements of.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/day.h"
#include "report/account_key.h"

namespace tradebill {

/// What is known of an account that is looked for; the rest may be anything.
struct WantedAccount {
    std::optional<std::string> user = {};  ///< folder below "Users"
    std::optional<std::string> account = {};
    std::optional<bool> isForeign = {};
};

[[nodiscard]] bool IsWanted(const AccountKey& key, const WantedAccount& wanted);

/// An account that has a statement.
struct KeptAccount {
    AccountKey key;        ///< names as the file system has them
    std::string firstDay;  ///< yyyymmdd
    std::string lastDay;
};

/// The accounts below `root` that are as wanted, in the order of their keys. Statements of days after `present` count,
/// and one without the ending of finished days only if it is of `present`. Throws CUnreadableInput for a folder that
/// is there and can't be looked into.
[[nodiscard]] std::vector<KeptAccount> FindKeptAccounts(const std::string& root, const WantedAccount& wanted,
                                                        const CalendarDay& present);

/// FindKeptAccounts, or whoever knows what it would find.
using AccountLookup = std::function<std::vector<KeptAccount>(const std::string& root, const WantedAccount& wanted,
                                                             const CalendarDay& present)>;

/// The options that name an account: "--user demo --account 90010002", and "--kind foreign" behind it.
[[nodiscard]] std::string AccountOptions(const AccountKey& key);

}  // namespace tradebill
