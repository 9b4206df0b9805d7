#include "analysis/distribution.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "analysis/compensated_sum.h"
#include "analysis/day_results.h"

namespace tradebill {
namespace {

constexpr double kNoDeviation = 1e-12;  // of the largest return: what equal returns differ by rounding

/// Sum of the `power`-th powers of the distances from `mean`, these taken in units of `unit`.
double MomentOf(std::span<const double> values, double mean, double unit, int power) {
    CCompensatedSum sum;
    for (const double value : values) {
        const double distance = (value - mean) / unit;
        double raised = 1;
        for (int i = 0; i < power; ++i) raised *= distance;
        sum.Add(raised);
    }
    return sum.Total();
}

double LargestOf(std::span<const double> values) {
    double largest = 0;
    for (const double value : values) largest = std::max(largest, std::fabs(value));
    return largest;
}

// In units of the deviation the sum of squares is n - 1, so that the corrected moments are short.

double SkewnessOf(std::span<const double> returns, double mean, double deviation) {
    const auto n = static_cast<double>(returns.size());
    return n / ((n - 1) * (n - 2)) * MomentOf(returns, mean, deviation, 3);
}

double KurtosisOf(std::span<const double> returns, double mean, double deviation) {
    const auto n = static_cast<double>(returns.size());
    const double fourth = MomentOf(returns, mean, deviation, 4);
    return n * (n + 1) / ((n - 1) * (n - 2) * (n - 3)) * fourth - 3 * (n - 1) * (n - 1) / ((n - 2) * (n - 3));
}

}  // namespace

std::vector<double> ReturnsOf(std::span<const DayResult> days) {
    std::vector<double> returns;
    returns.reserve(days.size());
    for (const DayResult& day : days) {
        if (day.dayReturn) returns.push_back(*day.dayReturn);
    }
    return returns;
}

Distribution DistributionOf(std::span<const double> returns) {
    Distribution found;
    if (returns.empty()) return found;
    const auto n = static_cast<double>(returns.size());
    CCompensatedSum sum;
    for (const double value : returns) sum.Add(value);
    const double mean = sum.Total() / n;
    found.mean = mean;
    std::vector<double> ordered(returns.begin(), returns.end());
    std::ranges::sort(ordered);
    found.quantile5 = QuantileOf(ordered, 0.05);
    if (returns.size() < 2) return found;

    const double deviation = std::sqrt(MomentOf(returns, mean, 1, 2) / (n - 1));
    found.deviation = deviation > kNoDeviation * LargestOf(returns) ? deviation : 0;
    if (!(*found.deviation > 0)) return found;
    if (returns.size() > 2) found.skewness = SkewnessOf(returns, mean, deviation);
    if (returns.size() > 3) found.kurtosis = KurtosisOf(returns, mean, deviation);
    return found;
}

double QuantileOf(std::span<const double> values, double share) {
    const double at = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(at);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return values[below] + (values[above] - values[below]) * (at - std::floor(at));
}

}  // namespace tradebill
