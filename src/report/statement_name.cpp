#include "report/statement_name.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

constexpr std::string_view kForeignStart = "DWP";
constexpr std::string_view kStart = "D";

}  // namespace

std::optional<StatementNameParts> PartsOfStatementName(std::string_view name) {
    constexpr std::size_t kDayLength = 8;
    const bool isForeign = name.starts_with(kForeignStart);
    if (!isForeign && !name.starts_with(kStart)) return std::nullopt;
    name.remove_prefix(isForeign ? kForeignStart.size() : kStart.size());
    for (const std::string_view ending : {kFinishedEnding, kPresentEnding}) {
        if (!name.ends_with(ending)) continue;
        const std::string_view stem = name.substr(0, name.size() - ending.size());
        if (stem.size() < kDayLength + 2) continue;
        const std::string_view day = stem.substr(stem.size() - kDayLength);
        const std::string_view account = stem.substr(0, stem.size() - kDayLength);
        if (!std::ranges::all_of(day, IsDigit) || !account.ends_with('.')) continue;
        return StatementNameParts{std::string(account.substr(0, account.size() - 1)), isForeign, std::string(day),
                                  std::string(ending)};
    }
    return std::nullopt;
}

std::string StatementName(const AccountKey& account, std::string_view day, std::string_view ending) {
    std::string name(account.isForeign ? kForeignStart : kStart);
    return name.append(account.account).append(".").append(day).append(ending);
}

}  // namespace tradebill
