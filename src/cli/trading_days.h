// The option --trading-days of the commands that analyse an account.
#pragma once

#include <cstdint>

namespace CLI {
class App;
}

namespace tradebill {

/// Declares the option on `app`; `days` keeps the usual number if it isn't given.
void AddTradingDaysOption(CLI::App& app, std::int64_t& days);

}  // namespace tradebill
