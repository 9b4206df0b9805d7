#include "readers/money_row.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "base/number.h"
#include "readers/columns.h"
#include "readers/scan_listener.h"
#include "readers/seen_columns.h"
#include "report/money_record.h"

namespace tradebill {

void TellMoneyColumns(std::span<const Column<MoneyRecord>> columns, const CashFlowColumns& cashFlow,
                      CScanListener* listener) {
    if (listener == nullptr) return;
    const std::string_view field = FieldAt(cashFlow.field).name;
    std::vector<ColumnSeen> others;
    for (const std::size_t column : {cashFlow.deposits, cashFlow.withdrawals}) {
        if (column != kNoColumn) others.push_back({.column = column, .field = field, .isAmount = true});
    }
    TellColumns(columns, listener, others);
}

std::unique_ptr<MoneyRecord> MakeMoneyRecord(std::string_view day, Row row,
                                             std::span<const Column<MoneyRecord>> columns,
                                             const CashFlowColumns& cashFlow) {
    auto record = MakeRecord(day, row, columns);
    if (std::max(cashFlow.deposits, cashFlow.withdrawals) < row.size()) {
        const double amount = ParseAmount(row[cashFlow.deposits]) - ParseAmount(row[cashFlow.withdrawals]);
        cashFlow.field.Set(*record, CNumberText(amount).View());
    }
    return record;
}

}  // namespace tradebill
