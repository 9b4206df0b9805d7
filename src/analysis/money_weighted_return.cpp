#include "analysis/money_weighted_return.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "analysis/compensated_sum.h"
#include "analysis/day_figures.h"

namespace tradebill {
namespace {

constexpr double kYear = 365;  // days
constexpr double kLargestFactor = 1e6;
constexpr std::int64_t kLeastDays = 30;

/// Worth of all payments at a rate whose factor has this logarithm: on the first day, or on the last for factors below
/// 1, so that no payment outgrows its amount. Its sign is the same on any day.
double WorthAt(std::span<const Payment> payments, double logFactor) {
    const std::int64_t reference = logFactor >= 0 ? payments.front().day : payments.back().day;
    CCompensatedSum worth;
    for (const Payment& payment : payments) {
        const double years = static_cast<double>(reference - payment.day) / kYear;
        worth.Add(payment.amount * std::exp(logFactor * years));
    }
    return worth.Total();
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

}  // namespace

std::optional<double> InternalRateOf(std::span<const Payment> payments) {
    if (payments.empty()) return std::nullopt;
    double high = std::log(kLargestFactor);
    double low = -high;
    const double atLow = WorthAt(payments, low);
    const double atHigh = WorthAt(payments, high);
    if (!(atLow < 0 && atHigh > 0) && !(atLow > 0 && atHigh < 0)) return std::nullopt;
    for (;;) {
        const double middle = low + (high - low) / 2;
        if (middle <= low || middle >= high) return std::expm1(middle);
        const double worth = WorthAt(payments, middle);
        if (worth == 0) return std::expm1(middle);
        ((worth > 0) == (atLow > 0) ? low : high) = middle;
    }
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
