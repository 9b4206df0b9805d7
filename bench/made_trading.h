// A made-up account that trades every day, for data of any size: the same each time, and its figures agree from day to
// day. Lots are closed first in, first out; half of the trades open, half close.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

struct MadeProduct {
    std::string_view exchange;  ///< GBK
    std::string_view name;      ///< GBK
    int unit;
    double tick;
    double price;  ///< what its price comes back to
    double fee;    ///< per lot
    double marginRate;
};

[[nodiscard]] std::span<const MadeProduct> MadeProducts();

/// Lots of one opening trade that are still open.
struct MadeLot {
    std::size_t product;
    std::string delivery;  ///< yymm
    bool isLong;
    int lots;
    double openPrice;
    double mark;          ///< the price that its profit is counted from: of opening, then of each settlement
    std::string openDay;  ///< yyyymmdd
};

struct MadeTrade {
    MadeLot lot;  ///< that it opens or closes
    bool opens;
    double price;
    double fee;
    double closedPL;

    [[nodiscard]] bool Buys() const { return opens == lot.isLong; }
};

/// A lot at the end of the day; its mark is the settlement price.
struct MadePosition {
    MadeLot lot;
    double floatingPL;  ///< since opening
    double dailyPL;     ///< since the mark before
    double margin;
};

/// One day of the account. Prices are per product.
struct MadeDay {
    std::string day;  ///< yyyymmdd
    std::vector<double> formerPrices;
    std::vector<double> prices;
    std::vector<MadeTrade> trades;
    std::vector<MadePosition> positions;
    double opening = 0;
    double cashFlow = 0;
    double closedPL = 0;
    double positionPL = 0;
    double fees = 0;
    double margin = 0;
    double closing = 0;
};

struct TradingShape {
    int trades = 50;     ///< each day
    int positions = 20;  ///< lots open at the end of each day, about
};

class CMadeTrading {
public:
    explicit CMadeTrading(TradingShape shape);

    /// The next day. `day` is yyyymmdd.
    [[nodiscard]] MadeDay Next(const std::string& day);

private:
    /// From 0 to 1, the same numbers for each account.
    double Random();
    void MovePrices();
    [[nodiscard]] double PriceNear(std::size_t product, double former);
    [[nodiscard]] MadeTrade Open(const MadeDay& day);
    [[nodiscard]] MadeTrade CloseOldest(const MadeDay& day);
    void Trade(MadeDay& day);
    void Settle(MadeDay& day);

    TradingShape shape_;
    std::uint64_t state_ = 1;
    double balance_ = 100'000'000;
    std::vector<double> prices_;
    std::deque<MadeLot> lots_;
};

}  // namespace tradebill
