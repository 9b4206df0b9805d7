#include "analysis/drawdowns.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "analysis/day_figures.h"
#include "analysis/day_results.h"

namespace tradebill {
namespace {

/// Days are counted from 1: 0 is the starting balance, an index of 1.
struct Place {
    std::size_t day = 0;
    double index = 1;
};

class CDrawdownWalk {
public:
    explicit CDrawdownWalk(const DayFigures& figures) : figures_(figures) {}

    /// REQUIRES: days come in their order, from 1.
    void Take(std::size_t day) {
        const double index = figures_.results[day - 1].index;
        if (index >= peak_.index * (1 - kSameIndex)) {
            if (valley_) Finish(day);
            peak_ = {day, std::max(peak_.index, index)};
            return;
        }
        ++daysBelow_;
        if (!valley_ || index < valley_->index * (1 - kSameIndex)) valley_ = Place{day, index};
    }

    [[nodiscard]] DrawdownFigures End() {
        if (valley_) Finish(std::nullopt);
        // What is equally deep differs by rounding only, which must not decide.
        const auto depth = [](const Drawdown& drawdown) { return -std::llround(drawdown.depth / kSameIndex); };
        std::ranges::stable_sort(drawdowns_, {}, depth);
        const std::size_t days = figures_.results.size();
        DrawdownFigures found{.drawdowns = std::move(drawdowns_), .timeUnderWater = {}};
        if (days > 0) found.timeUnderWater = static_cast<double>(daysBelow_) / static_cast<double>(days);
        return found;
    }

private:
    [[nodiscard]] std::optional<double> MoneyAt(std::size_t day) const {
        return day == 0 ? figures_.opening : figures_.results[day - 1].moneyIndex;
    }

    /// The drawdown from peak_ to valley_ that ends on the day `recovery`, or not at all.
    void Finish(std::optional<std::size_t> recovery) {
        const Place valley = *std::exchange(valley_, std::nullopt);
        Drawdown drawdown;
        drawdown.valley = figures_.results[valley.day - 1].day;
        drawdown.depth = 1 - valley.index / peak_.index;
        drawdown.daysDown = static_cast<std::int64_t>(valley.day - peak_.day);
        if (peak_.day > 0) drawdown.peak = figures_.results[peak_.day - 1].day;
        if (recovery) {
            drawdown.recovery = figures_.results[*recovery - 1].day;
            drawdown.daysUp = static_cast<std::int64_t>(*recovery - valley.day);
        }
        const auto atPeak = MoneyAt(peak_.day);
        const auto atValley = MoneyAt(valley.day);
        if (atPeak && atValley) drawdown.money = *atPeak - *atValley;
        const std::size_t from = std::max<std::size_t>(peak_.day, 1);
        const std::size_t to = recovery.value_or(figures_.results.size());
        drawdown.calendarDays = figures_.days[to - 1].number - figures_.days[from - 1].number;
        drawdowns_.push_back(std::move(drawdown));
    }

    const DayFigures& figures_;
    Place peak_;
    std::optional<Place> valley_;
    std::size_t daysBelow_ = 0;
    std::vector<Drawdown> drawdowns_;
};

}  // namespace

DrawdownFigures DrawdownsOf(const DayFigures& figures) {
    CDrawdownWalk walk(figures);
    for (std::size_t day = 1; day <= figures.results.size(); ++day) walk.Take(day);
    return walk.End();
}

}  // namespace tradebill
