#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/statement_facts.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "report/money_identity.h"
#include "report/money_store.h"
#include "report/printed_money.h"
#include "report/report.h"

namespace tradebill {
namespace {

using enum PrintedFigure;

constexpr std::int64_t kCent = kDecimalSteps / 100;
constexpr std::int64_t kBaseRounding = 4 * kCent;  // of a column that is added up from other currencies
constexpr int kAvailableTerms = 3;
constexpr int kLeastStatements = 5;

/// A figure that should be another.
struct Comparison {
    std::int64_t expected;
    std::int64_t found;
    std::int64_t rounding;

    [[nodiscard]] bool Agrees() const { return DistanceOf(expected, found) <= static_cast<std::uint64_t>(rounding); }
};

void Tell(const StatementFacts& statement, FindingCode code, Severity severity, const PrintedMoney& money,
          const Comparison& figures, std::string text, std::vector<Finding>& findings) {
    Finding finding = FindingAbout(statement, code);
    finding.severity = severity;
    if (money.Row > 0) finding.row = money.Row;
    finding.section = SectionKind::Money;
    finding.expected = DecimalText(figures.expected);
    finding.found = DecimalText(figures.found);
    finding.text = (money.Currency.empty() ? "" : GbkToUtf8(money.Currency) + ": ") + std::move(text);
    findings.push_back(std::move(finding));
}

/// Of the run as a whole.
void TellNoForm(FindingCode code, std::string text, std::vector<Finding>& findings) {
    findings.push_back(
        {.code = code, .severity = Severity::Note, .section = SectionKind::Money, .text = std::move(text)});
}

Comparison BalanceOf(const BalanceForm& form, const PrintedMoney& money) {
    return {BalanceBy(form, money), money.Amount(Closing), Decimal::HalfUnit(2) * TermsOf(form, money)};
}

Comparison AvailableOf(const AvailableForm& form, const PrintedMoney& money) {
    return {AvailableBy(form, money), money.Amount(Available), Decimal::HalfUnit(2) * kAvailableTerms};
}

constexpr std::string_view kBalanceText =
    "The closing balance isn't what the opening balance and the day's figures add up to.";
constexpr std::string_view kAvailableText = "The available funds aren't equity less margin.";

void CheckDomestic(const CReport& report, const StatementFacts& statement, const PrintedMoney& money,
                   std::vector<Finding>& findings) {
    const MoneyIdentity& identity = report.MoneyIdentity;
    const bool isFew = identity.Statements < kLeastStatements;
    if (money[Opening] && money[Closing] && (identity.Balance || isFew)) {
        const Comparison figures = BalanceOf(identity.Balance.value_or(UsualBalanceForm(money)), money);
        if (!figures.Agrees()) {
            Tell(statement, FindingCode::Identity, isFew ? Severity::Note : KindOf(FindingCode::Identity).severity,
                 money, figures, std::string(kBalanceText), findings);
        }
    }
    const bool areFew = identity.AvailableStatements < kLeastStatements;
    if (money[PrintedFigure::Available] && money[Margin] && (identity.Available || areFew)) {
        const Comparison figures = AvailableOf(identity.Available.value_or(AvailableForm{}), money);
        if (!figures.Agrees()) {
            Tell(statement, FindingCode::Available, areFew ? Severity::Note : KindOf(FindingCode::Available).severity,
                 money, figures, std::string(kAvailableText), findings);
        }
    }
}

void CheckForeign(const StatementFacts& statement, const PrintedMoney& money, std::vector<Finding>& findings) {
    const std::int64_t rounding = money.IsBase ? kBaseRounding : kCent;
    if (money[Opening] && money[Equity]) {
        const Comparison figures{money.Amount(Opening) + money.Amount(CashFlow) + money.Amount(ClosedPL) -
                                     money.Amount(Fees) + money.Amount(FloatingPL),
                                 money.Amount(Equity), rounding};
        if (!figures.Agrees()) {
            Tell(statement, FindingCode::Identity, KindOf(FindingCode::Identity).severity, money, figures,
                 "The equity isn't what the opening balance and the day's figures add up to.", findings);
        }
    }
    if (money[Equity] && money[Margin] && money[PrintedFigure::Available]) {
        const Comparison figures{money.Amount(Equity) - money.Amount(Margin), money.Amount(PrintedFigure::Available),
                                 rounding};
        if (!figures.Agrees()) {
            Tell(statement, FindingCode::Available, KindOf(FindingCode::Available).severity, money, figures,
                 std::string(kAvailableText), findings);
        }
    }
}

/// The report shows no cash flow at all, and the analysis has to find another way to it.
void CheckCashFlow(const CReport& report, std::vector<Finding>& findings) {
    const bool hasDays = !report.PrintedMoney.empty() && !report.MoneyStore.Records.empty();
    if (report.IsForeign() || !hasDays || report.MoneyStore.KeepsCashFlow()) return;
    const bool isProven = report.MoneyIdentity.Balance || report.MoneyIdentity.Statements < kLeastStatements;
    TellNoForm(FindingCode::Identity,
               isProven
                   ? "The layout keeps no cash flow: the analysis takes what the balance leaves for it."
                   : "The layout keeps no cash flow, and the balance doesn't tell it: the analysis has no returns.",
               findings);
}

}  // namespace

void CheckMoney(const CReport& report, const StatementList& statements, std::vector<Finding>& findings) {
    CheckCashFlow(report, findings);
    const MoneyIdentity& identity = report.MoneyIdentity;
    if (!report.IsForeign() && identity.Statements >= kLeastStatements && !identity.Balance) {
        TellNoForm(FindingCode::Identity,
                   "No form of the balance holds on four of five days: balances can't be proven.", findings);
    }
    if (!report.IsForeign() && identity.AvailableStatements >= kLeastStatements && !identity.Available) {
        TellNoForm(FindingCode::Available,
                   "Equity less margin is the available funds on less than four of five days: they can't be proven.",
                   findings);
    }
    for (const StatementFacts& statement : statements) {
        for (const PrintedMoney& money : MoneyOf(report, statement)) {
            if (report.IsForeign()) {
                CheckForeign(statement, money, findings);
            } else {
                CheckDomestic(report, statement, money, findings);
            }
        }
    }
}

}  // namespace tradebill
