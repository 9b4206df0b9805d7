// The statements below a root folder, by user and account: found by their names, whatever their days.
#pragma once

#include <map>
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

/// All statements below `root`. Throws CUnreadableInput for a folder that can't be looked into.
[[nodiscard]] AccountFiles FindAccountFiles(const std::string& root);

/// The name of a statement file.
[[nodiscard]] std::string StatementName(const AccountKey& account, const std::string& day, const std::string& ending);

}  // namespace tradebill
