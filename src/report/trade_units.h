// What an account's own trades say of contract units: turnover is price times lots times unit.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_hash.h"
#include "report/product_unit.h"
#include "report/records.h"

namespace tradebill {

/// The first trade of a product that no unit of the trades before it explains, or no whole unit at all.
struct UnitContradiction {
    std::string day;       ///< yyyymmdd
    std::string contract;  ///< GBK
};

/// A tally of trades by product (ProductOfContract).
///
/// A trade counts that states price, lots and turnover, all above 0 and none cut by its field. It allows the units that
/// are right to the last printed digits: price and turnover may each be rounded by half of theirs, as the prices of
/// averaged fills are. What its figures give to the last digit is the unit that it names. Figures are decimals, and
/// exact.
class CTradeUnits {
public:
    void Feed(const MatchRecord& trade);

    /// The unit of a product, where all of its trades agree: they leave no other, or all of them name it. Index futures
    /// that go by a name (股指) are asked for as "IF" too.
    [[nodiscard]] std::optional<std::int32_t> UnitOf(std::string_view product) const;

    /// Nothing where all trades of the product agree.
    [[nodiscard]] std::optional<UnitContradiction> ContradictionOf(std::string_view product) const;

private:
    struct Figures;
    struct Range {
        std::int64_t least = 1;
        std::int64_t most = INT32_MAX;
    };
    struct Tally {
        Range range = {};                        ///< of the units that all trades allow
        std::optional<std::int64_t> named = {};  ///< the one that some of them name
        bool allNameIt = true;                   ///< nobody's figures were rounded
        std::optional<UnitContradiction> contradiction = {};
    };

    /// Nothing for a trade that doesn't count.
    [[nodiscard]] static std::optional<Figures> FiguresOf(const MatchRecord& trade);
    [[nodiscard]] static Range RangeOf(const Figures& figures);
    [[nodiscard]] static std::optional<std::int64_t> NamedBy(const Figures& figures);
    void Join(std::string_view product, const Figures& figures, const MatchRecord& trade);

    TextMap<Tally> tallies_;
};

/// A product whose unit in a report is doubtful.
struct DoubtfulUnit {
    ProductUnit used;
    std::optional<std::int32_t> byTrades;  ///< nothing: trades tell none, and neither does anybody else
};

/// The used units that trades contradict, and those that nobody knows; in their order. Units that shall be 1 are never
/// doubtful.
[[nodiscard]] std::vector<DoubtfulUnit> DoubtfulUnits(std::span<const ProductUnit> used, const CTradeUnits& trades);

}  // namespace tradebill
