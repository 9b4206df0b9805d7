// Whether an account came into a report with open positions.
#pragma once

#include "analysis/account_days.h"

namespace tradebill {

class CReport;

/// Whether a position of a foreign account may have been open before `first`, the report's first day: a row says so, or
/// the day's trades don't account for what is open at its end, or its rows don't tell (a side is missing, or the day is
/// a host's).
[[nodiscard]] bool MayHoldBefore(const CReport& report, const AccountDay& first);

}  // namespace tradebill
