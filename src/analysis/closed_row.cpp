#include "analysis/closed_row.h"

#include <optional>
#include <string_view>

#include "analysis/account_days.h"
#include "analysis/group_key.h"
#include "analysis/periods.h"
#include "analysis/product_names.h"
#include "analysis/stated_amount.h"
#include "analysis/trade_tally.h"
#include "base/day_number.h"
#include "base/number.h"
#include "base/text.h"
#include "report/closed_rows.h"
#include "report/product_text.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {

std::optional<GroupedRow> CClosedRows::OfDomestic(const PingDetail& row) const {
    const auto closed = ClosedFiguresOf(row, report_);
    if (!closed) return std::nullopt;
    GroupedRow grouped = Begin(row);
    grouped.side = ClosedSidesOf(row, false).position;
    grouped.row.lots = closed->lots;
    grouped.row.pl = closed->pl;
    grouped.row.turnover = static_cast<double>(closed->lots) * closed->closePrice * closed->unit;
    TakeDays(row, grouped);
    return grouped;
}

GroupedRow CClosedRows::OfForeign(const PingDetail& row) const {
    GroupedRow grouped = Begin(row);
    grouped.side = ClosedSidesOf(row, true).position;
    grouped.row.lots = IntegerIn(row.MATCH_VOL);
    grouped.row.pl = grouped.row.statedPl.value_or(0);
    TakeDays(row, grouped);
    return grouped;
}

/// All that both families state alike.
GroupedRow CClosedRows::Begin(const PingDetail& row) const {
    const std::string_view contract = FieldText(row.CONTRACT);
    const std::string_view delivery = FieldText(row.DELIVERY);
    GroupedRow grouped{.row = {},
                       .currency = CurrencyOf(row, report_),
                       .product = products_.Of(contract, delivery),
                       .contract = ContractKey(contract, delivery, report_.Format().namesDeliveryApart),
                       .side = {},
                       .exchange = TrimBlanks(FieldText(row.EXCH_NAME)),
                       .month = {}};
    grouped.row.statedPl = StatedAmount(row.OFFSETPL);
    if (grouped.exchange.empty()) grouped.exchange = trades_.ExchangeOf(grouped.contract);
    return grouped;
}

/// REQUIRES: the row's lots are set.
void CClosedRows::TakeDays(const PingDetail& row, GroupedRow& grouped) const {
    const auto closed = RowDayOf(FieldText(row.BILL_DATE), FieldText(row.MATCH_DATE));
    const auto opened = DayNumberOf(FieldText(row.OPEN_DATE));
    if (closed) grouped.month = NumberedDay(*closed).substr(0, kMonthLength);
    if (closed && opened) grouped.row.holdingDays = *closed - *opened;
    double perLot = 0;
    int known = 0;
    for (const auto& day : {closed, opened}) {
        const auto fee = day ? trades_.FeePerLot(grouped.currency, grouped.product.key, *day) : std::nullopt;
        perLot += fee.value_or(0);
        known += fee ? 1 : 0;
    }
    if (known > 0) grouped.row.fees = perLot * static_cast<double>(grouped.row.lots);
    grouped.row.lacksFees = known < 2;
}

}  // namespace tradebill
