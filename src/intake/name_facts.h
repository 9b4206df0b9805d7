// What a file's name says of the statement in it, where the statement itself is silent.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// Whether `text` is a day of the calendar as yyyymmdd, from 1970 to 3000.
[[nodiscard]] bool IsCalendarDay(std::string_view text);

struct NameFacts {
    std::optional<std::string> account = {};
    std::optional<std::string> day = {};  ///< yyyymmdd; a day of the calendar
};

/// Knows the names that the module looks for, "<account>_<yyyy-mm-dd>...", and in all others a day, if there is only
/// one: eight digits or 2024-01-02, whatever stands around it. `name` is without its folder.
[[nodiscard]] NameFacts FactsOfName(std::string_view name);

}  // namespace tradebill
