// Live account figures from an INI file, in place of a host's.
#pragma once

#include <string>

#include "driver/report_request.h"
#include "export/file_digest.h"

namespace tradebill {

/// Fills BaseMoney from [BASE] and CurrencyMoney from [CURRENCY1], [CURRENCY2] ... The keys are MoneyRecord's field
/// names. Throws CUsageError for an unknown name, a value too long for its field, or a gap in the numbers.
/// Returns what was read.
FileDigest UseLiveFile(const std::string& path, GenerateBillRequest& request);

}  // namespace tradebill
