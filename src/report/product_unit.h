// The unit (multiplier) that a report uses for a product, and who said so.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tradebill {

enum class UnitSource {
    File,     ///< a file of the user
    Trades,   ///< the account's own trades
    Table,    ///< the table that the program carries
    Unknown,  ///< nobody knows the product: 1
    Waived,   ///< all units shall be 1
};

/// The name of a source in exports; "none" where the unit is 1 for want of one.
[[nodiscard]] std::string_view UnitSourceName(UnitSource source);

struct ProductUnit {
    std::string product;  ///< GBK, as ProductOfContract gives it
    std::int32_t unit = 1;
    UnitSource source = UnitSource::Unknown;

    bool operator==(const ProductUnit&) const = default;
};

}  // namespace tradebill
