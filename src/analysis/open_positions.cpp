#include "analysis/open_positions.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "analysis/account_days.h"
#include "analysis/day_figures.h"
#include "analysis/margin_results.h"
#include "analysis/position_rows.h"
#include "base/day_number.h"
#include "base/gbk.h"
#include "base/text.h"
#include "report/product_text.h"
#include "report/report.h"

namespace tradebill {
namespace {

void Later(std::optional<std::int64_t>& day, std::optional<std::int64_t> other) {
    if (other && (!day || *other > *day)) day = other;
}

/// The day of the last row of `rows`, which are in order of their statements.
template <class Rows>
std::optional<std::int64_t> LastDayOf(const Rows& rows) {
    return rows.empty() ? std::nullopt : DayNumberOf(FieldText(rows.back().BILL_DATE));
}

/// Of the last statement that anything was read of. What a host says of today isn't one.
std::optional<std::int64_t> LastStatementOf(const CReport& report, const DayFigures& days) {
    std::optional<std::int64_t> last;
    for (const AccountDay& day : days.days) {
        if (!IsLive(*day.record)) Later(last, day.number);
    }
    Later(last, LastDayOf(report.MatchStore.Rows));
    Later(last, LastDayOf(report.PingDetailStore.Rows));
    Later(last, LastDayOf(report.ForeignClosedStore.Rows));
    Later(last, LastDayOf(report.OpiDetailStore.Rows));
    Later(last, LastDayOf(report.OpiSumStore.Rows));
    return last;
}

OpenPosition PositionOf(const PositionLine& line, bool namesDeliveryApart) {
    OpenPosition position;
    position.contract = ContractKey(line.contract, line.delivery, namesDeliveryApart);
    if (Contains(line.bid, "买"_gbk)) position.side = "long";
    if (Contains(line.bid, "卖"_gbk)) position.side = "short";
    position.currency = line.currency;
    position.lots = line.lots;
    if (line.openDay) {
        position.openDay = NumberedDay(*line.openDay);
        position.daysHeld = line.day - *line.openDay;
    }
    position.floatPl = line.floatPl;
    if (!line.sharesMargin) position.margin = line.margin;
    return position;
}

}  // namespace

std::vector<OpenPosition> OpenPositionsOf(const CReport& report, const DayFigures& days) {
    std::vector<OpenPosition> open;
    const auto last = LastStatementOf(report, days);
    const auto take = [&](const PositionLine& line) {
        if (line.day == last) open.push_back(PositionOf(line, report.Format().namesDeliveryApart));
    };
    ForEachDetailLine(report, take);
    if (open.empty()) ForEachSummaryLine(report, take);
    return open;
}

}  // namespace tradebill
