// Days of a report: the dates of the request, time values at local midnight and the day text that keys all daily
// look-ups.
#pragma once

#include <compare>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// A calendar day in local time.
struct CalendarDay {
    int year = 0;
    int month = 0;
    int day = 0;
    auto operator<=>(const CalendarDay&) const = default;
};

/// The step of the day loop: plain seconds, no calendar arithmetic.
inline constexpr std::time_t kSecondsPerDay = 86400;

/// Reads year, month and day as "%d-%d-%d" does; what doesn't match is left at 0.
[[nodiscard]] CalendarDay ParseDashedDay(std::string_view text);

/// Reads the "yyyymmdd" of a record as "%4d%2d%2d" does; what doesn't match is left at 0.
[[nodiscard]] CalendarDay ParsePackedDay(std::string_view text);

/// Local midnight of `day`; a day beyond the end of its month rolls over into the next. Throws CReportError: 0x80004005
/// for a year below 1900, a month outside 1 to 12 or a day outside 1 to 31; 0x80070057 for a time before 1970 or after
/// the year 3000.
[[nodiscard]] std::time_t MidnightOf(const CalendarDay& day);

/// The same; nothing where MidnightOf throws.
[[nodiscard]] std::optional<std::time_t> TryMidnightOf(const CalendarDay& day);

/// Whether MidnightOf has a time for `day`.
[[nodiscard]] bool HasMidnight(const CalendarDay& day);

/// "yyyymmdd".
[[nodiscard]] std::string DayText(const CalendarDay& day);

/// "yyyy-mm-dd".
[[nodiscard]] std::string DashedDayText(const CalendarDay& day);

}  // namespace tradebill
