// Commands over several accounts of one root.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "report/account_key.h"
#include "requests/report_options.h"

namespace tradebill {

/// Throws CUsageError for accounts of both kinds: their amounts are in different currencies and can't be added up.
void CheckOneKind(std::span<const AccountKey> accounts);

/// The options of a report of each account below the root whose number is among `numbers` (of all accounts, if there
/// are none), as far as `given` names user and kind. Its days are those of its statements, where none are given. In the
/// order of users and numbers. Of all accounts those are left out that begin behind the last day or end before the
/// first, which is told. Throws CUsageError for a number without statements and for options that are of one account
/// only, and CUnreadableInput.
[[nodiscard]] std::vector<ReportOptions> OptionsOfAccounts(const ReportOptions& given,
                                                           std::span<const std::string> numbers);

}  // namespace tradebill
