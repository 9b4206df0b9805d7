#include "readers/money_row.h"

#include <algorithm>
#include <memory>
#include <span>
#include <string_view>

#include "base/number.h"
#include "readers/columns.h"
#include "readers/section_scan.h"
#include "report/money_record.h"

namespace tradebill {

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
