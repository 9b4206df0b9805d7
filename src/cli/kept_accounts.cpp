#include "cli/kept_accounts.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/day.h"
#include "cli/account_files.h"
#include "intake/name_facts.h"
#include "report/account_key.h"
#include "report/statement_name.h"

namespace tradebill {
namespace {

bool IsWanted(const AccountKey& key, const WantedAccount& wanted) {
    return (!wanted.account || *wanted.account == key.account) &&
           (!wanted.isForeign || *wanted.isForeign == key.isForeign);
}

/// Whether a run finds the file as the statement of its day.
bool IsFound(const StatementPlace& place, const CalendarDay& present) {
    if (!IsCalendarDay(place.day)) return false;
    return place.ending == kFinishedEnding || ParsePackedDay(place.day) == present;
}

}  // namespace

std::vector<KeptAccount> FindKeptAccounts(const std::string& root, const WantedAccount& wanted,
                                          const CalendarDay& present) {
    std::vector<KeptAccount> accounts;
    for (const auto& [key, places] : FindAccountFiles(root, wanted.user)) {
        if (!IsWanted(key, wanted)) continue;
        const auto isFound = [&present](const StatementPlace& place) { return IsFound(place, present); };
        const auto first = std::ranges::find_if(places, isFound);
        if (first == places.end()) continue;
        const auto last = std::find_if(places.rbegin(), places.rend(), isFound);
        accounts.push_back({.key = key, .firstDay = first->day, .lastDay = last->day});
    }
    return accounts;
}

std::string AccountOptions(const AccountKey& key) {
    return "--user " + key.user + " --account " + key.account +
           (key.isForeign ? " --kind " + std::string(KindName(true)) : "");
}

}  // namespace tradebill
