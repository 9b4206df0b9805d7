// Days as numbers, for whoever counts them: no clock, no time zone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// The number of the day that `text` is: "yyyymmdd", or year, month and day between '-', '/' or '.', white space around
/// it aside. 19700101 is 0. Nothing if it is none of the calendar.
[[nodiscard]] std::optional<std::int64_t> DayNumberOf(std::string_view text);

/// "yyyymmdd".
///
/// REQUIRES: `number` is one of DayNumberOf.
[[nodiscard]] std::string NumberedDay(std::int64_t number);

/// 1 (Monday) to 7.
///
/// REQUIRES: `number` is one of DayNumberOf.
[[nodiscard]] std::int64_t WeekdayOf(std::int64_t number);

}  // namespace tradebill
