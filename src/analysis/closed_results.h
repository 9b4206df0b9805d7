// What closed positions come to, group by group: the structs that Analyse fills from closed rows and trades.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tradebill {

// Texts are GBK. Money is in base currency, but for foreign accounts, where it is in that of the group. A figure that
// is null has its reason in Analysis::reasons.

/// Closed rows of one product, contract, side, exchange or month; of a foreign account in one currency. "By pl": a row
/// wins with pl above 0, is flat at 0 exactly and loses below. Rows that name no side have no pl and stay out.
struct ClosedGroup {
    /// Product: the code that the products' source has for it, else the contract up to its first digit, of an option
    /// that of its future. Contract: CONTRACT, with DELIVERY behind it where they stand apart. Side: "long" or "short".
    /// Exchange: the row's, or its contract's from the trades; empty if neither tells. Month: yyyymm of the closing.
    std::string key;
    /// Of a product that goes by a code: as statements print it. Empty for others.
    std::string name;
    /// Of a foreign account, as printed; else empty.
    std::string currency;
    /// Rows.
    std::int64_t count = 0;
    std::int64_t lots = 0;
    /// Lots x points of the position's side x unit, added up; for foreign accounts as stated.
    double pl = 0;
    /// OFFSETPL, added up. Null if a row states none.
    std::optional<double> statedPl;
    std::int64_t wins = 0;
    std::int64_t losses = 0;
    std::int64_t flats = 0;
    /// wins / count.
    std::optional<double> winRate;
    /// Mean pl of won rows. Null without any.
    std::optional<double> averageWin;
    /// Mean pl of lost rows, negative. Null without any.
    std::optional<double> averageLoss;
    /// Sum of wins / |sum of losses|. Null without a loss.
    std::optional<double> profitFactor;
    /// pl / count.
    std::optional<double> expectancy;
    /// Null without a win.
    std::optional<double> largestWin;
    /// Negative. Null without a loss.
    std::optional<double> largestLoss;
    /// Calendar days from opening to closing, by rows that state both. Null if none does.
    std::optional<double> medianHoldingDays;
    std::optional<double> meanHoldingDays;
    /// Share of those rows that were closed on the day of opening. Null if there is none.
    std::optional<double> intradayShare;
    /// Lots x (fee per lot of its product on the closing day + on the opening day), added up; a fee per lot is the fees
    /// of all trades of product and day / their lots. Null if no row has a day with trades.
    std::optional<double> fees;
    /// Lots of rows of which closing or opening day has no trade of their product in the report: that part of their
    /// fees is missing.
    std::int64_t lotsWithoutFees = 0;
    /// Lots x closing price x unit, added up. Null for foreign accounts.
    std::optional<double> turnover;
};

/// How much of the result hangs on few: the five largest |pl| / sum of all |pl|; of a foreign account one for each
/// currency. Null where that sum is 0.
struct Concentration {
    /// Of a foreign account, as printed; else empty.
    std::string currency;
    /// By products, by contracts, and by single closed rows.
    std::optional<double> products;
    std::optional<double> contracts;
    std::optional<double> rows;
};

}  // namespace tradebill
