// A call of GenerateBill that survives its errors.
#pragma once

#include <tradebill/report_request.h>

#include <cstdint>

using GenerateBillFunction = void (*)(const GenerateBillRequest* request);

/// Calls `generate` and returns 0, or the code of the structured exception that it ended with: 0x80004005 for a date
/// out of bounds, 0x80070057 for a day that has no time value or a null request. Any other exception passes through.
[[nodiscard]] std::uint32_t CodeRaisedBy(GenerateBillFunction generate, const GenerateBillRequest* request);
