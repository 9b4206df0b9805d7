// What a chart shows of one day.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "report/money_record.h"

namespace tradebill {

class CReport;

/// A day of the report that has a record.
struct ChartDay {
    const CReport& report;
    std::string_view text;  ///< yyyymmdd
    const MoneyRecord& money;
};

// Each is nothing for a day that has no such value.
[[nodiscard]] std::optional<double> EquityOf(const ChartDay& day);        ///< base currency
[[nodiscard]] std::optional<double> RealisedOf(const ChartDay& day);      ///< base currency
[[nodiscard]] std::optional<double> CapitalUsageOf(const ChartDay& day);  ///< share of the equity
[[nodiscard]] std::optional<double> AccountYieldOf(const ChartDay& day);  ///< share of the opening equity
[[nodiscard]] std::optional<double> TradeYieldOf(const ChartDay& day);    ///< yield by usage; nothing without usage

// What a chart counts as its days.
[[nodiscard]] std::int32_t MoneyDays(const CReport& report);
[[nodiscard]] std::int32_t UsageDays(const CReport& report);

}  // namespace tradebill
