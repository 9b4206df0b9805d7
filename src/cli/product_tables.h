// Contract units and product codes from the program's INI files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text_hash.h"
#include "report/product_source.h"

namespace tradebill {

/// Without a file every unit is 1, and names stay names.
class CProductTables final : public CProductSource {
public:
    /// Reads `[UNITS]`, product=unit. Throws CUsageError.
    void LoadUnits(const std::string& path);

    /// Reads `[PRODUCTS]`, name=code. Throws CUsageError.
    void LoadProducts(const std::string& path);

    /// Looks up the contract's text up to its first digit, without blanks and full-width blanks around it, to the
    /// letter; unknown products have unit 1.
    [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view delivery) const override;

    /// Looks up `name` to the letter.
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view name) const override;

private:
    TextMap<std::int32_t> units_;
    TextMap<std::string> codes_;
};

}  // namespace tradebill
