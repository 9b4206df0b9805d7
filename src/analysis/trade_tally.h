// What an account's trades tell of its days, of fees and of exchanges.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "analysis/compensated_sum.h"
#include "analysis/product_names.h"
#include "base/text_hash.h"

namespace tradebill {

class CReport;

/// Of one day.
struct DayTrades {
    CCompensatedSum turnover;
    bool statesTurnover = true;  ///< of each trade
    std::int64_t lots = 0;
};

/// All trades of a report. Their day is that of their statement.
class CTradeTally {
public:
    /// Goes through the trades of `report`.
    CTradeTally(const CReport& report, CProductNames& products);

    /// Null for a day without trades.
    [[nodiscard]] const DayTrades* FindDay(std::int64_t day) const;

    /// |sum of POUNDAGE| / lots of the trades of `product` (ProductName::key) on `day`, in their currency. Nothing if
    /// there are none, or without lots.
    [[nodiscard]] std::optional<double> FeePerLot(std::string_view currency, std::string_view product,
                                                  std::int64_t day) const;

    /// Of the first trade of a contract (ContractKey) that names one; else empty.
    [[nodiscard]] std::string_view ExchangeOf(std::string_view contract) const;

private:
    struct Fees {
        CCompensatedSum amount;
        std::int64_t lots = 0;
    };
    using FeesByDay = std::unordered_map<std::int64_t, Fees>;

    std::unordered_map<std::int64_t, DayTrades> days_;
    TextMap<FeesByDay> fees_;  // by currency and product
    TextMap<std::string> exchanges_;
};

}  // namespace tradebill
