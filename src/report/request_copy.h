// The request of the present run, and the days that it covers: what every stage reads and only the driver writes.
#pragma once

#include <cstdint>
#include <ctime>
#include <string_view>

#include "base/scale.h"
#include "driver/report_request.h"

namespace tradebill {

/// First and last day of the report as time values, local midnight; the time of the call if no dates were given.
struct ReportRange {
    std::time_t first = 0;
    std::time_t last = 0;
};

extern GenerateBillRequest Request;  ///< the copy; every text in it is terminated
extern ReportRange ReportDays;

inline constexpr std::int32_t kForeignKind = 2;

/// A zeroed request whose money records are cleared ones.
[[nodiscard]] GenerateBillRequest ClearedRequest();

/// Takes over all of `request`. An unterminated text is cut at its last byte, CurrencyCount held to 0..100.
void CopyRequest(const GenerateBillRequest& request);

[[nodiscard]] inline bool IsForeign() {
    return Request.StatementKind == kForeignKind;
}

/// A measure of 96 dots per inch in pixels at the request's resolution.
[[nodiscard]] inline int ScaleByRequest(int value) {
    return ScaleByDpi(value, Request.Dpi);
}

/// Whether the layouts of `format` print product and delivery month in two columns (0, 1 and 3), so that both together
/// name a contract. In the others the contract column says it all.
[[nodiscard]] constexpr bool NamesDeliveryApart(std::int32_t format) {
    return format == 0 || format == 1 || format == 3;
}

/// The host's unit of a contract, texts cut to 63 bytes; 1 without a callback.
[[nodiscard]] std::int32_t AskContractUnit(std::string_view contract, std::string_view delivery);

}  // namespace tradebill
