// The open positions of one day, net per product, and the margin that they tie up.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_hash.h"

namespace tradebill {

/// The net open position of one product on one day.
struct ContractPosition {
    std::string Product;    ///< the contract's text up to its first digit
    std::string Side;       ///< "买" or "卖"; empty until a row with lots has come
    std::int32_t Lots = 0;  ///< net
    double NetLots = 0;     ///< after the margins are offset; read by nothing
    std::string Day;        ///< of the row that opened the position
    double Margin = 1.0;
    double UnitMargin = 1.0;  ///< per lot
};

/// What one statement row adds to a position.
struct PositionRow {
    std::string_view day;
    std::string_view side;
    std::int32_t lots;
    double margin;
    bool isSummary;  ///< a summary row without lots is passed over; a detail row may even take lots away
};

class CDayUsage {
public:
    std::string Day;                                           ///< yyyymmdd
    std::vector<std::unique_ptr<ContractPosition>> Positions;  ///< in order of first appearance
    double Margin = 0;                                         ///< of the day; replaced where margins are offset
    double Equity = 0;
    std::int32_t HasFigures = 0;  ///< 1 once the day's money figures came in
    double Risk = 0;              ///< Margin / Equity

    /// Adds a row to the position of `product`, which is made if it isn't there.
    /// REQUIRES: rows come in the order of the statement: it decides side and margin per lot.
    void AddRow(std::string_view product, const PositionRow& row);

private:
    [[nodiscard]] ContractPosition* Find(std::string_view product);
    [[nodiscard]] ContractPosition& FindOrCreate(std::string_view product);

    TextMap<ContractPosition*> byProduct_;  // of a day with many products; empty for others
    ContractPosition* latest_ = nullptr;    // of what was found or made; lots of one product stand together
};

}  // namespace tradebill
