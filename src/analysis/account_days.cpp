#include "analysis/account_days.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "analysis/stated_amount.h"
#include "base/day_number.h"
#include "base/text.h"
#include "report/money_record.h"
#include "report/report.h"

namespace tradebill {
namespace {

std::optional<std::int64_t> DayOf(const MoneyRecord& record, const CReport& report) {
    const std::string_view text = Trim(FieldText(record.BILL_DATE));
    if (!text.empty()) return DayNumberOf(text);
    return StatedAmount(record.KHQY) ? DayNumberOf(report.MoneyStore.EndDateText) : std::nullopt;
}

}  // namespace

std::vector<AccountDay> AccountDaysOf(const CReport& report) {
    std::vector<AccountDay> days;
    for (const auto& record : report.MoneyStore.Records) {
        if (const auto number = DayOf(*record, report)) days.push_back({*number, record.get()});
    }
    std::ranges::stable_sort(days, {}, &AccountDay::number);
    std::size_t kept = 0;
    for (const AccountDay& day : days) {
        if (kept > 0 && days[kept - 1].number == day.number) --kept;
        days[kept++] = day;
    }
    days.resize(kept);
    return days;
}

bool IsLive(const MoneyRecord& record) {
    return !FieldText(record.HOST_POSITION_MARGIN).empty();
}

std::optional<std::int64_t> RowDayOf(std::string_view billDate, std::string_view date) {
    const auto day = DayNumberOf(billDate);
    return day ? day : DayNumberOf(date);
}

}  // namespace tradebill
