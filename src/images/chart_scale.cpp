#include "images/chart_scale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tradebill {
namespace {

constexpr double kTicks = 10.0;
constexpr double kSmallStep = 10'000.0;
constexpr double kLargeStep = 100'000.0;
constexpr double kYieldStep = 0.05;
constexpr double kLeastYield = 0.05000000074505806;  // 0.05 in single precision
constexpr double kNoDecimalsOver = 100'000.0;

/// Cut towards zero. What lies beyond the integers becomes the nearest of them, what is no number 0.
std::int32_t Truncated(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value)) return 0;
    return static_cast<std::int32_t>(std::clamp<double>(value, Limits::min(), Limits::max()));
}

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
    return Truncated(equity / StepOf(equity)) * StepOf(equity);
}

double CeilToStep(double equity) {
    if (equity < kSmallStep) return kSmallStep;
    return (Truncated(equity / StepOf(equity)) + 1.0) * StepOf(equity);
}

/// A range of whole numbers that the quotient misses by its rounding has one more; a range under 1 never.
std::int32_t TickIntervals(double range, double tick) {
    const double quotient = range / tick;
    if (!std::isfinite(quotient)) return static_cast<std::int32_t>(kTicks);
    const std::int32_t intervals = Truncated(quotient);
    return Truncated(intervals * tick) < Truncated(range) ? intervals + 1 : intervals;
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
    if (!(std::fabs(high) < kYieldStep && std::fabs(low) < kYieldStep)) {
        up = (1.0 - Truncated(high / -kYieldStep)) * kYieldStep;
        down = (-1.0 - Truncated(low / -kYieldStep)) * kYieldStep;
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
