// What a report isn't told of its account and days: found below its root.
#pragma once

#include "driver/present_day.h"
#include "requests/kept_accounts.h"
#include "requests/report_options.h"

namespace tradebill {

/// Fills what `options` leave open of user, account, kind and days: those of the only account that fits, from its first
/// statement to its last. Where no statement is there, the days are that of the other end, or `present`. REQUIRES: a
/// root. Throws CUsageError where no account or several fit, with a list of them, and CUnreadableInput.
void FindUntold(ReportOptions& options, const PresentDay& present, const AccountLookup& lookUp = FindKeptAccounts);

}  // namespace tradebill
