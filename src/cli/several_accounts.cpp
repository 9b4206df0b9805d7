#include "cli/several_accounts.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/day.h"
#include "cli/voice.h"
#include "report/account_key.h"
#include "report/request_copy.h"
#include "requests/format_choice.h"
#include "requests/kept_accounts.h"
#include "requests/report_options.h"
#include "requests/standard_input.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

void CheckOptions(const ReportOptions& given) {
    if (given.liveFile) throw CUsageError("--live: expected one account, whose figures they are");
    if (given.requestFile == kStandardStream) {
        throw CUsageError("--request: expected a file, which is read for each of several accounts");
    }
}

/// Whether the account may have a statement between the days that are asked for.
bool IsInRange(const KeptAccount& account, const SettledOptions& settled) {
    return (!settled.from || ParsePackedDay(account.lastDay) >= *settled.from) &&
           (!settled.to || ParsePackedDay(account.firstDay) <= *settled.to);
}

std::vector<KeptAccount> FindAccounts(const SettledOptions& settled) {
    WantedAccount wanted{.user = settled.options.user};
    if (settled.options.kind) wanted.isForeign = KindNumber(settled.options.kind) == kForeignKind;
    return FindKeptAccounts(*settled.options.root, wanted, settled.present.day);
}

std::vector<KeptAccount> AllInRange(const SettledOptions& settled) {
    std::vector<KeptAccount> accounts;
    for (KeptAccount& found : FindAccounts(settled)) {
        if (IsInRange(found, settled)) {
            accounts.push_back(std::move(found));
        } else {
            Warn(AccountOptions(found.key) + " has no statement of these days and is left out");
        }
    }
    if (accounts.empty()) {
        throw CUsageError("--root: expected statements below \"" + *settled.options.root + "/Users\", found none");
    }
    return accounts;
}

std::vector<KeptAccount> Named(std::span<const std::string> numbers, const SettledOptions& settled) {
    std::vector<KeptAccount> accounts = FindAccounts(settled);
    std::erase_if(accounts, [&](const KeptAccount& found) {
        return !IsInRange(found, settled) || std::ranges::find(numbers, found.key.account) == numbers.end();
    });
    for (const std::string& number : numbers) {
        const auto isIt = [&](const KeptAccount& found) { return found.key.account == number; };
        if (std::ranges::any_of(accounts, isIt)) continue;
        throw CUsageError("--account: expected one with statements of these days below \"" + *settled.options.root +
                          "/Users\", found \"" + number + "\"");
    }
    return accounts;
}

}  // namespace

void CheckOneKind(std::span<const AccountKey> accounts) {
    const auto isForeign = [](const AccountKey& account) { return account.isForeign; };
    if (std::ranges::all_of(accounts, isForeign) || std::ranges::none_of(accounts, isForeign)) return;
    throw CUsageError("--kind is missing: expected accounts of one kind, found domestic and foreign ones");
}

std::vector<ReportOptions> OptionsOfAccounts(const ReportOptions& given, std::span<const std::string> numbers) {
    CheckOptions(given);
    const SettledOptions settled = Settle(given);
    const std::vector<KeptAccount> accounts = numbers.empty() ? AllInRange(settled) : Named(numbers, settled);
    std::vector<AccountKey> keys;
    std::ranges::transform(accounts, std::back_inserter(keys), &KeptAccount::key);
    CheckOneKind(keys);
    std::vector<ReportOptions> options;
    std::ranges::transform(accounts, std::back_inserter(options), [&](const KeptAccount& account) {
        ReportOptions own = given;
        own.user = account.key.user;
        own.account = account.key.account;
        own.kind = std::string(KindName(account.key.isForeign));
        return own;
    });
    return options;
}

}  // namespace tradebill
