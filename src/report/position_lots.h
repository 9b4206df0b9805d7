// The lots of a row of open positions, whichever of its fields states them.
#pragma once

#include <cstdint>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "report/records.h"

namespace tradebill {

[[nodiscard]] inline std::int32_t LotsOf(const OpiDetail& row) {
    return IntegerIn(row.POSITION_VOL);
}

/// Of the row's side. Layouts whose rows show both sides keep the lots of each by its name.
[[nodiscard]] inline std::int32_t LotsOf(const OpiSum& row) {
    if (!FieldText(row.POSITION_VOL).empty()) return IntegerIn(row.POSITION_VOL);
    return IntegerIn(FieldText(row.BID) == "买"_gbk ? row.BID_POSITION_VOL : row.ASK_POSITION_VOL);
}

}  // namespace tradebill
