// The day of a statement that is handed over for itself.
#pragma once

#include <optional>
#include <string>

namespace tradebill {

struct StatementDay {
    std::string day;     ///< yyyymmdd
    std::string source;  ///< "--day", "the file's name" or "today"
};

/// The day of `option`, of the name of `file`, or today. Throws CUsageError for an option that is no day.
[[nodiscard]] StatementDay DayOfStatement(const std::optional<std::string>& option, const std::string& file);

}  // namespace tradebill
