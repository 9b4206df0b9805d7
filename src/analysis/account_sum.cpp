#include "analysis/account_sum.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "analysis/account_days.h"
#include "analysis/analysis.h"
#include "analysis/compensated_sum.h"
#include "analysis/day_figures.h"
#include "analysis/day_results.h"
#include "analysis/finished_analysis.h"
#include "analysis/product_names.h"
#include "analysis/trade_tally.h"
#include "base/day_number.h"
#include "report/report.h"

namespace tradebill {
namespace {

/// A sum that is known if all its addends are.
class CKnownSum {
public:
    void Add(std::optional<double> addend) {
        sum_.Add(addend.value_or(0));
        isKnown_ &= addend.has_value();
    }
    [[nodiscard]] std::optional<double> Total() const { return isKnown_ ? std::optional(sum_.Total()) : std::nullopt; }

private:
    CCompensatedSum sum_;
    bool isKnown_ = true;
};

/// All accounts on one day.
struct DaySum {
    CKnownSum opening;  ///< of those that begin
    CKnownSum cashFlow;
    CKnownSum equity;
    CKnownSum margin;
    CKnownSum turnover;
    CCompensatedSum fees;
    std::int64_t lots = 0;
};

/// What an account brings that begins on the day, as the day's cash flow: its own is part of it.
std::optional<double> EntryOf(const DayResult& first) {
    if (!first.equity || !first.pl) return first.equity;
    return *first.equity - *first.pl;
}

/// An account on its way through the days of all.
class CAccountCourse {
public:
    explicit CAccountCourse(const DayFigures& account) : account_(account) {}

    /// `day` is behind that of the call before.
    void AddTo(DaySum& sum, std::int64_t day, bool isFirstOfAll) {
        const bool hasStatement = next_ < account_.days.size() && account_.days[next_].number == day;
        if (hasStatement) {
            AddStatement(sum, account_.results[next_], isFirstOfAll);
            ++next_;
        }
        if (next_ == 0) return;
        const DayResult& latest = account_.results[next_ - 1];
        sum.equity.Add(latest.equity);
        sum.margin.Add(latest.margin);
    }

private:
    void AddStatement(DaySum& sum, const DayResult& result, bool isFirstOfAll) const {
        if (next_ == 0 && isFirstOfAll) sum.opening.Add(account_.opening);
        sum.cashFlow.Add(next_ == 0 && !isFirstOfAll ? EntryOf(result) : result.cashFlow);
        sum.turnover.Add(result.turnover);
        sum.fees.Add(result.fees);
        sum.lots += result.lots;
    }

    const DayFigures& account_;
    std::size_t next_ = 0;
};

std::set<std::int64_t> DaysOf(const std::vector<DayFigures>& accounts) {
    std::set<std::int64_t> days;
    for (const DayFigures& account : accounts) {
        for (const AccountDay& day : account.days) days.insert(day.number);
    }
    return days;
}

DayResult ResultOf(const DaySum& sum, std::int64_t day) {
    DayResult result;
    result.day = NumberedDay(day);
    result.equity = sum.equity.Total();
    result.cashFlow = sum.cashFlow.Total();
    result.margin = sum.margin.Total();
    result.turnover = sum.turnover.Total();
    result.fees = sum.fees.Total();
    result.lots = sum.lots;
    return result;
}

DayFigures SumOf(const std::vector<DayFigures>& accounts) {
    DayFigures all{.days = {}, .results = {}, .opening = {}};
    std::vector<CAccountCourse> courses(accounts.begin(), accounts.end());
    for (const std::int64_t day : DaysOf(accounts)) {
        const bool isFirst = all.days.empty();
        DaySum sum;
        for (CAccountCourse& course : courses) course.AddTo(sum, day, isFirst);
        all.days.push_back({.number = day});
        all.results.push_back(ResultOf(sum, day));
        if (isFirst) all.opening = sum.opening.Total();
    }
    for (const DayFigures& account : accounts) {
        all.leavesOutFloating |= account.leavesOutFloating && account.days.front().number == all.days.front().number;
    }
    MeasureDays(all);
    return all;
}

}  // namespace

void CAccountSum::Add(const CReport& report) {
    CProductNames products(report);
    const CTradeTally trades(report, products);
    DayFigures figures = DayFiguresOf(report, trades);
    for (AccountDay& day : figures.days) day.record = nullptr;
    if (!figures.days.empty()) accounts_.push_back(std::move(figures));
    margins_.Add(report, products);
    isForeign_ = report.IsForeign();
}

SummedAccounts CAccountSum::Finish(const AnalysisOptions& options) {
    DayFigures figures = SumOf(accounts_);
    SummedAccounts sum{.opening = figures.opening, .analysis = {}};
    sum.analysis.tradingDays = options.tradingDays;
    FinishAnalysis(std::move(figures), std::move(margins_), isForeign_, sum.analysis);
    return sum;
}

}  // namespace tradebill
