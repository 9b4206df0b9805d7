// The clock, and time values as local calendar days.
#pragma once

#include <ctime>
#include <optional>

#include "base/day.h"

namespace tradebill {

/// Has the C library look for the system's time zone once, and not again with each day that it tells. For programs, at
/// their start: the environment belongs to them.
void KeepTimeZone();

[[nodiscard]] std::time_t PresentTime();

/// `time` in the local time zone; nothing if the system's calendar doesn't reach so far.
[[nodiscard]] std::optional<std::tm> LocalPartsOf(std::time_t time);

/// The local calendar day of `time`; all zeros if the calendar has none for it.
[[nodiscard]] CalendarDay LocalDayOf(std::time_t time);

}  // namespace tradebill
