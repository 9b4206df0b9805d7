#include "analysis/money_weighted_return.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <vector>

#include "analysis/day_figures.h"
#include "analysis/exact_power.h"

namespace tradebill {
namespace {

constexpr std::int64_t kYear = 365;   // days
constexpr double kLeastStep = 1e-21;  // of a day's rate
constexpr double kLargestFactor = 1e6;
constexpr std::int64_t kLeastDays = 30;

/// Worth of all payments where each day bears `daily`: on the first day, or on the last if it is below 0, so that no
/// payment outgrows its amount. Its sign is the same on any day.
double WorthAt(std::span<const Payment> payments, double daily) {
    const Precise factor = PreciseSum({1, 0}, daily);
    const bool toFirst = daily >= 0;
    const Precise perDay = toFirst ? PreciseInverse(factor) : factor;
    Precise worth;
    const std::size_t count = payments.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = toFirst ? count - 1 - i : i;
        const std::size_t before = toFirst ? at + 1 : at - 1;
        const std::int64_t days = i == 0 ? 0 : std::abs(payments[at].day - payments[before].day);
        worth = PreciseSum(PreciseProduct(worth, PrecisePower(perDay, days)), payments[at].amount);
    }
    return worth.high;
}

/// What goes in before the first day's end. Nothing if it isn't known.
std::optional<Payment> OpeningPayment(const DayFigures& figures) {
    const std::int64_t first = figures.days.front().number;
    if (figures.opening) return Payment{first - 1, -*figures.opening};
    if (!figures.leavesOutFloating || !figures.results.front().equity) return std::nullopt;
    return Payment{first, -*figures.results.front().equity};
}

/// Nothing if one isn't known.
std::optional<std::vector<Payment>> PaymentsOf(const DayFigures& figures) {
    const auto opening = OpeningPayment(figures);
    const auto closing = figures.results.back().equity;
    if (!opening || !closing) return std::nullopt;
    std::vector<Payment> payments = {*opening};
    // The first day's equity has the day's cash flow in it already.
    for (std::size_t i = figures.opening ? 0 : 1; i < figures.days.size(); ++i) {
        if (!figures.results[i].cashFlow) return std::nullopt;
        payments.push_back({figures.days[i].number, -*figures.results[i].cashFlow});
    }
    payments.push_back({figures.days.back().number, *closing});
    return payments;
}

double YearlyRate(double daily) {
    const Precise factor = PrecisePower(PreciseSum({1, 0}, daily), kYear);
    return (factor.high - 1) + factor.low;
}

}  // namespace

std::optional<double> InternalRateOf(std::span<const Payment> payments) {
    if (payments.empty()) return std::nullopt;
    double low = RootLessOne(1 / kLargestFactor, kYear);
    double high = RootLessOne(kLargestFactor, kYear);
    const double atLow = WorthAt(payments, low);
    const double atHigh = WorthAt(payments, high);
    if (!(atLow < 0 && atHigh > 0) && !(atLow > 0 && atHigh < 0)) return std::nullopt;
    while (high - low > kLeastStep) {
        const double middle = low + (high - low) / 2;
        if (middle <= low || middle >= high) break;
        const double worth = WorthAt(payments, middle);
        if (worth == 0) return YearlyRate(middle);
        ((worth > 0) == (atLow > 0) ? low : high) = middle;
    }
    return YearlyRate(low);
}

MoneyWeightedReturn MoneyWeightedReturnOf(const DayFigures& figures) {
    if (figures.days.empty()) return {std::nullopt, "the report has no days"};
    const auto payments = PaymentsOf(figures);
    if (!payments) return {std::nullopt, "an equity or a cash flow isn't known"};
    if (payments->back().day - payments->front().day < kLeastDays) return {std::nullopt, "less than 30 days"};
    const auto rate = InternalRateOf(*payments);
    if (!rate) return {std::nullopt, "the worth of all payments doesn't change its sign"};
    return {rate, {}};
}

}  // namespace tradebill
