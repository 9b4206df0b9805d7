// The names of statement files: "D<account>.<yyyymmdd>o.txt", and "DWP..." of the foreign family.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "report/account_key.h"

namespace tradebill {

/// Behind the day: of a finished one, and of one that is still going on.
inline constexpr std::string_view kFinishedEnding = "o.txt";
inline constexpr std::string_view kPresentEnding = ".txt";

struct StatementNameParts {
    std::string account;
    bool isForeign;
    std::string day;     ///< eight digits
    std::string ending;  ///< behind the day
};

/// The parts of a file's name; nothing if it is no statement's.
[[nodiscard]] std::optional<StatementNameParts> PartsOfStatementName(std::string_view name);

/// The name of a statement file.
[[nodiscard]] std::string StatementName(const AccountKey& account, std::string_view day, std::string_view ending);

}  // namespace tradebill
