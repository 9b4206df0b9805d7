#include "analysis/null_reasons.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "analysis/closed_results.h"
#include "analysis/day_results.h"
#include "analysis/margin_results.h"

namespace tradebill {
namespace {

struct FieldReason {
    std::string_view field;
    std::string_view reason;
};

// clang-format off
// Fields with one reason only, whatever they are a field of.
constexpr FieldReason kReasons[] = {
    {"equity",           "the record states no equity, or no rate above 0"},
    {"cashFlow",         "no cash flow is stated, or no rate above 0, and no identity of the balance tells it"},
    {"margin",           "no margin is stated, or no rate above 0"},
    {"moneyIndex",       "an equity, or a cash flow up to this day, isn't known"},
    {"peak",             "the starting balance is the peak"},
    {"recovery",         "it lasts"},
    {"daysUp",           "it lasts"},
    {"money",            "the money index of peak or valley isn't known"},
    {"bestDay",          "no day has a return"},
    {"worstDay",         "no day has a return"},
    {"mean",             "no day has a return"},
    {"quantile5",        "no day has a return"},
    {"deviation",        "less than two days have a return"},
    {"volatility",       "less than two days have a return"},
    {"sortino",          "no return is below 0"},
    {"timeUnderWater",   "there are no days"},
    {"statedPl",         "a row states no P/L"},
    {"averageWin",       "there is no win"},
    {"largestWin",       "there is no win"},
    {"averageLoss",      "there is no loss"},
    {"largestLoss",      "there is no loss"},
    {"profitFactor",     "there is no loss"},
    {"medianHoldingDays", "no row states when it was opened"},
    {"meanHoldingDays",  "no row states when it was opened"},
    {"intradayShare",    "no row states when it was opened"},
    {"fees",             "no trade of the days of opening and closing is known"},
    {"products",         "there is neither gain nor loss"},
    {"contracts",        "there is neither gain nor loss"},
    {"rows",             "there is neither gain nor loss"},
    {"openDay",          "the row doesn't state when it was opened"},
    {"daysHeld",         "the row doesn't state when it was opened"},
    {"floatPl",          "the row states no floating P/L"},
};
// clang-format on

constexpr std::string_view kForeignTurnover = "statements of foreign accounts state no turnover";

class CReasonWalk {
public:
    CReasonWalk(const Analysis& analysis, const NullCauses& causes) : analysis_(analysis), causes_(causes) {}

    template <class Owner>
    void Add(std::string_view path, const Owner& owner, std::span<const AnalysisField<Owner>> fields) {
        for (const auto& field : fields) {
            if (!std::holds_alternative<std::monostate>(field.value(owner))) continue;
            std::string name(path);
            name += '.';
            name += field.name;
            reasons_.push_back({std::move(name), ReasonOf(owner, field.name)});
        }
    }

    [[nodiscard]] std::vector<NullReason> Finish() { return std::move(reasons_); }

private:
    [[nodiscard]] std::string_view ReasonOf(const DayResult& day, std::string_view field) const {
        if (field == "pl") return PlReason(day);
        if (field == "return") return day.pl ? ReturnReason(day) : PlReason(day);
        if (field == "marginUse") return day.margin ? "the equity isn't above 0" : Plain("margin");
        if (field == "turnover") return causes_.isForeign ? kForeignTurnover : "a trade states no turnover";
        return Plain(field);
    }
    [[nodiscard]] std::string_view ReasonOf(const Distribution& figures, std::string_view field) const {
        if (field != "skewness" && field != "kurtosis") return Plain(field);
        if (figures.deviation && !(*figures.deviation > 0)) return "all returns are equal";
        if (figures.deviation && figures.skewness) return "less than four days have a return";
        return field == "skewness" ? "less than three days have a return" : "less than four days have a return";
    }
    [[nodiscard]] std::string_view ReasonOf(const Ratios& ratios, std::string_view field) const {
        if (field == "moneyWeightedReturn") return causes_.moneyWeightedReturn;
        if (!analysis_.distribution.mean && field != "timeUnderWater") return Plain("mean");
        if (field == "annualReturn") return "it is beyond the range of numbers";
        if (field == "sharpe") return ratios.volatility ? "all returns are equal" : Plain("volatility");
        if (field == "calmar") return ratios.annualReturn ? "there is no drawdown" : ReasonOf(ratios, "annualReturn");
        return Plain(field);
    }
    [[nodiscard]] std::string_view ReasonOf(const ClosedGroup& /*group*/, std::string_view field) const {
        return field == "turnover" ? kForeignTurnover : Plain(field);
    }
    [[nodiscard]] std::string_view ReasonOf(const MarginResult& /*margin*/, std::string_view /*field*/) const {
        return "no day has margin and an equity above 0";
    }
    [[nodiscard]] std::string_view ReasonOf(const ProductMargin& /*product*/, std::string_view /*field*/) const {
        return causes_.isForeign ? "margin of a foreign account is in its own currency, equity in the base currency"
                                 : "no day of it has an equity above 0";
    }
    [[nodiscard]] std::string_view ReasonOf(const OpenPosition& /*position*/, std::string_view field) const {
        return field == "margin" ? "the row states no margin of this side alone" : Plain(field);
    }
    /// Months, years and weekdays.
    template <class Owner>
    [[nodiscard]] std::string_view ReasonOf(const Owner& /*owner*/, std::string_view field) const {
        if (field == "return") return Plain("bestDay");
        return field == "pl" ? "no day has a P/L" : Plain(field);
    }

    [[nodiscard]] std::string_view PlReason(const DayResult& day) const {
        if (!day.equity) return Plain("equity");
        if (!day.cashFlow) return Plain("cashFlow");
        if (&day != analysis_.days.data()) return "the equity of the day before isn't known";
        if (causes_.leavesOutFloating) {
            return "the opening balance leaves out the floating P/L of positions that were open before";
        }
        return "the opening balance isn't stated";
    }

    /// REQUIRES: the day has a P/L.
    [[nodiscard]] std::string_view ReturnReason(const DayResult& day) const {
        const bool isFirst = &day == analysis_.days.data();
        if (!isFirst && !((&day - 1)->index > 0)) return "the index is 0";
        const double before = *day.equity - *day.pl - *day.cashFlow;
        return before + std::max(*day.cashFlow, 0.0) > 0 ? "the index would be beyond the range of numbers"
                                                         : "what it is measured by isn't above 0";
    }

    [[nodiscard]] static std::string_view Plain(std::string_view field) {
        const auto* const found = std::ranges::find(kReasons, field, &FieldReason::field);
        return found != std::end(kReasons) ? found->reason : "it isn't known";
    }

    const Analysis& analysis_;
    const NullCauses& causes_;
    std::vector<NullReason> reasons_;
};

}  // namespace

std::vector<NullReason> NullReasonsOf(const Analysis& analysis, const NullCauses& causes) {
    CReasonWalk walk(analysis, causes);
    VisitAnalysis(
        analysis, [&](std::string_view name, const auto& owner, auto fields) { walk.Add(name, owner, fields); },
        [&](std::string_view name, const auto& rows, auto fields) {
            for (std::size_t i = 0; i < rows.size(); ++i) {
                walk.Add(std::string(name) + '[' + std::to_string(i) + ']', rows[i], fields);
            }
        });
    return walk.Finish();
}

}  // namespace tradebill
