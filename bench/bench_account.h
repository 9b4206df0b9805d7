// Accounts on disk to make reports of, as large as is wanted.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "driver/report_request.h"
#include "made_trading.h"

namespace tradebill {

/// An account that reports are measured with.
struct BenchSize {
    std::string_view name;
    int days;
    TradingShape shape;
    double mostRatio;  ///< a report may cost this many times the unavoidable work
    bool hasExports;   ///< whether --json and --standalone are measured too: a page of gigabytes isn't copied
};

inline constexpr BenchSize kBenchSizes[] = {
    {"tiny", 5, {.trades = 4, .positions = 2}, 0, true},  // to see that everything runs
    {"S", 250, {.trades = 20, .positions = 10}, 2.0, true},
    {"M", 2500, {.trades = 50, .positions = 20}, 1.7, true},
    {"L", 2500, {.trades = 400, .positions = 40}, 1.5, false},
};

struct BenchAccount {
    std::string root;
    std::vector<std::string> days;  ///< yyyymmdd, in order
    std::uintmax_t bytes = 0;       ///< of all statements

    [[nodiscard]] std::string BillFolder() const;
    [[nodiscard]] std::string StatementPath(const std::string& day) const;
    [[nodiscard]] std::string PageFolder() const { return BillFolder() + "/Image"; }
    [[nodiscard]] std::string PagePath() const { return PageFolder() + "/TradeBill.html"; }
};

inline constexpr std::string_view kBenchUser = "bench";
inline constexpr std::string_view kBenchAccount = "10086001";

/// The first `count` days from a Monday on that are no Saturday or Sunday.
[[nodiscard]] std::vector<std::string> BusinessDays(int count);

/// Writes the statements of `days` days, and the contracts' units, below the new folder `root`.
[[nodiscard]] BenchAccount MakeBenchAccount(const std::string& root, int days, TradingShape shape);

/// The request for a report of the account's first days, all without `count`.
[[nodiscard]] GenerateBillRequest RequestFor(const BenchAccount& account, std::size_t count = SIZE_MAX);

/// The program's command line for a report of all days.
[[nodiscard]] std::vector<std::string> ReportCommand(const std::string& program, const BenchAccount& account);

/// yyyymmdd as yyyy-mm-dd.
[[nodiscard]] std::string Dashed(const std::string& day);

}  // namespace tradebill
