// The figures of an analysis by their names, as tables: for whoever writes all of them (JSON, CSV, SQLite). The names
// are those of the JSON.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "analysis/analysis.h"
#include "analysis/cash_kinds.h"
#include "analysis/closed_results.h"
#include "analysis/day_results.h"
#include "analysis/margin_results.h"

namespace tradebill {

/// What a field holds, for whoever makes a typed column of it. A day is a text of yyyymmdd.
enum class AnalysisType { Text, Day, Number, Whole };

/// monostate is null. Texts are GBK, and live as long as their owner.
using AnalysisValue = std::variant<std::monostate, double, std::int64_t, std::string_view>;

template <class Owner>
struct AnalysisField {
    std::string_view name;
    AnalysisType type;
    AnalysisValue (*value)(const Owner& owner);
};

namespace analysis_fields {

template <class Value>
AnalysisValue ValueOf(const Value& value) {
    return value;
}
template <class Value>
AnalysisValue ValueOf(const std::optional<Value>& value) {
    return value ? ValueOf(*value) : AnalysisValue();
}
template <>
inline AnalysisValue ValueOf(const std::string& value) {
    return std::string_view(value);
}

template <class Value>
struct TypeOf;
template <class Value>
struct TypeOf<std::optional<Value>> : TypeOf<Value> {};
template <>
struct TypeOf<double> {
    static constexpr AnalysisType type = AnalysisType::Number;
};
template <>
struct TypeOf<std::int64_t> {
    static constexpr AnalysisType type = AnalysisType::Whole;
};
template <>
struct TypeOf<std::string> {
    static constexpr AnalysisType type = AnalysisType::Text;
};

template <class Member>
struct MemberOf;
template <class Class, class Value>
struct MemberOf<Value Class::*> {
    using Owner = Class;
    using Type = Value;
};

template <auto Member>
using OwnerOf = typename MemberOf<decltype(Member)>::Owner;

/// A field that holds one member: Of<&DayResult::pl>("pl").
template <auto Member>
constexpr AnalysisField<OwnerOf<Member>> Of(std::string_view name) {
    return {name, TypeOf<typename MemberOf<decltype(Member)>::Type>::type,
            [](const OwnerOf<Member>& owner) { return ValueOf(owner.*Member); }};
}

/// The same for a day.
template <auto Member>
constexpr AnalysisField<OwnerOf<Member>> DayOf(std::string_view name) {
    AnalysisField<OwnerOf<Member>> field = Of<Member>(name);
    field.type = AnalysisType::Day;
    return field;
}

}  // namespace analysis_fields

// clang-format off
inline constexpr AnalysisField<DayResult> kDayResultFields[] = {
    analysis_fields::DayOf<&DayResult::day>("day"),
    analysis_fields::Of<&DayResult::equity>("equity"),
    analysis_fields::Of<&DayResult::cashFlow>("cashFlow"),
    analysis_fields::Of<&DayResult::margin>("margin"),
    analysis_fields::Of<&DayResult::pl>("pl"),
    analysis_fields::Of<&DayResult::dayReturn>("return"),
    analysis_fields::Of<&DayResult::index>("index"),
    analysis_fields::Of<&DayResult::moneyIndex>("moneyIndex"),
    analysis_fields::Of<&DayResult::marginUse>("marginUse"),
    analysis_fields::Of<&DayResult::fees>("fees"),
    analysis_fields::Of<&DayResult::turnover>("turnover"),
    analysis_fields::Of<&DayResult::lots>("lots"),
};

inline constexpr AnalysisField<Drawdown> kDrawdownFields[] = {
    analysis_fields::DayOf<&Drawdown::peak>("peak"),
    analysis_fields::DayOf<&Drawdown::valley>("valley"),
    analysis_fields::DayOf<&Drawdown::recovery>("recovery"),
    analysis_fields::Of<&Drawdown::depth>("depth"),
    analysis_fields::Of<&Drawdown::money>("money"),
    analysis_fields::Of<&Drawdown::daysDown>("daysDown"),
    analysis_fields::Of<&Drawdown::daysUp>("daysUp"),
    analysis_fields::Of<&Drawdown::calendarDays>("calendarDays"),
};

inline constexpr AnalysisField<PeriodResult> kMonthFields[] = {
    analysis_fields::Of<&PeriodResult::period>("month"),
    analysis_fields::Of<&PeriodResult::periodReturn>("return"),
    analysis_fields::Of<&PeriodResult::pl>("pl"),
    analysis_fields::Of<&PeriodResult::fees>("fees"),
    analysis_fields::Of<&PeriodResult::bestDay>("bestDay"),
    analysis_fields::Of<&PeriodResult::worstDay>("worstDay"),
};

inline constexpr AnalysisField<WeekdayResult> kWeekdayFields[] = {
    analysis_fields::Of<&WeekdayResult::weekday>("weekday"),
    analysis_fields::Of<&WeekdayResult::days>("days"),
    analysis_fields::Of<&WeekdayResult::meanReturn>("return"),
    analysis_fields::Of<&WeekdayResult::pl>("pl"),
    analysis_fields::Of<&WeekdayResult::fees>("fees"),
    analysis_fields::Of<&WeekdayResult::bestDay>("bestDay"),
    analysis_fields::Of<&WeekdayResult::worstDay>("worstDay"),
};

inline constexpr AnalysisField<Streaks> kStreakFields[] = {
    analysis_fields::Of<&Streaks::longestWin>("longestWin"),
    analysis_fields::Of<&Streaks::longestLoss>("longestLoss"),
};

inline constexpr AnalysisField<Distribution> kDistributionFields[] = {
    analysis_fields::Of<&Distribution::mean>("mean"),
    analysis_fields::Of<&Distribution::deviation>("deviation"),
    analysis_fields::Of<&Distribution::skewness>("skewness"),
    analysis_fields::Of<&Distribution::kurtosis>("kurtosis"),
    analysis_fields::Of<&Distribution::quantile5>("quantile5"),
};

inline constexpr AnalysisField<Ratios> kRatioFields[] = {
    analysis_fields::Of<&Ratios::annualReturn>("annualReturn"),
    analysis_fields::Of<&Ratios::volatility>("volatility"),
    analysis_fields::Of<&Ratios::sharpe>("sharpe"),
    analysis_fields::Of<&Ratios::sortino>("sortino"),
    analysis_fields::Of<&Ratios::calmar>("calmar"),
    analysis_fields::Of<&Ratios::timeUnderWater>("timeUnderWater"),
    analysis_fields::Of<&Ratios::moneyWeightedReturn>("moneyWeightedReturn"),
};

inline constexpr AnalysisField<ClosedGroup> kProductFields[] = {
    analysis_fields::Of<&ClosedGroup::key>("product"),
    analysis_fields::Of<&ClosedGroup::name>("name"),
    analysis_fields::Of<&ClosedGroup::currency>("currency"),
    analysis_fields::Of<&ClosedGroup::count>("count"),
    analysis_fields::Of<&ClosedGroup::lots>("lots"),
    analysis_fields::Of<&ClosedGroup::pl>("pl"),
    analysis_fields::Of<&ClosedGroup::statedPl>("statedPl"),
    analysis_fields::Of<&ClosedGroup::wins>("wins"),
    analysis_fields::Of<&ClosedGroup::losses>("losses"),
    analysis_fields::Of<&ClosedGroup::flats>("flats"),
    analysis_fields::Of<&ClosedGroup::winRate>("winRate"),
    analysis_fields::Of<&ClosedGroup::averageWin>("averageWin"),
    analysis_fields::Of<&ClosedGroup::averageLoss>("averageLoss"),
    analysis_fields::Of<&ClosedGroup::profitFactor>("profitFactor"),
    analysis_fields::Of<&ClosedGroup::expectancy>("expectancy"),
    analysis_fields::Of<&ClosedGroup::largestWin>("largestWin"),
    analysis_fields::Of<&ClosedGroup::largestLoss>("largestLoss"),
    analysis_fields::Of<&ClosedGroup::medianHoldingDays>("medianHoldingDays"),
    analysis_fields::Of<&ClosedGroup::meanHoldingDays>("meanHoldingDays"),
    analysis_fields::Of<&ClosedGroup::intradayShare>("intradayShare"),
    analysis_fields::Of<&ClosedGroup::fees>("fees"),
    analysis_fields::Of<&ClosedGroup::lotsWithoutFees>("lotsWithoutFees"),
    analysis_fields::Of<&ClosedGroup::turnover>("turnover"),
};

inline constexpr AnalysisField<Concentration> kConcentrationFields[] = {
    analysis_fields::Of<&Concentration::currency>("currency"),
    analysis_fields::Of<&Concentration::products>("products"),
    analysis_fields::Of<&Concentration::contracts>("contracts"),
    analysis_fields::Of<&Concentration::rows>("rows"),
};

/// Without its products, which are a list of their own.
inline constexpr AnalysisField<MarginResult> kMarginFields[] = {
    analysis_fields::Of<&MarginResult::mean>("mean"),
    analysis_fields::Of<&MarginResult::max>("max"),
    analysis_fields::Of<&MarginResult::above50>("above50"),
    analysis_fields::Of<&MarginResult::above80>("above80"),
    analysis_fields::Of<&MarginResult::above100>("above100"),
};

inline constexpr AnalysisField<ProductMargin> kProductMarginFields[] = {
    analysis_fields::Of<&ProductMargin::product>("product"),
    analysis_fields::Of<&ProductMargin::name>("name"),
    analysis_fields::Of<&ProductMargin::currency>("currency"),
    analysis_fields::Of<&ProductMargin::days>("days"),
    analysis_fields::Of<&ProductMargin::mean>("mean"),
    analysis_fields::Of<&ProductMargin::max>("max"),
    analysis_fields::DayOf<&ProductMargin::maxDay>("maxDay"),
    analysis_fields::Of<&ProductMargin::maxUse>("maxUse"),
};

inline constexpr AnalysisField<ProductMarginDay> kProductMarginDayFields[] = {
    analysis_fields::DayOf<&ProductMarginDay::day>("day"),
    analysis_fields::Of<&ProductMarginDay::product>("product"),
    analysis_fields::Of<&ProductMarginDay::name>("name"),
    analysis_fields::Of<&ProductMarginDay::currency>("currency"),
    analysis_fields::Of<&ProductMarginDay::margin>("margin"),
};

inline constexpr AnalysisField<OpenPosition> kOpenPositionFields[] = {
    analysis_fields::Of<&OpenPosition::contract>("contract"),
    analysis_fields::Of<&OpenPosition::side>("side"),
    analysis_fields::Of<&OpenPosition::currency>("currency"),
    analysis_fields::Of<&OpenPosition::lots>("lots"),
    analysis_fields::DayOf<&OpenPosition::openDay>("openDay"),
    analysis_fields::Of<&OpenPosition::daysHeld>("daysHeld"),
    analysis_fields::Of<&OpenPosition::floatPl>("floatPl"),
    analysis_fields::Of<&OpenPosition::margin>("margin"),
};

inline constexpr AnalysisField<CashKind> kCashKindFields[] = {
    analysis_fields::Of<&CashKind::type>("CASH_TYPE"),
    analysis_fields::Of<&CashKind::count>("count"),
    analysis_fields::Of<&CashKind::cashIn>("cashIn"),
    analysis_fields::Of<&CashKind::cashOut>("cashOut"),
};
// clang-format on

namespace analysis_fields {

template <class Owner, std::size_t N>
constexpr std::array<AnalysisField<Owner>, N> Renamed(const AnalysisField<Owner> (&fields)[N], std::string_view first) {
    std::array<AnalysisField<Owner>, N> renamed{};
    std::ranges::copy(fields, renamed.begin());
    renamed.front().name = first;
    return renamed;
}

/// The fields of a table, however many.
template <class Fields>
constexpr auto AllOf(const Fields& fields) {
    return std::span<const std::remove_cvref_t<decltype(*std::begin(fields))>>(fields);
}

}  // namespace analysis_fields

// The same fields, whose first one tells of what a row is.
inline constexpr auto kYearFields = analysis_fields::Renamed(kMonthFields, "year");
inline constexpr auto kContractFields = analysis_fields::Renamed(kProductFields, "contract");
inline constexpr auto kSideFields = analysis_fields::Renamed(kProductFields, "side");
inline constexpr auto kExchangeFields = analysis_fields::Renamed(kProductFields, "exchange");
inline constexpr auto kClosedMonthFields = analysis_fields::Renamed(kProductFields, "month");

/// Shows all of an analysis, in the order of its JSON, but for tradingDays and reasons:
/// `onObject(name, owner, span of its fields)` for what is there once, `onList(name, rows, span of the fields of one)`
/// for lists. Margin's products come right behind margin, as "margin.products".
template <class OnObject, class OnList>
void VisitAnalysis(const Analysis& analysis, OnObject onObject, OnList onList) {
    const auto list = [&](std::string_view name, const auto& rows, const auto& fields) {
        onList(name, rows, analysis_fields::AllOf(fields));
    };
    const auto object = [&](std::string_view name, const auto& owner, const auto& fields) {
        onObject(name, owner, analysis_fields::AllOf(fields));
    };
    list("days", analysis.days, kDayResultFields);
    list("drawdowns", analysis.drawdowns, kDrawdownFields);
    list("months", analysis.months, kMonthFields);
    list("years", analysis.years, kYearFields);
    list("weekdays", analysis.weekdays, kWeekdayFields);
    object("streaks", analysis.streaks, kStreakFields);
    object("distribution", analysis.distribution, kDistributionFields);
    object("ratios", analysis.ratios, kRatioFields);
    list("products", analysis.products, kProductFields);
    list("contracts", analysis.contracts, kContractFields);
    list("sides", analysis.sides, kSideFields);
    list("exchanges", analysis.exchanges, kExchangeFields);
    list("closedMonths", analysis.closedMonths, kClosedMonthFields);
    list("concentration", analysis.concentration, kConcentrationFields);
    object("margin", analysis.margin, kMarginFields);
    list("margin.products", analysis.margin.products, kProductMarginFields);
    list("open", analysis.open, kOpenPositionFields);
    list("cashKinds", analysis.cashKinds, kCashKindFields);
}

}  // namespace tradebill
