// The statements below a root folder, by user and account: found by their names, whatever their days.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "report/account_key.h"
#include "report/statement_name.h"

namespace tradebill {

struct StatementPlace {
    std::string day;  ///< yyyymmdd
    std::string path;
    std::string ending;  ///< of the name, behind the day
};

/// By day.
using AccountFiles = std::map<AccountKey, std::vector<StatementPlace>>;

/// The names in the folder "Users" below `root`, in order. Throws CUnreadableInput if it is there and can't be looked
/// into.
[[nodiscard]] std::vector<std::string> UsersBelow(const std::string& root);

/// Takes whose a statement is, and the parts of its name.
using OnStatement = std::function<void(const AccountKey& account, const StatementNameParts& name)>;

/// Walks the names of the statements below `root`, of all users or of one, in the order of users; a million of them
/// take no memory. Throws as UsersBelow.
void WalkStatements(const std::string& root, const std::optional<std::string>& onlyUser,
                    const OnStatement& onStatement);

/// The statements below `root`, of all users or of one. Throws CUnreadableInput for a folder that is there and can't be
/// looked into.
[[nodiscard]] AccountFiles FindAccountFiles(const std::string& root, const std::optional<std::string>& onlyUser = {});

}  // namespace tradebill
