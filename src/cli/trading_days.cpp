#include "cli/trading_days.h"

#include <CLI/CLI.hpp>

#include <cstdint>

namespace tradebill {

void AddTradingDaysOption(CLI::App& app, std::int64_t& days) {
    constexpr int kDaysOfAYear = 366;
    app.add_option("--trading-days", days, "Trading days of a year, by which yearly figures are reckoned")
        ->type_name("N")
        ->check(CLI::Range(1, kDaysOfAYear))
        ->capture_default_str();
}

}  // namespace tradebill
