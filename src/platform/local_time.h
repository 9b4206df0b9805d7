// The clock, and time values as local calendar days.
#pragma once

#include <ctime>

#include "base/day.h"

namespace tradebill {

[[nodiscard]] std::time_t PresentTime();

/// The local calendar day of `time`; all zeros if the calendar has none for it.
[[nodiscard]] CalendarDay LocalDayOf(std::time_t time);

}  // namespace tradebill
