// How an account's balances hang together, as its own statements show.
#pragma once

#include <cstdint>
#include <optional>

#include "report/printed_money.h"

namespace tradebill {

/// Where the option premium of the balance comes from.
enum class PremiumTerm { None, Net, ReceivedLessPaid, Turnover };

/// closing = opening + cash flow + P/L - fees + premium, in the form that an account's statements keep.
struct BalanceForm {
    bool usesDayPL = false;  ///< one figure of P/L instead of two
    bool addsExercisePL = false;
    bool takesExerciseFees = false;  ///< beside the fees, which hold them otherwise
    bool takesDeliveryFees = false;
    bool addsPledgeChanges = false;
    PremiumTerm premium = PremiumTerm::None;

    bool operator==(const BalanceForm&) const = default;
};

/// available = equity - margin, less what else a broker holds back.
struct AvailableForm {
    bool takesFrozen = false;
    bool takesDeliveryMargin = false;

    bool operator==(const AvailableForm&) const = default;
};

/// The forms that at least four of five statements keep, of at least five; nothing if there is none.
struct MoneyIdentity {
    int Statements = 0;  ///< with an opening and a closing balance
    std::optional<BalanceForm> Balance;
    int AvailableStatements = 0;  ///< with equity and available funds
    std::optional<AvailableForm> Available;
};

/// What `money` should close with by `form`, in 1/10000.
[[nodiscard]] std::int64_t BalanceBy(const BalanceForm& form, const PrintedMoney& money);

/// What `money` closes with beyond what `form` adds up without the cash flow, in 1/10000: the cash flow itself, whether
/// it is printed or not. 0 if it is no more than the terms may be rounded by.
[[nodiscard]] std::int64_t CashFlowRest(const BalanceForm& form, const PrintedMoney& money);

/// What should be available by `form`. Where no equity is printed the closing balance is taken for it.
[[nodiscard]] std::int64_t AvailableBy(const AvailableForm& form, const PrintedMoney& money);

/// The form that the printed figures of one statement speak for: each figure counts for itself.
[[nodiscard]] BalanceForm UsualBalanceForm(const PrintedMoney& money);

/// Terms that `form` adds up for `money`, each of which a statement rounds for itself.
[[nodiscard]] int TermsOf(const BalanceForm& form, const PrintedMoney& money);

}  // namespace tradebill
