#include "report/trade_statistics.h"

#include <cstddef>
#include <string_view>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "report/day_usage.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {

namespace {

constexpr double kSmallestNormal = 1.1754943508222875e-38;  // the smallest normal single-precision value
constexpr std::size_t kDayLength = 8;

template <class Figures>
double HighestOf(const CDaySeries<Figures>& series, double Figures::*figure) {
    if (series.Days.empty()) return 0;
    double highest = series.Days.front().get()->*figure;
    for (const auto& day : series.Days) {
        if (day.get()->*figure > highest) highest = day.get()->*figure;
    }
    return highest;
}

}  // namespace

void CTradeStatistics::FeedDayMoney(const MoneyRecord* record) {
    if (record == nullptr) return;
    const std::string_view day = FieldText(record->BILL_DATE);
    const double rate = record->EXCHANGE_RATE;
    SetClosedPL(day, AmountIn(record->PCYK) / rate);
    SetPositionPL(day, AmountIn(record->CCDSYK) / rate);
    SetCashFlow(day, AmountIn(record->CRJ) / rate);
    SetOpening(day, AmountIn(record->QCQY) / rate);
    SetEquity(day, AmountIn(record->QMJC) / rate, AmountIn(record->BZJZY) / rate);
}

void CTradeStatistics::SetFigure(std::string_view day, double DayFigure::*figure, double amount) {
    DayFigures.FindOrCreate(day).*figure = amount;
}

void CTradeStatistics::SetClosedPL(std::string_view day, double amount) {
    SetFigure(day, &DayFigure::ClosedPL, amount);
}

void CTradeStatistics::SetPositionPL(std::string_view day, double amount) {
    SetFigure(day, &DayFigure::PositionPL, amount);
}

void CTradeStatistics::SetCashFlow(std::string_view day, double amount) {
    SetFigure(day, &DayFigure::CashFlow, amount);
}

void CTradeStatistics::SetOpening(std::string_view day, double amount) {
    SetFigure(day, &DayFigure::Opening, amount);
}

void CTradeStatistics::SetEquity(std::string_view day, double equity, double margin) {
    CDayUsage& usage = DayUsages.FindOrCreate(day);
    usage.Equity = equity;
    usage.Margin = margin;
    if (equity > kSmallestNormal) usage.Risk = margin / equity;
    usage.HasFigures = 1;
    SetFigure(day, &DayFigure::Closing, equity);
}

void CTradeStatistics::FeedOpiSum(const OpiSum& row, std::string_view product) {
    const std::string_view day = FieldText(row.BILL_DATE);
    const bool isLong = FieldText(row.BID) == "买"_gbk;
    AddRow(day, product,
           {.day = day,
            .side = isLong ? "买"_gbk : "卖"_gbk,
            .lots = IntegerIn(row.POSITION_VOL),
            .margin = AmountIn(row.DEPOSIT),
            .isSummary = true});
}

void CTradeStatistics::FeedOpiDetail(const OpiDetail& row, std::string_view product) {
    const std::string_view day = FieldText(row.BILL_DATE);
    const std::string_view bid = FieldText(row.BID);
    const bool isLong = bid == "买"_gbk || bid == "多"_gbk;
    AddRow(day, product,
           {.day = day,
            .side = isLong ? "买"_gbk : "卖"_gbk,
            .lots = IntegerIn(row.POSITION_VOL),
            .margin = AmountIn(row.DEPOSIT),
            .isSummary = false});
}

void CTradeStatistics::AddRow(std::string_view billDate, std::string_view product, const PositionRow& row) {
    DayUsages.FindOrCreate(billDate.substr(0, kDayLength)).AddRow(product, row);
}

double CTradeStatistics::RiskOf(std::string_view day) const {
    const CDayUsage* const usage = DayUsages.Find(day);
    return usage != nullptr ? usage->Risk : 0.0;
}

double CTradeStatistics::YieldOf(std::string_view day) const {
    const DayFigure* const figure = DayFigures.Find(day);
    return figure != nullptr ? figure->Yield : 0.0;
}

double CTradeStatistics::MaxRisk() const {
    return HighestOf(DayUsages, &CDayUsage::Risk);
}

double CTradeStatistics::MaxYield() const {
    return HighestOf(DayFigures, &DayFigure::Yield);
}

void CTradeStatistics::Clear() {
    DayUsages.Clear();
    DayFigures.Clear();
}

}  // namespace tradebill
