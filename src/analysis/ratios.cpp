#include "analysis/ratios.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>

#include "analysis/compensated_sum.h"
#include "analysis/day_results.h"
#include "analysis/exact_power.h"

namespace tradebill {
namespace {

std::optional<double> AnnualReturnOf(const RatioSources& sources) {
    if (sources.returns.empty()) return std::nullopt;
    if (sources.lastIndex <= 0) return -1;
    const double daily = RootLessOne(sources.lastIndex, static_cast<std::int64_t>(sources.returns.size()));
    const Precise yearly = PrecisePower(PreciseSum({1, 0}, daily), sources.tradingDays);
    const double annual = (yearly.high - 1) + yearly.low;
    return std::isfinite(annual) ? std::optional(annual) : std::nullopt;
}

/// Root of the mean of the squares of what is lost; 0 if nothing is.
double DownsideOf(std::span<const double> returns) {
    CCompensatedSum squares;
    for (const double value : returns) {
        const double loss = std::min(value, 0.0);
        squares.Add(loss * loss);
    }
    return returns.empty() ? 0 : std::sqrt(squares.Total() / static_cast<double>(returns.size()));
}

}  // namespace

Ratios RatiosOf(const RatioSources& sources) {
    const double perYear = std::sqrt(static_cast<double>(sources.tradingDays));
    const auto& [mean, deviation, skewness, kurtosis, quantile] = sources.distribution;
    Ratios ratios;
    ratios.annualReturn = AnnualReturnOf(sources);
    ratios.timeUnderWater = sources.drawdowns.timeUnderWater;
    if (deviation) ratios.volatility = *deviation * perYear;
    if (deviation && *deviation > 0) ratios.sharpe = *mean / *deviation * perYear;
    const double downside = DownsideOf(sources.returns);
    if (downside > 0) ratios.sortino = *mean / downside * perYear;
    const auto& drawdowns = sources.drawdowns.drawdowns;
    if (ratios.annualReturn && !drawdowns.empty()) ratios.calmar = *ratios.annualReturn / drawdowns.front().depth;
    return ratios;
}

}  // namespace tradebill
