// Money sections that are one row of columns without labels.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "readers/columns.h"
#include "readers/scan_listener.h"
#include "report/money_record.h"

namespace tradebill {

inline constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

/// Net deposits, which the row states as two columns. They count only if the row has both.
struct CashFlowColumns {
    std::size_t deposits = kNoColumn;
    std::size_t withdrawals = kNoColumn;
    FieldSlot<MoneyRecord> field = Slot<&MoneyRecord::CRJ>;
};

/// Tells the listener, which may be null, of all columns of the row.
void TellMoneyColumns(std::span<const Column<MoneyRecord>> columns, const CashFlowColumns& cashFlow,
                      CScanListener* listener);

/// A record of `row`.
[[nodiscard]] std::unique_ptr<MoneyRecord> MakeMoneyRecord(std::string_view day, Row row,
                                                           std::span<const Column<MoneyRecord>> columns,
                                                           const CashFlowColumns& cashFlow);

}  // namespace tradebill
