#include "requests/kept_accounts.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/day.h"
#include "intake/name_facts.h"
#include "report/account_key.h"
#include "report/statement_name.h"
#include "requests/account_files.h"

namespace tradebill {
namespace {

/// Whether a run finds the file as the statement of its day.
bool IsFound(const StatementNameParts& name, const CalendarDay& present) {
    if (!IsCalendarDay(name.day)) return false;
    return name.ending == kFinishedEnding || ParsePackedDay(name.day) == present;
}

/// A name that breaks lines would make two messages of one. All else that a terminal obeys is shown by the streams.
std::string OnOneLine(const std::string& name) {
    std::string shown;
    for (const char byte : name) {
        if (byte == '\n') {
            shown += "\\x0a";
        } else if (byte == '\r') {
            shown += "\\x0d";
        } else {
            shown += byte;
        }
    }
    return shown;
}

}  // namespace

bool IsWanted(const AccountKey& key, const WantedAccount& wanted) {
    return (!wanted.user || *wanted.user == key.user) && (!wanted.account || *wanted.account == key.account) &&
           (!wanted.isForeign || *wanted.isForeign == key.isForeign);
}

std::vector<KeptAccount> FindKeptAccounts(const std::string& root, const WantedAccount& wanted,
                                          const CalendarDay& present) {
    std::map<AccountKey, KeptAccount> accounts;
    WalkStatements(root, wanted.user, [&](const AccountKey& key, const StatementNameParts& name) {
        if (!IsWanted(key, wanted) || !IsFound(name, present)) return;
        const auto [place, isNew] =
            accounts.try_emplace(key, KeptAccount{.key = key, .firstDay = name.day, .lastDay = name.day});
        KeptAccount& account = place->second;
        account.firstDay = std::min(account.firstDay, name.day);
        account.lastDay = std::max(account.lastDay, name.day);
    });
    std::vector<KeptAccount> list;
    list.reserve(accounts.size());
    for (auto& [key, account] : accounts) list.push_back(std::move(account));
    return list;
}

std::string AccountOptions(const AccountKey& key) {
    return "--user " + OnOneLine(key.user) + " --account " + OnOneLine(key.account) +
           (key.isForeign ? " --kind " + std::string(KindName(true)) : "");
}

}  // namespace tradebill
