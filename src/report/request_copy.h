// The copy of a host's request that a run works with, and the days that it covers.
#pragma once

#include <cstdint>
#include <ctime>

#include "driver/report_request.h"

namespace tradebill {

/// First and last day of a report as time values, local midnight; the time of the call if either date is missing.
struct ReportRange {
    std::time_t first = 0;
    std::time_t last = 0;
};

inline constexpr std::int32_t kForeignKind = 2;

/// A zeroed request whose money records are cleared ones.
[[nodiscard]] GenerateBillRequest ClearedRequest();

/// All of `request`, every text in it terminated: an unterminated one is cut at its last byte. CurrencyCount is held to
/// 0..100.
[[nodiscard]] GenerateBillRequest CopyRequest(const GenerateBillRequest& request);

}  // namespace tradebill
