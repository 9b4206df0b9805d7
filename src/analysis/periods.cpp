#include "analysis/periods.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/compensated_sum.h"
#include "analysis/day_figures.h"
#include "analysis/day_results.h"
#include "base/day_number.h"

namespace tradebill {
namespace {

constexpr double kFlatDay = 0.00005;  // of P/L: half of the last digit that statements state

/// Days on their way into one figure each.
class CDaySums {
public:
    void Add(const DayResult& day) {
        ++days_;
        fees_.Add(day.fees);
        if (day.pl) pl_.Add(*day.pl);
        hasPl_ |= day.pl.has_value();
        if (!day.dayReturn) return;
        ++returns_;
        return_.Add(*day.dayReturn);
        best_ = std::max(best_.value_or(*day.dayReturn), *day.dayReturn);
        worst_ = std::min(worst_.value_or(*day.dayReturn), *day.dayReturn);
    }

    /// Of what months and weekdays have in common.
    template <class Result>
    void Fill(Result& result) const {
        if (hasPl_) result.pl = pl_.Total();
        result.fees = fees_.Total();
        result.bestDay = best_;
        result.worstDay = worst_;
    }

    [[nodiscard]] std::int64_t Days() const { return days_; }
    [[nodiscard]] bool HasReturn() const { return returns_ > 0; }
    [[nodiscard]] std::optional<double> MeanReturn() const {
        if (returns_ == 0) return std::nullopt;
        return return_.Total() / static_cast<double>(returns_);
    }

private:
    std::int64_t days_ = 0;
    std::int64_t returns_ = 0;
    bool hasPl_ = false;
    CCompensatedSum fees_;
    CCompensatedSum pl_;
    CCompensatedSum return_;
    std::optional<double> best_;
    std::optional<double> worst_;
};

PeriodResult PeriodOf(std::span<const DayResult> days, std::size_t length, double indexBefore) {
    CDaySums sums;
    for (const DayResult& day : days) sums.Add(day);
    PeriodResult period;
    period.period = days.front().day.substr(0, length);
    sums.Fill(period);
    if (sums.HasReturn()) period.periodReturn = days.back().index / indexBefore - 1;
    return period;
}

}  // namespace

std::vector<PeriodResult> PeriodsOf(std::span<const DayResult> days, std::size_t length) {
    std::vector<PeriodResult> periods;
    double index = 1;
    while (!days.empty()) {
        const std::string_view name = std::string_view(days.front().day).substr(0, length);
        const auto end = std::ranges::find_if(days, [&](const DayResult& day) { return !day.day.starts_with(name); });
        const auto ofPeriod = days.first(static_cast<std::size_t>(end - days.begin()));
        periods.push_back(PeriodOf(ofPeriod, length, index));
        index = ofPeriod.back().index;
        days = days.subspan(ofPeriod.size());
    }
    return periods;
}

std::vector<WeekdayResult> WeekdaysOf(const DayFigures& figures) {
    constexpr std::size_t kWeek = 7;
    std::array<CDaySums, kWeek> sums;
    for (std::size_t i = 0; i < figures.days.size(); ++i) {
        sums[static_cast<std::size_t>(WeekdayOf(figures.days[i].number) - 1)].Add(figures.results[i]);
    }
    std::vector<WeekdayResult> weekdays;
    for (std::size_t i = 0; i < kWeek; ++i) {
        if (sums[i].Days() == 0) continue;
        WeekdayResult& weekday = weekdays.emplace_back();
        weekday.weekday = static_cast<std::int64_t>(i) + 1;
        weekday.days = sums[i].Days();
        weekday.meanReturn = sums[i].MeanReturn();
        sums[i].Fill(weekday);
    }
    return weekdays;
}

Streaks StreaksOf(std::span<const DayResult> days) {
    Streaks longest;
    std::int64_t wins = 0;
    std::int64_t losses = 0;
    for (const DayResult& day : days) {
        const double pl = day.pl.value_or(0);
        wins = pl > kFlatDay ? wins + 1 : 0;
        losses = pl < -kFlatDay ? losses + 1 : 0;
        longest.longestWin = std::max(longest.longestWin, wins);
        longest.longestLoss = std::max(longest.longestLoss, losses);
    }
    return longest;
}

}  // namespace tradebill
