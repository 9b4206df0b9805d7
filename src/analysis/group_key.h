// What rows are grouped by: their currency, which foreign accounts never add up across, and something else.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"
#include "report/report.h"

namespace tradebill {

/// Of a row of a foreign account, as printed; else empty.
template <class Row>
[[nodiscard]] std::string_view CurrencyOf(const Row& row, const CReport& report) {
    return report.IsForeign() ? Trim(FieldText(row.CURRENCY)) : std::string_view();
}

/// One text for both; fields hold no zero byte.
[[nodiscard]] inline std::string GroupKey(std::string_view currency, std::string_view key) {
    std::string both(currency);
    both += '\0';
    both += key;
    return both;
}

}  // namespace tradebill
