#include "images/chart_values.h"

#include "base/number.h"
#include "report/money_store.h"
#include "report/trade_statistics.h"

namespace tradebill {
namespace {

constexpr double kLeastUsage = 1.1920928955078125e-07;  // single-precision epsilon

}  // namespace

std::optional<double> EquityOf(const ChartDay& day) {
    return AmountIn(day.money.KHQY) / day.money.EXCHANGE_RATE;
}

std::optional<double> RealisedOf(const ChartDay& day) {
    return AmountIn(day.money.PCYK) / day.money.EXCHANGE_RATE;
}

std::optional<double> CapitalUsageOf(const ChartDay& day) {
    return TradeStatistics.RiskOf(day.text);
}

std::optional<double> AccountYieldOf(const ChartDay& day) {
    return TradeStatistics.YieldOf(day.text);
}

std::optional<double> TradeYieldOf(const ChartDay& day) {
    const double usage = TradeStatistics.RiskOf(day.text);
    if (!(usage > kLeastUsage)) return std::nullopt;
    return TradeStatistics.YieldOf(day.text) / usage;
}

std::int32_t MoneyDays() {
    return MoneyStore.Count();
}

std::int32_t UsageDays() {
    return static_cast<std::int32_t>(TradeStatistics.DayUsages.Days.size());
}

}  // namespace tradebill
