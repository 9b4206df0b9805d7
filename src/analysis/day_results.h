// What the days of an account come to: the structs that Analyse fills from money records.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tradebill {

// Money is in base currency; rates are fractions, not per cent; days are yyyymmdd. A figure that is null has its reason
// in Analysis::reasons.

/// One day that has a money record. E is KHQY, C is CRJ, M is BZJZY, each divided by its record's rate.
struct DayResult {
    std::string day;
    /// E. Null if the record states none, or its rate is no number above 0.
    std::optional<double> equity;
    /// C: deposits less withdrawals. Where the statements' layout keeps none, the rest of the identity that the balance
    /// keeps, null if there is no such identity.
    std::optional<double> cashFlow;
    /// M. Null if the record states none.
    std::optional<double> margin;
    /// E(d) - E(d-1) - C(d); the first day's against its own opening balance. Null where one of them is. The first day
    /// of a foreign account has none if a position was open before it, since its opening balance leaves floating P/L
    /// out.
    std::optional<double> pl;
    /// pl / (E(d-1) + max(C(d), 0)). Null where pl is, where the base isn't above 0, and behind an index of 0.
    std::optional<double> dayReturn;
    /// Product of 1 + return, 1 before the first day. A null return leaves it as it is. Held at 0 from the day on where
    /// it isn't above 0.
    double index = 1;
    /// E(d) less all cash flow up to it. Null where one of them is.
    std::optional<double> moneyIndex;
    /// M / E. Null where one of them is, or E isn't above 0.
    std::optional<double> marginUse;
    /// |SXF| + |XQSXF|; what isn't stated counts as 0.
    double fees = 0;
    /// TURNOVER of the day's trades, added up. Null if a trade states none, and for foreign accounts.
    std::optional<double> turnover;
    /// Of the day's trades.
    std::int64_t lots = 0;
};

/// A time in which the index is below its highest value before.
struct Drawdown {
    /// Last day of the highest index before. Null if the starting balance is that.
    std::optional<std::string> peak;
    /// First day of the lowest index.
    std::string valley;
    /// First day at the peak's index again. Null while it lasts.
    std::optional<std::string> recovery;
    /// 1 - index of the valley / index of the peak; above 0, at most 1.
    double depth = 0;
    /// Money index of the peak (the opening equity, if the starting balance is it) less that of the valley. Null where
    /// one of them is.
    std::optional<double> money;
    /// Trading days from peak to valley.
    std::int64_t daysDown = 0;
    /// Trading days from valley to recovery. Null while it lasts.
    std::optional<std::int64_t> daysUp;
    /// From peak (or the first day) to recovery (or the last day).
    std::int64_t calendarDays = 0;
};

/// The days of a month or a year.
struct PeriodResult {
    /// yyyymm, or yyyy.
    std::string period;
    /// Index of its last day by that before its first, less 1. Null if none of its days has a return.
    std::optional<double> periodReturn;
    /// Of those days that have one, added up. Null if none has.
    std::optional<double> pl;
    double fees = 0;
    /// Highest and lowest return of a day. Null if none has one.
    std::optional<double> bestDay;
    std::optional<double> worstDay;
};

/// All days of one weekday.
struct WeekdayResult {
    /// 1 (Monday) to 7.
    std::int64_t weekday = 1;
    /// Those of the account, with a return or without.
    std::int64_t days = 0;
    /// Mean of the days' returns. Null if none has one.
    std::optional<double> meanReturn;
    /// Of those days that have one, added up. Null if none has.
    std::optional<double> pl;
    double fees = 0;
    /// Highest and lowest return of a day. Null if none has one.
    std::optional<double> bestDay;
    std::optional<double> worstDay;
};

/// Longest runs of days whose P/L is above or below 0; a flat day (|pl| <= 0.00005) ends both, as one without pl does.
struct Streaks {
    std::int64_t longestWin = 0;
    std::int64_t longestLoss = 0;
};

/// Of the days' returns. All are null without a return.
struct Distribution {
    std::optional<double> mean;
    /// With n - 1. 0 where it isn't above 1e-12 of the largest |return|. Null for one return.
    std::optional<double> deviation;
    /// Of the sample, with its correction for small n. Null for less than three returns, or a deviation of 0.
    std::optional<double> skewness;
    /// Excess of the sample, likewise corrected. Null for less than four returns, or a deviation of 0.
    std::optional<double> kurtosis;
    /// 5 % quantile, interpolated linearly.
    std::optional<double> quantile5;
};

/// Per year of N trading days (Analysis::tradingDays), but for the last two.
struct Ratios {
    /// index(last) ^ (N / days that have a return) - 1. Null without such a day, or beyond the range of doubles.
    std::optional<double> annualReturn;
    /// deviation x sqrt(N). Null where the deviation is.
    std::optional<double> volatility;
    /// mean / deviation x sqrt(N). Null where the deviation is null or 0.
    std::optional<double> sharpe;
    /// mean / sqrt(mean of min(return, 0)^2) x sqrt(N). Null if no return is below 0.
    std::optional<double> sortino;
    /// annualReturn / deepest drawdown. Null where annualReturn is, or without a drawdown.
    std::optional<double> calmar;
    /// Share of all days whose index is below its highest value before. Null without days.
    std::optional<double> timeUnderWater;
    /// The yearly rate (calendar days / 365) at which all payments are worth nothing together: in with the opening
    /// equity on the day before the first (a foreign account whose first pl is null: E of the first day on that day)
    /// and with each cash flow, out with the last day's equity. Null without change of sign between the factors 1e-6
    /// and 1e6, for less than 30 days, and where a payment is null.
    std::optional<double> moneyWeightedReturn;
};

}  // namespace tradebill
