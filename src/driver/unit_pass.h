// A look at the trades of a whole run before it begins: closed positions are folded with their unit as they are read,
// when the trades of later days aren't known yet.
#pragma once

#include <string>
#include <vector>

#include "driver/report_request.h"
#include "driver/report_run.h"
#include "platform/file.h"
#include "report/trade_units.h"

namespace tradebill {

/// What the trades say, and what of them couldn't be read.
struct TradeTally {
    CTradeUnits units;
    std::vector<UnreadFile> unread;  ///< statements and template that are there; their trades aren't in the tally
};

/// Tallies the trades of all statements that a run of `request` with `options` reads below `rootFolder`, by the same
/// readers, from files that are opened for reading alone. Nothing of it for the foreign family, whose reports ask for
/// no unit. Nobody is told: an error, which the run meets itself, ends it with what was tallied by then.
[[nodiscard]] TradeTally TallyTrades(const GenerateBillRequest& request, const std::string& rootFolder,
                                     const RunOptions& options = {});

}  // namespace tradebill
