#include "analysis/cash_flow.h"

#include <optional>

#include "analysis/account_days.h"
#include "analysis/stated_amount.h"
#include "base/day_number.h"
#include "base/decimal.h"
#include "base/text.h"
#include "report/money_identity.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/printed_money.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr int kFewStatements = 5;  ///< below, no identity is looked for (statistics/money_identity.h)

bool StatesCashFlow(const MoneyRecord& record) {
    return !Trim(FieldText(record.CRJ)).empty();
}

}  // namespace

CCashFlows::CCashFlows(const CReport& report) : report_(report), isKept_(report.MoneyStore.KeepsCashFlow()) {
    if (isKept_) return;
    for (const PrintedMoney& money : report.PrintedMoney) {
        if (const auto day = DayNumberOf(money.Day)) printed_[*day] = &money;
    }
}

std::optional<double> CCashFlows::Of(const AccountDay& day) const {
    if (StatesCashFlow(*day.record)) return StatedAmount(day.record->CRJ, day.record->EXCHANGE_RATE);
    return isKept_ || IsLive(*day.record) ? 0 : RestOf(day);
}

std::optional<double> CCashFlows::RestOf(const AccountDay& day) const {
    const auto found = printed_.find(day.number);
    if (report_.IsForeign() || found == printed_.end()) return std::nullopt;
    const PrintedMoney& money = *found->second;
    if (!money[PrintedFigure::Opening] || !money[PrintedFigure::Closing]) return std::nullopt;
    const MoneyIdentity& identity = report_.MoneyIdentity;
    if (!identity.Balance && identity.Statements >= kFewStatements) return std::nullopt;
    const BalanceForm form = identity.Balance.value_or(UsualBalanceForm(money));
    const auto rest = static_cast<double>(CashFlowRest(form, money));
    return rest / static_cast<double>(kDecimalSteps) / day.record->EXCHANGE_RATE;
}

}  // namespace tradebill
