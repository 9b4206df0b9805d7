// What margin an account ties up, and what it holds in the end: the structs that Analyse fills.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tradebill {

// Texts are GBK; days are yyyymmdd; uses are fractions of equity. A figure that is null has its reason in
// Analysis::reasons.

/// Margin of one product's open positions, both sides added up, by DEPOSIT of the rows of open positions (of their
/// summary, on days where these state none).
struct ProductMargin {
    /// As ClosedGroup names products.
    std::string product;
    std::string name;
    /// Of a foreign account, as printed; else empty.
    std::string currency;
    /// Days with margin.
    std::int64_t days = 0;
    /// Of those days.
    double mean = 0;
    double max = 0;
    /// The first of that margin.
    std::string maxDay;
    /// Highest margin / equity of a day. Null if no day has an equity above 0, and for foreign accounts.
    std::optional<double> maxUse;
};

/// Margin of one product's open positions on one day that has some.
struct ProductMarginDay {
    std::string day;
    /// As ClosedGroup names products.
    std::string product;
    std::string name;
    /// Of a foreign account, as printed; else empty.
    std::string currency;
    /// Above 0.
    double margin = 0;
};

/// Use of margin by days (DayResult::marginUse).
struct MarginResult {
    /// Null if no day has a use.
    std::optional<double> mean;
    std::optional<double> max;
    /// Days whose use is above 50, 80, 100 %.
    std::int64_t above50 = 0;
    std::int64_t above80 = 0;
    std::int64_t above100 = 0;
    /// Largest max first.
    std::vector<ProductMargin> products;
    /// In the order of the products, each with its days, oldest first.
    std::vector<ProductMarginDay> productDays;
};

/// One row of open positions (of their summary, where statements have no others) of the last statement, in its order.
struct OpenPosition {
    /// As ClosedGroup names contracts.
    std::string contract;
    /// "long" or "short"; empty if the row tells none.
    std::string side;
    /// Of a foreign account, as printed; else empty.
    std::string currency;
    std::int64_t lots = 0;
    /// Null if the row states none.
    std::optional<std::string> openDay;
    /// Calendar days from openDay to the statement. Null where that is.
    std::optional<std::int64_t> daysHeld;
    /// FLOATPL and DEPOSIT. Null if the row states none.
    std::optional<double> floatPl;
    std::optional<double> margin;
};

}  // namespace tradebill
