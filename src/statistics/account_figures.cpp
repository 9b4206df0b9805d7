#include "statistics/account_figures.h"

#include <cstdint>
#include <span>
#include <vector>

#include "base/number.h"
#include "report/account_statistics.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/report.h"

namespace tradebill {
namespace {

double EquityOf(const MoneyRecord& record) {
    return AmountIn(record.KHQY) / record.EXCHANGE_RATE;
}

std::vector<double> EquitiesOf(const CMoneyStore& store) {
    std::vector<double> equities;
    equities.reserve(store.Records.size());
    for (const auto& record : store.Records) equities.push_back(EquityOf(*record));
    return equities;
}

}  // namespace

double MaxDrawdownOf(std::span<const double> equities) {
    double drawdown = 0;
    bool hasPeak = false;
    double peak = 0;
    for (const double equity : equities) {
        if (hasPeak && peak - equity > drawdown) drawdown = peak - equity;
        if (equity == equity && (!hasPeak || equity > peak)) {  // a NaN is no peak and no fall
            peak = equity;
            hasPeak = true;
        }
    }
    return drawdown;
}

void ComputeAccountStatistics(CReport& report) {
    CAccountStatistics& figures = report.AccountStatistics;
    figures.MaxEquity = report.MoneyStore.MaxEquity;
    figures.MinEquity = report.MoneyStore.MinEquity;
    const std::vector<double> equities = EquitiesOf(report.MoneyStore);
    if (!equities.empty()) figures.InitialEquity = equities.front();
    figures.MaxDrawdown = MaxDrawdownOf(equities);
    const std::int32_t total = WrapAdd(WrapAdd(figures.WinCount, figures.LoseCount), figures.FlatCount);
    if (total > 0) figures.WinRate = static_cast<double>(figures.FlatCount + figures.WinCount) / total * 100;
    if (figures.InitialEquity > 0) figures.ProfitRate = figures.TotalPL / figures.InitialEquity * 100;
    figures.MaxYield = report.TradeStatistics.MaxYield() * 100;
    figures.MaxRisk = report.TradeStatistics.MaxRisk() * 100;
}

}  // namespace tradebill
