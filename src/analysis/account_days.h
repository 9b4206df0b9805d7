// The days of an account: its money records in their order.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "report/money_record.h"

namespace tradebill {

class CReport;

struct AccountDay {
    std::int64_t number = 0;              ///< DayNumberOf
    const MoneyRecord* record = nullptr;  ///< of the report
};

/// Oldest first, each day once: of two records the later added. A record without BILL_DATE, as a host's live one, is of
/// the report's last day, if its KHQY is a number; else it is no day, as one whose BILL_DATE is none.
[[nodiscard]] std::vector<AccountDay> AccountDaysOf(const CReport& report);

/// Whether a record comes from a host: statements don't state what it has of live margin.
[[nodiscard]] bool IsLive(const MoneyRecord& record);

/// The day of a row that was read: that of its statement, or, if this names none, its own `date`.
[[nodiscard]] std::optional<std::int64_t> RowDayOf(std::string_view billDate, std::string_view date);

}  // namespace tradebill
