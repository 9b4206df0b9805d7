// The report's daily series. Readers feed it money figures and open positions while they read; two passes at the end
// (statistics/daily_series.h) turn them into the ratios that charts and account figures show: each day's use of margin
// (Risk) and the gain since the start (Yield).
//
// day_usage.h keeps the positions of one day; product_text.h tells under which product.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_hash.h"
#include "report/day_usage.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {

/// One day's money figures, in base currency.
struct DayFigure {
    std::string Day;  ///< yyyymmdd
    double ClosedPL = 0;
    double PositionPL = 0;
    double CashFlow = 0;
    double Opening = 0;
    double Closing = 0;
    double Yield = 0;  ///< gain since the start as a fraction, set by ComputeYields
};

/// Records of one kind under their day, in the order in which the days were first fed.
template <class Figures>
class CDaySeries {
public:
    std::vector<std::unique_ptr<Figures>> Days;

    /// The record of `day`, or null. Valid until Clear().
    [[nodiscard]] Figures* Find(std::string_view day) const {
        const auto found = byDay_.find(day);
        return found == byDay_.end() ? nullptr : found->second;
    }

    /// Likewise; a new one knows nothing but its day.
    Figures& FindOrCreate(std::string_view day) {
        if (latest_ != nullptr && latest_->Day == day) return *latest_;
        latest_ = Find(day);
        if (latest_ == nullptr) {
            latest_ = Days.emplace_back(std::make_unique<Figures>()).get();
            latest_->Day = day;
            byDay_.emplace(day, latest_);
        }
        return *latest_;
    }

    void Clear() {
        Days.clear();
        byDay_.clear();
        latest_ = nullptr;
    }

private:
    TextMap<Figures*> byDay_;
    Figures* latest_ = nullptr;  // of what was found or made; rows come day by day
};

class CTradeStatistics {
public:
    CDaySeries<CDayUsage> DayUsages;
    CDaySeries<DayFigure> DayFigures;

    /// Sets all figures of the record's day, each divided by the record's rate. Null does nothing.
    void FeedDayMoney(const MoneyRecord* record);

    // Each overwrites one figure of `day`; a new day starts with zeros.
    void SetClosedPL(std::string_view day, double amount);
    void SetPositionPL(std::string_view day, double amount);
    void SetCashFlow(std::string_view day, double amount);
    void SetOpening(std::string_view day, double amount);
    void SetEquity(std::string_view day, double equity, double margin);

    // Each adds a row to the net position of `product` on the row's day.
    void FeedOpiSum(const OpiSum& row, std::string_view product);
    void FeedOpiDetail(const OpiDetail& row, std::string_view product);

    // Figures of one day (yyyymmdd); 0 for a day that was never fed.
    // REQUIRES: for yields, that the passes over the daily series have run.
    [[nodiscard]] double RiskOf(std::string_view day) const;
    [[nodiscard]] double YieldOf(std::string_view day) const;

    // The highest of all days, taken from the first day on, however low; 0 without days.
    [[nodiscard]] double MaxRisk() const;
    [[nodiscard]] double MaxYield() const;

    void Clear();

private:
    void SetFigure(std::string_view day, double DayFigure::*figure, double amount);
    void AddRow(std::string_view billDate, std::string_view product, const PositionRow& row);
};

}  // namespace tradebill
