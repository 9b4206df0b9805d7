// Contract units and product codes as the program knows them: from its INI files, the account's trades, and the table
// that it carries.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text_hash.h"
#include "export/file_digest.h"
#include "report/product_source.h"
#include "report/product_unit.h"
#include "report/trade_units.h"
#include "requests/input_ini.h"

namespace tradebill {

/// Without any of them every unit is 1, and names stay names. Used by one run.
///
/// REQUIRES: all that it shall know is given before it is asked.
class CProductTables final : public CProductSource {
public:
    // Each returns the digest of what it read.

    /// Reads `[UNITS]`, product=unit, which alone decides. Throws CUsageError.
    FileDigest LoadUnits(const std::string& path);

    /// Takes the table that the program carries, for products of which the account's trades tell no unit.
    FileDigest LoadCarriedUnits();

    /// Reads `[PRODUCTS]`, name=code. Throws CUsageError.
    FileDigest LoadProducts(const std::string& path);

    /// Whether the account's trades have a say.
    [[nodiscard]] bool WantsTrades() const { return tableSource_ == UnitSource::Table; }
    /// Whether a file decides, which trades may contradict.
    [[nodiscard]] bool GoesByFile() const { return tableSource_ == UnitSource::File; }
    void UseTrades(CTradeUnits trades) { trades_ = std::move(trades); }

    /// All units shall be 1.
    void WaiveUnits() { waived_ = true; }

    /// Looks up the contract's product (ProductOfContract) to the letter; unknown ones have unit 1.
    [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view delivery) const override;

    /// Looks up `name` to the letter.
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view name) const override;

    [[nodiscard]] std::vector<ProductUnit> UsedUnits() const override { return used_; }

private:
    void TakeUnits(const InputIni& ini);
    [[nodiscard]] ProductUnit Choose(std::string_view product) const;

    TextMap<std::int32_t> units_;
    UnitSource tableSource_ = UnitSource::Unknown;  ///< of `units_`
    CTradeUnits trades_;
    bool waived_ = false;
    // Asking is what a reader of a report does: what was asked is kept beside what is known.
    mutable std::vector<ProductUnit> used_;
    mutable TextMap<std::size_t> usedPlaces_;
    TextMap<std::string> codes_;
};

}  // namespace tradebill
