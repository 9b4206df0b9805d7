// Days as people write them in options: 2024-01-02, 2024-1-2, 20240102.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/day.h"

namespace tradebill {

/// A day of eight digits, 20240102, as year-month-day; any other text as it is.
[[nodiscard]] std::string DashedText(std::string_view written);

/// The day; nothing for what is none, or lies outside 1970 to 3000. A day beyond the end of its month rolls over into
/// the next.
[[nodiscard]] std::optional<CalendarDay> WrittenDay(std::string_view written);

}  // namespace tradebill
