#include "cli/account_files.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/input_file.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/statement_name.h"

namespace tradebill {
namespace {

/// In order. Nothing lies in a folder that isn't there.
std::vector<std::string> NamesBelow(const std::string& folder) {
    ForgetSystemError();
    if (auto names = NamesIn(folder)) {
        std::ranges::sort(*names);
        return *std::move(names);
    }
    const std::string reason = SystemErrorText(LastSystemError());
    if (!MayBeFolder(folder)) return {};
    throw CUnreadableInput(folder, reason);
}

void AddStatementsOf(const std::string& user, const std::string& bills, AccountFiles& files) {
    for (const std::string& name : NamesBelow(bills)) {
        const auto parts = PartsOfStatementName(name);
        if (!parts) continue;
        files[{user, parts->account, parts->isForeign}].push_back(
            {.day = parts->day, .path = std::string(bills).append("/").append(name), .ending = parts->ending});
    }
}

}  // namespace

AccountFiles FindAccountFiles(const std::string& root, const std::optional<std::string>& onlyUser) {
    AccountFiles files;
    const std::string users = root + "/Users/";
    for (const std::string& user : onlyUser ? std::vector{*onlyUser} : NamesBelow(root + "/Users")) {
        if (MayBeFolder(users + user)) AddStatementsOf(user, users + user + "/Data/Bill", files);
    }
    for (auto& [account, places] : files) {
        std::ranges::sort(places, [](const StatementPlace& left, const StatementPlace& right) {
            return std::pair(left.day, right.ending) < std::pair(right.day, left.ending);
        });
    }
    return files;
}

}  // namespace tradebill
