#include "requests/account_files.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/account_key.h"
#include "report/statement_name.h"
#include "requests/input_file.h"

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

std::string BillsOf(const std::string& root, const std::string& user) {
    return std::string(root).append("/Users/").append(user).append("/Data/Bill");
}

}  // namespace

std::vector<std::string> UsersBelow(const std::string& root) {
    return NamesBelow(root + "/Users");
}

void WalkStatements(const std::string& root, const std::optional<std::string>& onlyUser,
                    const OnStatement& onStatement) {
    const std::string users = root + "/Users/";
    for (const std::string& user : onlyUser ? std::vector{*onlyUser} : UsersBelow(root)) {
        if (!MayBeFolder(users + user)) continue;
        for (const std::string& name : NamesBelow(BillsOf(root, user))) {
            const auto parts = PartsOfStatementName(name);
            if (parts) onStatement({user, parts->account, parts->isForeign}, *parts);
        }
    }
}

AccountFiles FindAccountFiles(const std::string& root, const std::optional<std::string>& onlyUser) {
    AccountFiles files;
    WalkStatements(root, onlyUser, [&](const AccountKey& account, const StatementNameParts& name) {
        files[account].push_back(
            {.day = name.day,
             .path = BillsOf(root, account.user) + "/" + StatementName(account, name.day, name.ending),
             .ending = name.ending});
    });
    for (auto& [account, places] : files) {
        std::ranges::sort(places, [](const StatementPlace& left, const StatementPlace& right) {
            return std::pair(left.day, right.ending) < std::pair(right.day, left.ending);
        });
    }
    return files;
}

}  // namespace tradebill
