#include "analysis/position_rows.h"

#include <optional>
#include <string_view>

#include "analysis/group_key.h"
#include "analysis/stated_amount.h"
#include "base/day_number.h"
#include "base/gbk.h"
#include "base/text.h"
#include "report/position_lots.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

/// What rows of both tables state alike.
template <class Row>
std::optional<PositionLine> SharedLineOf(const Row& row) {
    const auto day = DayNumberOf(FieldText(row.BILL_DATE));
    if (!day) return std::nullopt;
    PositionLine line;
    line.day = *day;
    line.contract = FieldText(row.CONTRACT);
    line.delivery = FieldText(row.DELIVERY);
    line.bid = FieldText(row.BID);
    line.lots = LotsOf(row);
    line.margin = StatedAmount(row.DEPOSIT);
    return line;
}

}  // namespace

std::optional<PositionLine> LineOf(const OpiDetail& row, const CReport& report) {
    auto line = SharedLineOf(row);
    if (!line) return line;
    line->currency = CurrencyOf(row, report);
    line->openDay = DayNumberOf(FieldText(row.OPEN_DATE));
    line->floatPl = StatedAmount(row.FLOATPL);
    return line;
}

std::optional<PositionLine> LineOf(const OpiSum& row) {
    return SharedLineOf(row);
}

bool AreSidesOfOneRow(const OpiSum& bought, const OpiSum& sold) {
    const auto isSame = [&](auto field) { return FieldText(bought.*field) == FieldText(sold.*field); };
    return FieldText(bought.BID) == "买"_gbk && FieldText(sold.BID) == "卖"_gbk && isSame(&OpiSum::BILL_DATE) &&
           isSame(&OpiSum::EXCH_NAME) && isSame(&OpiSum::CONTRACT) && isSame(&OpiSum::DELIVERY) &&
           isSame(&OpiSum::YSETTLE_PRICE) && isSame(&OpiSum::SETTLE_PRICE) && isSame(&OpiSum::DSYK) &&
           isSame(&OpiSum::DEPOSIT) && isSame(&OpiSum::HEDGE);
}

}  // namespace tradebill
