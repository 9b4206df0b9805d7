#include "report/money_identity.h"

#include <cstdint>

#include "base/decimal.h"
#include "report/printed_money.h"

namespace tradebill {
namespace {

using enum PrintedFigure;

/// Calls `onTerm(figure, sign)` for each printed figure that `form` adds up.
template <class OnTerm>
void ForEachTerm(const BalanceForm& form, const PrintedMoney& money, OnTerm onTerm) {
    onTerm(Opening, 1);
    if (money[CashFlow]) {
        onTerm(CashFlow, 1);
    } else {
        onTerm(Deposits, 1);
        onTerm(Withdrawals, -1);
    }
    if (form.usesDayPL) {
        onTerm(DayPL, 1);
    } else {
        onTerm(ClosedPL, 1);
        onTerm(PositionPL, 1);
    }
    if (form.addsExercisePL) onTerm(ExercisePL, 1);
    onTerm(Fees, -1);
    if (form.takesExerciseFees) onTerm(ExerciseFees, -1);
    if (form.takesDeliveryFees) onTerm(DeliveryFees, -1);
    if (form.addsPledgeChanges) {
        onTerm(PledgeChange, 1);
        onTerm(FxPledgeChange, 1);
    }
    if (form.premium == PremiumTerm::Net) onTerm(Premium, 1);
    if (form.premium == PremiumTerm::ReceivedLessPaid) {
        onTerm(PremiumReceived, 1);
        onTerm(PremiumPaid, -1);
    }
}

}  // namespace

std::int64_t BalanceBy(const BalanceForm& form, const PrintedMoney& money) {
    std::int64_t sum = form.premium == PremiumTerm::Turnover ? money.OptionTurnover : 0;
    ForEachTerm(form, money,
                [&](PrintedFigure figure, int sign) { sum = WrappingSum(sum, sign * money.Amount(figure)); });
    return sum;
}

std::int64_t CashFlowRest(const BalanceForm& form, const PrintedMoney& money) {
    constexpr int kCents = 2;
    PrintedMoney without = money;
    for (const PrintedFigure figure : {CashFlow, Deposits, Withdrawals}) without[figure].reset();
    const std::int64_t balance = BalanceBy(form, without);
    const std::int64_t closing = money.Amount(Closing);
    const auto rounding = static_cast<std::uint64_t>(Decimal::HalfUnit(kCents) * TermsOf(form, without));
    if (DistanceOf(balance, closing) <= rounding) return 0;
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(closing) - static_cast<std::uint64_t>(balance));
}

std::int64_t AvailableBy(const AvailableForm& form, const PrintedMoney& money) {
    std::int64_t sum = money[Equity].value_or(money.Amount(Closing)) - money.Amount(Margin);
    if (form.takesFrozen) sum -= money.Amount(Frozen);
    if (form.takesDeliveryMargin) sum -= money.Amount(DeliveryMargin);
    return sum;
}

BalanceForm UsualBalanceForm(const PrintedMoney& money) {
    BalanceForm form{.usesDayPL = money[DayPL].has_value(),
                     .addsExercisePL = true,
                     .takesExerciseFees = true,
                     .takesDeliveryFees = true,
                     .premium = PremiumTerm::Turnover};
    if (money[PremiumReceived] || money[PremiumPaid]) form.premium = PremiumTerm::ReceivedLessPaid;
    if (money[Premium]) form.premium = PremiumTerm::Net;
    return form;
}

int TermsOf(const BalanceForm& form, const PrintedMoney& money) {
    int terms = 1;  // the closing balance itself
    ForEachTerm(form, money, [&](PrintedFigure figure, int) { terms += money.Amount(figure) != 0 ? 1 : 0; });
    return terms;
}

}  // namespace tradebill
