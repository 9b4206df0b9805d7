#include "analysis/trade_tally.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

#include "analysis/account_days.h"
#include "analysis/group_key.h"
#include "analysis/product_names.h"
#include "analysis/stated_amount.h"
#include "base/number.h"
#include "base/text.h"
#include "report/product_text.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

void AddTo(DayTrades& day, const MatchRecord& trade) {
    const auto turnover = StatedAmount(trade.TURNOVER);
    day.turnover.Add(std::fabs(turnover.value_or(0)));
    day.statesTurnover &= turnover.has_value();
    day.lots += IntegerIn(trade.MATCH_VOL);
}

}  // namespace

CTradeTally::CTradeTally(const CReport& report, CProductNames& products) {
    const bool isApart = report.Format().namesDeliveryApart;
    for (const MatchRecord& trade : report.MatchStore.Rows) {
        const std::string_view contract = FieldText(trade.CONTRACT);
        const std::string_view delivery = FieldText(trade.DELIVERY);
        const std::string_view exchange = TrimBlanks(FieldText(trade.EXCH_NAME));
        if (!exchange.empty()) exchanges_.try_emplace(ContractKey(contract, delivery, isApart), exchange);
        const auto day = RowDayOf(FieldText(trade.BILL_DATE), FieldText(trade.MATCH_DATE));
        if (!day) continue;
        AddTo(days_[*day], trade);
        Fees& fees = fees_[GroupKey(CurrencyOf(trade, report), products.Of(contract, delivery).key)][*day];
        fees.amount.Add(StatedAmount(trade.POUNDAGE).value_or(0));
        fees.lots += IntegerIn(trade.MATCH_VOL);
    }
}

const DayTrades* CTradeTally::FindDay(std::int64_t day) const {
    const auto found = days_.find(day);
    return found == days_.end() ? nullptr : &found->second;
}

std::optional<double> CTradeTally::FeePerLot(std::string_view currency, std::string_view product,
                                             std::int64_t day) const {
    const auto found = fees_.find(GroupKey(currency, product));
    if (found == fees_.end()) return std::nullopt;
    const auto onDay = found->second.find(day);
    if (onDay == found->second.end() || onDay->second.lots <= 0) return std::nullopt;
    return std::fabs(onDay->second.amount.Total()) / static_cast<double>(onDay->second.lots);
}

std::string_view CTradeTally::ExchangeOf(std::string_view contract) const {
    const auto found = exchanges_.find(contract);
    return found == exchanges_.end() ? std::string_view() : found->second;
}

}  // namespace tradebill
