#include "images/chart_scale.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/number.h"

namespace tradebill {
namespace {

constexpr double kTicks = 10.0;
constexpr double kSmallStep = 10'000.0;
constexpr double kLargeStep = 100'000.0;
constexpr double kYieldStep = 0.05;
constexpr double kLeastYield = 0.05000000074505806;  // 0.05 in single precision
constexpr double kNoDecimalsOver = 100'000.0;

double StepOf(double equity) {
    return equity < kLargeStep ? kSmallStep : kLargeStep;
}

ChartScale ScaleBetween(double low, double high) {
    const double range = high - low;
    const double tick = range / kTicks;
    return {.minTick = low, .maxTick = high, .tickSpace = tick, .numTicks = TickIntervals(range, tick), .decimals = {}};
}

}  // namespace

double FloorToStep(double equity) {
    if (equity < kSmallStep) return 0.0;
    return TruncateToInt32(equity / StepOf(equity)) * StepOf(equity);
}

double CeilToStep(double equity) {
    if (equity < kSmallStep) return kSmallStep;
    return (TruncateToInt32(equity / StepOf(equity)) + 1.0) * StepOf(equity);
}

/// A range of whole numbers that the quotient misses by its rounding has one more; a range under 1 never.
std::int32_t TickIntervals(double range, double tick) {
    const double quotient = range / tick;
    if (!std::isfinite(quotient)) return static_cast<std::int32_t>(kTicks);
    const std::int32_t intervals = TruncateToInt32(quotient);
    return TruncateToInt32(intervals * tick) < TruncateToInt32(range) ? intervals + 1 : intervals;
}

ChartScale EquityScale(double opening, double lowest, double highest) {
    const double high = highest > opening ? highest : opening;
    const double low = opening > lowest ? lowest : opening;
    const double pad = (high - low) / kTicks;
    ChartScale scale = ScaleBetween(FloorToStep(low - pad), CeilToStep(high + pad));
    scale.decimals = scale.maxTick > kNoDecimalsOver ? 0 : 3;
    return scale;
}

ChartScale YieldScale(double lowest, double highest) {
    const double pad = (highest - lowest) / kTicks;
    const double high = highest + pad;
    const double low = lowest - pad;
    double up = kLeastYield;
    double down = -kLeastYield;
    if (!(std::fabs(high) < kYieldStep && std::fabs(low) < kYieldStep)) {  // so that no number is no small one
        up = (1.0 - TruncateToInt32(high / -kYieldStep)) * kYieldStep;
        down = (-1.0 - TruncateToInt32(low / -kYieldStep)) * kYieldStep;
    }
    const double end = std::max(std::fabs(up), std::fabs(down));
    return ScaleBetween(-end, end);
}

ChartScale RealisedScale(double worst, double best) {
    const double low = worst > 0.0 ? worst * 0.8 : worst < 0.0 ? worst * 1.2 : -0.001;
    const double high = best > 0.0 ? best * 1.2 : best < 0.0 ? best * 0.8 : 0.001;
    return ScaleBetween(low, high);
}

}  // namespace tradebill
