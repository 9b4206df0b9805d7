// Texts where a record has amounts: readers take them as 0, or as what stands before the first strange byte.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "readers/scan_listener.h"
#include "report/money_record.h"

namespace tradebill {

struct StrangeAmount {
    std::string_view field;  ///< name of the record's field
    std::string text;        ///< GBK, as the field has it
};

/// The first amount of a record that is a text. Empty fields and dashes, which stand for nothing, are none.
[[nodiscard]] std::optional<StrangeAmount> FindStrangeAmount(const RecordSeen& record);
[[nodiscard]] std::optional<StrangeAmount> FindStrangeAmount(const MoneyRecord& record);

}  // namespace tradebill
