#include "requests/untold_options.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "base/day.h"
#include "driver/present_day.h"
#include "report/account_key.h"
#include "report/request_copy.h"
#include "requests/format_choice.h"
#include "requests/kept_accounts.h"
#include "requests/report_options.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

std::string Listed(const std::vector<KeptAccount>& accounts) {
    constexpr std::size_t kMostListed = 20;
    std::string list;
    for (std::size_t i = 0; i < std::min(accounts.size(), kMostListed); ++i) {
        list.append(i == 0 ? "" : ", ").append(AccountOptions(accounts[i].key));
    }
    const std::size_t more = accounts.size() - std::min(accounts.size(), kMostListed);
    return more == 0 ? list : list + " and " + std::to_string(more) + " more";
}

/// An account whose family isn't told is a domestic one, if it may be either.
std::vector<KeptAccount> FittingAccounts(const ReportOptions& options, const PresentDay& present,
                                         const AccountLookup& lookUp) {
    WantedAccount wanted{.user = options.user, .account = options.account};
    if (options.kind) wanted.isForeign = KindNumber(options.kind) == kForeignKind;
    std::vector<KeptAccount> accounts = lookUp(*options.root, wanted, present.day);
    const bool hasBoth = options.user && options.account && accounts.size() > 1;
    if (hasBoth) std::erase_if(accounts, [](const KeptAccount& account) { return account.key.isForeign; });
    return accounts;
}

/// The first option that tells `accounts` apart, or that is untold where there are none.
std::string MissingOption(const ReportOptions& options, const std::vector<KeptAccount>& accounts) {
    if (accounts.empty()) return options.user ? "--account" : "--user";
    const AccountKey& first = accounts.front().key;
    const auto isOfOneUser = [&](const KeptAccount& account) { return account.key.user == first.user; };
    const auto isOfOneNumber = [&](const KeptAccount& account) { return account.key.account == first.account; };
    if (!std::ranges::all_of(accounts, isOfOneUser)) return "--user";
    return std::ranges::all_of(accounts, isOfOneNumber) ? "--kind" : "--account";
}

}  // namespace

void FindUntold(ReportOptions& options, const PresentDay& present, const AccountLookup& lookUp) {
    const bool lacksAccount = !options.user || !options.account;
    if (!lacksAccount && options.from && options.to) return;
    const std::vector<KeptAccount> accounts = FittingAccounts(options, present, lookUp);
    const std::string missing = MissingOption(options, accounts);
    if (accounts.empty() && lacksAccount) {
        throw CUsageError(missing + " is missing: expected an account's statements below \"" + *options.root +
                          "/Users\", found none");
    }
    if (accounts.size() > 1) {
        throw CUsageError(missing + " is missing: expected one of the accounts below \"" + *options.root +
                          "\": " + Listed(accounts));
    }
    const std::string today = DashedDayText(present.day);
    if (accounts.empty()) {
        options.from = options.from.value_or(options.to.value_or(today));
        options.to = options.to.value_or(*options.from);
        return;
    }
    const KeptAccount& found = accounts.front();
    options.user = found.key.user;
    options.account = found.key.account;
    if (!options.kind) options.kind = std::string(KindName(found.key.isForeign));
    if (!options.from) options.from = DashedDayText(ParsePackedDay(found.firstDay));
    if (!options.to) options.to = DashedDayText(ParsePackedDay(found.lastDay));
}

}  // namespace tradebill
