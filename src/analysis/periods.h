// Months, years and weekdays of an account, and its runs of wins and losses.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "analysis/day_figures.h"
#include "analysis/day_results.h"

namespace tradebill {

// Lengths of what days have in common with others of their period: yyyymm and yyyy.
inline constexpr std::size_t kMonthLength = 6;
inline constexpr std::size_t kYearLength = 4;

/// The periods that days fall into, oldest first.
[[nodiscard]] std::vector<PeriodResult> PeriodsOf(std::span<const DayResult> days, std::size_t length);

/// From Monday on, those that occur.
[[nodiscard]] std::vector<WeekdayResult> WeekdaysOf(const DayFigures& figures);

[[nodiscard]] Streaks StreaksOf(std::span<const DayResult> days);

}  // namespace tradebill
