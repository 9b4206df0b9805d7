// The statements below a root folder, by user and account: found by their names, whatever their days.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "report/account_key.h"

namespace tradebill {

struct StatementPlace {
    std::string day;  ///< yyyymmdd
    std::string path;
    std::string ending;  ///< of the name, behind the day
};

/// By day.
using AccountFiles = std::map<AccountKey, std::vector<StatementPlace>>;

/// The statements below `root`, of all users or of one. Throws CUnreadableInput for a folder that is there and can't be
/// looked into.
[[nodiscard]] AccountFiles FindAccountFiles(const std::string& root, const std::optional<std::string>& onlyUser = {});

}  // namespace tradebill
