#include "cli/account_files.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "cli/input_file.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

constexpr std::string_view kForeignStart = "DWP";
constexpr std::string_view kStart = "D";
// That of a finished day first: the other is of the same day while it lasts.
constexpr std::string_view kEndings[] = {"o.txt", ".txt"};

struct FileParts {
    std::string account;
    bool isForeign;
    std::string day;
    std::string ending;
};

std::optional<FileParts> PartsOf(std::string_view name) {
    constexpr std::size_t kDayLength = 8;
    const bool isForeign = name.starts_with(kForeignStart);
    if (!isForeign && !name.starts_with(kStart)) return std::nullopt;
    name.remove_prefix(isForeign ? kForeignStart.size() : kStart.size());
    for (const std::string_view ending : kEndings) {
        if (!name.ends_with(ending)) continue;
        const std::string_view stem = name.substr(0, name.size() - ending.size());
        if (stem.size() < kDayLength + 2) continue;
        const std::string_view day = stem.substr(stem.size() - kDayLength);
        const std::string_view account = stem.substr(0, stem.size() - kDayLength);
        if (!std::ranges::all_of(day, IsDigit) || !account.ends_with('.')) continue;
        return FileParts{std::string(account.substr(0, account.size() - 1)), isForeign, std::string(day),
                         std::string(ending)};
    }
    return std::nullopt;
}

std::vector<std::string> SortedNamesIn(const std::string& folder) {
    auto names = NamesIn(folder);
    if (!names) throw CUnreadableInput(folder, SystemErrorText(LastSystemError()));
    std::ranges::sort(*names);
    return *std::move(names);
}

}  // namespace

AccountFiles FindAccountFiles(const std::string& root) {
    AccountFiles files;
    const std::string users = root + "/Users";
    if (!IsFolder(users)) return files;
    for (const std::string& user : SortedNamesIn(users)) {
        const std::string bills = users + "/" + user + "/Data/Bill";
        if (!IsFolder(bills)) continue;
        for (const std::string& name : SortedNamesIn(bills)) {
            auto parts = PartsOf(name);
            if (!parts) continue;
            files[{user, parts->account, parts->isForeign}].push_back({parts->day, bills + "/" + name, parts->ending});
        }
    }
    for (auto& [account, places] : files) {
        std::ranges::sort(places, [](const StatementPlace& left, const StatementPlace& right) {
            return std::pair(left.day, right.ending) < std::pair(right.day, left.ending);
        });
    }
    return files;
}

std::string StatementName(const AccountKey& account, const std::string& day, const std::string& ending) {
    return std::string(account.isForeign ? kForeignStart : kStart) + account.account + "." + day + ending;
}

}  // namespace tradebill
