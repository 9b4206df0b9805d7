#include "images/chart_values.h"

#include <cstdint>
#include <optional>

#include "base/number.h"
#include "report/report.h"

namespace tradebill {
std::optional<double> EquityOf(const ChartDay& day) {
    return AmountIn(day.money.KHQY) / day.money.EXCHANGE_RATE;
}

std::optional<double> RealisedOf(const ChartDay& day) {
    return AmountIn(day.money.PCYK) / day.money.EXCHANGE_RATE;
}

std::optional<double> CapitalUsageOf(const ChartDay& day) {
    return day.report.TradeStatistics.RiskOf(day.text);
}

std::optional<double> AccountYieldOf(const ChartDay& day) {
    return day.report.TradeStatistics.YieldOf(day.text);
}

std::optional<double> TradeYieldOf(const ChartDay& day) {
    const double usage = day.report.TradeStatistics.RiskOf(day.text);
    if (!(usage > kSmallestAmount)) return std::nullopt;
    return day.report.TradeStatistics.YieldOf(day.text) / usage;
}

std::int32_t MoneyDays(const CReport& report) {
    return report.MoneyStore.Count();
}

std::int32_t UsageDays(const CReport& report) {
    return static_cast<std::int32_t>(report.TradeStatistics.DayUsages.Days.size());
}

}  // namespace tradebill
