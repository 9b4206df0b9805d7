// Report-wide figures: how many closed positions won, the largest gains and losses, and the rates made of them.
#pragma once

#include <cstdint>

namespace tradebill {

/// The counters and P/L figures grow row by row while closed positions are folded; the rest is computed once all days
/// are read (statistics/account_figures.h). Rates are per cent.
class CAccountStatistics {
public:
    std::int32_t WinCount = 0;   ///< rows with P/L above 0
    std::int32_t LoseCount = 0;  ///< rows with P/L below 0
    std::int32_t FlatCount = 0;  ///< rows with P/L of 0
    double InitialEquity = 0;    ///< equity of the first day
    double MaxEquity = 0;
    double MinEquity = 0;
    double TotalPL = 0;      ///< P/L of all rows
    double MaxDrawdown = 0;  ///< largest fall of equity, in money
    double WinRate = 0;      ///< flat rows count as won
    double ProfitRate = 0;
    double MaxProfit = 0;  ///< largest single P/L, at least 0
    double MaxLoss = 0;    ///< lowest single P/L, at most 0
    double MaxYield = 0;
    double MaxRisk = 0;

    /// Adds one row's P/L to the total and the extremes.
    void AddPL(double amount) {
        TotalPL += amount;
        if (amount > MaxProfit) MaxProfit = amount;
        if (amount < MaxLoss) MaxLoss = amount;
    }

    void Clear() { *this = {}; }
};

}  // namespace tradebill
