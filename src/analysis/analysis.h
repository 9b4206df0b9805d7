// The figures beyond the page: in comes a report with all its rows, out go returns, drawdowns, months, ratios, results
// by product, holding times, fees and margin. Nothing of the report changes.
//
// day_results.h, closed_results.h and margin_results.h tell what each figure is and when it is null; analysis_fields.h
// has their names as tables, for whoever writes them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/cash_kinds.h"
#include "analysis/closed_results.h"
#include "analysis/day_results.h"
#include "analysis/margin_results.h"

namespace tradebill {

class CReport;

/// Trading days of a usual year.
inline constexpr std::int64_t kUsualTradingDays = 242;

struct AnalysisOptions {
    std::int64_t tradingDays = kUsualTradingDays;  ///< of a year, above 0: what ratios are reckoned to
};

/// Why a figure is null.
struct NullReason {
    std::string path;  ///< as in JSON: "ratios.sharpe", "days[0].return"
    std::string_view reason;
};

struct Analysis {
    std::int64_t tradingDays = kUsualTradingDays;
    std::vector<DayResult> days;      ///< oldest first
    std::vector<Drawdown> drawdowns;  ///< deepest first, of equal ones the earlier
    std::vector<PeriodResult> months;
    std::vector<PeriodResult> years;
    std::vector<WeekdayResult> weekdays;  ///< those that occur
    Streaks streaks;
    Distribution distribution;
    Ratios ratios;

    // Lowest pl first, by currency where there are several; months in their order.
    std::vector<ClosedGroup> products;
    std::vector<ClosedGroup> contracts;
    std::vector<ClosedGroup> sides;
    std::vector<ClosedGroup> exchanges;
    std::vector<ClosedGroup> closedMonths;
    std::vector<Concentration> concentration;  ///< one, or one a currency; none without closed rows

    MarginResult margin;
    std::vector<OpenPosition> open;
    std::vector<CashKind> cashKinds;

    std::vector<NullReason> reasons;  ///< one for each null, in the order of the figures
};

/// All figures of `report`. Sums are compensated ones (Neumaier's).
///
/// REQUIRES: all days of the report are read, its passes have run, and its products' source lives.
[[nodiscard]] Analysis Analyse(const CReport& report, const AnalysisOptions& options = {});

}  // namespace tradebill
