#include "statistics/money_identity.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/decimal.h"
#include "report/money_identity.h"
#include "report/printed_money.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr int kLeastStatements = 5;
constexpr int kCents = 2;

bool PrintsPremium(const PrintedMoney& money) {
    return money[PrintedFigure::Premium] || money[PrintedFigure::PremiumReceived] || money[PrintedFigure::PremiumPaid];
}

/// The usual form comes first, so that it is taken where several hold alike. Turnover stands for a premium that isn't
/// printed: it would hide one that is printed falsely.
std::vector<BalanceForm> BalanceForms(bool isPremiumPrinted) {
    std::vector<BalanceForm> forms;
    for (const PremiumTerm premium :
         {PremiumTerm::Net, PremiumTerm::ReceivedLessPaid, PremiumTerm::Turnover, PremiumTerm::None}) {
        if (premium == PremiumTerm::Turnover && isPremiumPrinted) continue;
        for (unsigned bits = 0; bits < 32; ++bits) {
            forms.push_back({.usesDayPL = (bits & 1U) != 0,
                             .addsExercisePL = (bits & 2U) == 0,
                             .takesExerciseFees = (bits & 4U) == 0,
                             .takesDeliveryFees = (bits & 8U) == 0,
                             .addsPledgeChanges = (bits & 16U) != 0,
                             .premium = premium});
        }
    }
    return forms;
}

constexpr AvailableForm kAvailableForms[] = {
    {.takesFrozen = true, .takesDeliveryMargin = true},
    {.takesFrozen = false, .takesDeliveryMargin = true},
    {.takesFrozen = true, .takesDeliveryMargin = false},
    {.takesFrozen = false, .takesDeliveryMargin = false},
};

bool HasBalance(const PrintedMoney& money) {
    return money[PrintedFigure::Opening] && money[PrintedFigure::Closing];
}

bool HasAvailable(const PrintedMoney& money) {
    return money[PrintedFigure::Available] && money[PrintedFigure::Margin] &&
           (money[PrintedFigure::Equity] || money[PrintedFigure::Closing]);
}

bool Keeps(const BalanceForm& form, const PrintedMoney& money) {
    const std::int64_t most = Decimal::HalfUnit(kCents) * TermsOf(form, money);
    return DistanceOf(BalanceBy(form, money), money.Amount(PrintedFigure::Closing)) <= static_cast<std::uint64_t>(most);
}

bool Keeps(const AvailableForm& form, const PrintedMoney& money) {
    constexpr int kTerms = 3;
    const std::int64_t most = Decimal::HalfUnit(kCents) * kTerms;
    return DistanceOf(AvailableBy(form, money), money.Amount(PrintedFigure::Available)) <=
           static_cast<std::uint64_t>(most);
}

/// The first of those forms that most statements keep, if enough do.
template <class Form>
std::optional<Form> FormOf(std::span<const Form> forms, const std::vector<const PrintedMoney*>& statements) {
    if (statements.size() < kLeastStatements) return std::nullopt;
    const Form* best = nullptr;
    std::size_t most = 0;
    for (const Form& form : forms) {
        std::size_t kept = 0;
        for (const PrintedMoney* const money : statements) kept += Keeps(form, *money) ? 1 : 0;
        if (kept <= most) continue;
        most = kept;
        best = &form;
        if (kept == statements.size()) break;
    }
    return most * 5 >= statements.size() * 4 && best != nullptr ? std::optional(*best) : std::nullopt;
}

std::vector<const PrintedMoney*> ThoseOf(const PrintedMoneyList& list, bool (*has)(const PrintedMoney&)) {
    std::vector<const PrintedMoney*> those;
    for (const PrintedMoney& money : list) {
        if (has(money)) those.push_back(&money);
    }
    return those;
}

}  // namespace

void FindMoneyIdentity(CReport& report) {
    if (report.IsForeign()) return;
    const auto balances = ThoseOf(report.PrintedMoney, HasBalance);
    const auto availables = ThoseOf(report.PrintedMoney, HasAvailable);
    const std::vector<BalanceForm> forms = BalanceForms(std::ranges::any_of(report.PrintedMoney, PrintsPremium));
    report.MoneyIdentity = {
        .Statements = static_cast<int>(balances.size()),
        .Balance = FormOf(std::span(forms), balances),
        .AvailableStatements = static_cast<int>(availables.size()),
        .Available = FormOf(std::span<const AvailableForm>(kAvailableForms), availables),
    };
}

}  // namespace tradebill
