// Whom a report asks about products: a terminal through its callbacks, the program through its files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "report/product_unit.h"

namespace tradebill {

/// Texts are GBK. Called on the run's thread: UnitOf once as a closed position is read, once as the page shows it and
/// once in an analysis, CodeOf for each open lot of a layout that prints names and for each product of an analysis.
class CProductSource {
public:
    CProductSource() = default;
    CProductSource(const CProductSource&) = delete;
    CProductSource& operator=(const CProductSource&) = delete;
    virtual ~CProductSource() = default;

    /// The unit (multiplier) of a contract. Contract and delivery month are 63 bytes at most.
    [[nodiscard]] virtual std::int32_t UnitOf(std::string_view contract, std::string_view delivery) const = 0;

    /// The code, of at most 31 bytes, of the product called `name`, which has as many; nothing if the name stays.
    [[nodiscard]] virtual std::optional<std::string> CodeOf(std::string_view name) const = 0;

    /// The units that were asked for, each product once, in the order of the first time; nothing where nobody keeps
    /// them.
    [[nodiscard]] virtual std::vector<ProductUnit> UsedUnits() const { return {}; }
};

}  // namespace tradebill
