// The figures of whatever a report keeps, by their names, as tables: for whoever shows all of them (the program's
// JSON). The text fields of records stand in record_fields.h.
#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

#include "report/account_statistics.h"
#include "report/day_usage.h"
#include "report/money_store.h"
#include "report/records.h"
#include "report/trade_statistics.h"

namespace tradebill {

/// Texts are GBK, and live as long as their owner.
using FigureValue = std::variant<double, std::int32_t, std::string_view>;

template <class Owner>
struct FigureField {
    std::string_view name;
    FigureValue (*value)(const Owner& owner);
    bool isInner = false;  ///< a step on the way to what the report shows; neither page nor pictures show it
};

namespace figures {

inline constexpr bool kInner = true;

template <class Member>
struct OwnerOf;
template <class Class, class Value>
struct OwnerOf<Value Class::*> {
    using Owner = Class;
};

/// The value of one member: Of<&DayFigure::Yield>.
template <auto Member>
FigureValue Of(const typename OwnerOf<decltype(Member)>::Owner& owner) {
    return owner.*Member;
}

}  // namespace figures

// clang-format off
inline constexpr FigureField<ContractOffset> kOffsetFigures[] = {
    {"LONG_VOL",         figures::Of<&ContractOffset::LONG_VOL>},
    {"SHORT_VOL",        figures::Of<&ContractOffset::SHORT_VOL>},
    {"LONG_PL",          figures::Of<&ContractOffset::LONG_PL>, figures::kInner},
    {"SHORT_PL",         figures::Of<&ContractOffset::SHORT_PL>, figures::kInner},
    {"LONG_COUNT",       figures::Of<&ContractOffset::LONG_COUNT>},
    {"SHORT_COUNT",      figures::Of<&ContractOffset::SHORT_COUNT>},
    {"LONG_WIN_COUNT",   figures::Of<&ContractOffset::LONG_WIN_COUNT>},
    {"SHORT_WIN_COUNT",  figures::Of<&ContractOffset::SHORT_WIN_COUNT>},
    {"LONG_WIN_VOL",     figures::Of<&ContractOffset::LONG_WIN_VOL>},
    {"SHORT_WIN_VOL",    figures::Of<&ContractOffset::SHORT_WIN_VOL>},
    {"LONG_WIN_PL",      figures::Of<&ContractOffset::LONG_WIN_PL>},
    {"SHORT_WIN_PL",     figures::Of<&ContractOffset::SHORT_WIN_PL>},
    {"LONG_LOSE_COUNT",  figures::Of<&ContractOffset::LONG_LOSE_COUNT>},
    {"SHORT_LOSE_COUNT", figures::Of<&ContractOffset::SHORT_LOSE_COUNT>},
    {"LONG_LOSE_VOL",    figures::Of<&ContractOffset::LONG_LOSE_VOL>},
    {"SHORT_LOSE_VOL",   figures::Of<&ContractOffset::SHORT_LOSE_VOL>},
    {"LONG_LOSE_PL",     figures::Of<&ContractOffset::LONG_LOSE_PL>},
    {"SHORT_LOSE_PL",    figures::Of<&ContractOffset::SHORT_LOSE_PL>},
    {"LONG_MAX_WIN",     figures::Of<&ContractOffset::LONG_MAX_WIN>},
    {"LONG_MAX_LOSS",    figures::Of<&ContractOffset::LONG_MAX_LOSS>},
    {"SHORT_MAX_WIN",    figures::Of<&ContractOffset::SHORT_MAX_WIN>},
    {"SHORT_MAX_LOSS",   figures::Of<&ContractOffset::SHORT_MAX_LOSS>},
};

inline constexpr FigureField<DayFigure> kDayFigures[] = {
    {"Day",        figures::Of<&DayFigure::Day>},
    {"ClosedPL",   figures::Of<&DayFigure::ClosedPL>},
    {"PositionPL", figures::Of<&DayFigure::PositionPL>},
    {"CashFlow",   figures::Of<&DayFigure::CashFlow>},
    {"Opening",    figures::Of<&DayFigure::Opening>},
    {"Closing",    figures::Of<&DayFigure::Closing>},
    {"Yield",      figures::Of<&DayFigure::Yield>},
};

inline constexpr FigureField<ContractPosition> kPositionFigures[] = {
    {"Product",    figures::Of<&ContractPosition::Product>},
    {"Side",       figures::Of<&ContractPosition::Side>},
    {"Lots",       figures::Of<&ContractPosition::Lots>},
    {"NetLots",    figures::Of<&ContractPosition::NetLots>},
    {"Day",        figures::Of<&ContractPosition::Day>},
    {"Margin",     figures::Of<&ContractPosition::Margin>},
    {"UnitMargin", figures::Of<&ContractPosition::UnitMargin>},
};

inline constexpr FigureField<CDayUsage> kUsageFigures[] = {
    {"Day",        figures::Of<&CDayUsage::Day>},
    {"Margin",     figures::Of<&CDayUsage::Margin>},
    {"Equity",     figures::Of<&CDayUsage::Equity>},
    {"HasFigures", figures::Of<&CDayUsage::HasFigures>, figures::kInner},
    {"Risk",       figures::Of<&CDayUsage::Risk>},
};

inline constexpr FigureField<CAccountStatistics> kAccountFigures[] = {
    {"WinCount",      figures::Of<&CAccountStatistics::WinCount>, figures::kInner},
    {"LoseCount",     figures::Of<&CAccountStatistics::LoseCount>, figures::kInner},
    {"FlatCount",     figures::Of<&CAccountStatistics::FlatCount>, figures::kInner},
    {"InitialEquity", figures::Of<&CAccountStatistics::InitialEquity>, figures::kInner},
    {"MaxEquity",     figures::Of<&CAccountStatistics::MaxEquity>, figures::kInner},
    {"MinEquity",     figures::Of<&CAccountStatistics::MinEquity>, figures::kInner},
    {"TotalPL",       figures::Of<&CAccountStatistics::TotalPL>, figures::kInner},
    {"MaxDrawdown",   figures::Of<&CAccountStatistics::MaxDrawdown>},
    {"WinRate",       figures::Of<&CAccountStatistics::WinRate>},
    {"ProfitRate",    figures::Of<&CAccountStatistics::ProfitRate>},
    {"MaxProfit",     figures::Of<&CAccountStatistics::MaxProfit>},
    {"MaxLoss",       figures::Of<&CAccountStatistics::MaxLoss>},
    {"MaxYield",      figures::Of<&CAccountStatistics::MaxYield>},
    {"MaxRisk",       figures::Of<&CAccountStatistics::MaxRisk>},
};

inline constexpr FigureField<CMoneyStore> kMoneyFigures[] = {
    {"LastHostCurrent", figures::Of<&CMoneyStore::LastHostCurrent>},
    {"OpeningEquity",   figures::Of<&CMoneyStore::OpeningEquity>},
    {"ClosingEquity",   figures::Of<&CMoneyStore::ClosingEquity>},
    {"TotalClosedPL",   figures::Of<&CMoneyStore::TotalClosedPL>},
    {"TotalPositionPL", figures::Of<&CMoneyStore::TotalPositionPL>},
    {"TotalCashFlow",   figures::Of<&CMoneyStore::TotalCashFlow>},
    {"FirstCashFlow",   figures::Of<&CMoneyStore::FirstCashFlow>, figures::kInner},
    {"Available",       figures::Of<&CMoneyStore::Available>},
    {"MinEquity",       figures::Of<&CMoneyStore::MinEquity>, figures::kInner},
    {"MaxEquity",       figures::Of<&CMoneyStore::MaxEquity>, figures::kInner},
    {"MinDayPL",        figures::Of<&CMoneyStore::MinDayPL>, figures::kInner},
    {"MaxDayPL",        figures::Of<&CMoneyStore::MaxDayPL>, figures::kInner},
    {"FrozenB",         figures::Of<&CMoneyStore::FrozenB>},
    {"FrozenA",         figures::Of<&CMoneyStore::FrozenA>},
    {"HostPositionPL",  figures::Of<&CMoneyStore::HostPositionPL>, figures::kInner},
    {"PositionMargin",  figures::Of<&CMoneyStore::PositionMargin>},
    {"Count",           [](const CMoneyStore& store) -> FigureValue { return store.Count(); }},
    {"TotalFees",       figures::Of<&CMoneyStore::TotalFees>},
    {"TotalPremium",    figures::Of<&CMoneyStore::TotalPremium>},
    {"StartDateText",   figures::Of<&CMoneyStore::StartDateText>},
    {"EndDateText",     figures::Of<&CMoneyStore::EndDateText>},
};
// clang-format on

}  // namespace tradebill
