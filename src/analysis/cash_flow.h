// What was paid into an account and out of it, day by day.
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>

#include "analysis/account_days.h"
#include "report/printed_money.h"

namespace tradebill {

class CReport;

/// CRJ of the days' records. Where no statement has one, the layout keeps none: then it is the rest of the identity
/// that the account's balances keep, or, with too few statements to find that, of the usual one.
class CCashFlows {
public:
    /// REQUIRES: the report outlives this.
    explicit CCashFlows(const CReport& report);

    /// In base currency. Nothing if it isn't known.
    [[nodiscard]] std::optional<double> Of(const AccountDay& day) const;

private:
    [[nodiscard]] std::optional<double> RestOf(const AccountDay& day) const;

    const CReport& report_;
    std::unordered_map<std::int64_t, const PrintedMoney*> printed_;  // by days
    bool isKept_ = true;
};

}  // namespace tradebill
