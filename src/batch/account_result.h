// What a batch tells of an account that is done: a line of JSON, with which another run goes on where this one stopped.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "report/account_key.h"

namespace tradebill {

enum class AccountStatus {
    Ok,
    Findings,  ///< all is there, and something is wrong in what was read
    Failed,    ///< not all is there; `reason` says why
    Crashed,   ///< the worker ended, or took more memory than it may
    TimedOut,  ///< it took longer than it may
};

/// "ok", "findings", "failed", "crashed", "timeout".
[[nodiscard]] std::string_view StatusName(AccountStatus status);

/// Figures are those of the analysis, in base currency; texts are UTF-8.
struct AccountResult {
    AccountKey account;
    AccountStatus status = AccountStatus::Ok;
    std::string reason = {};    ///< in words; empty unless it failed, crashed or timed out
    std::string firstDay = {};  ///< yyyymmdd, of the report; empty if it has none
    std::string lastDay = {};
    std::int64_t statements = 0;  ///< read
    std::int64_t trades = 0;
    std::int64_t closed = 0;
    std::int64_t positions = 0;
    std::int64_t errors = 0;  ///< findings
    std::int64_t warnings = 0;
    std::int64_t notes = 0;
    std::vector<std::string> worst = {};   ///< findings in words, the worst first, five at most
    std::optional<double> equity = {};     ///< of the last day
    std::optional<double> pl = {};         ///< of all days that have one
    std::optional<double> drawdown = {};   ///< the deepest, a fraction
    std::optional<double> marginUse = {};  ///< the highest, a fraction
    double seconds = 0;
    std::int64_t peakMemory = 0;                      ///< bytes
    std::string options = {};                         ///< SHA-256 of all that was asked
    std::string inputs = {};                          ///< SHA-256 of all that was read
    std::map<std::string, std::string> outputs = {};  ///< SHA-256 of each file that was written, by its path
    std::string version = {};                         ///< of the program

    bool operator==(const AccountResult&) const = default;
};

/// One line, with its end.
[[nodiscard]] std::string ResultLine(const AccountResult& result);

/// What a line says, without its end. Nothing of one that was cut, or is no result.
[[nodiscard]] std::optional<AccountResult> ParseResultLine(std::string_view line);

}  // namespace tradebill
