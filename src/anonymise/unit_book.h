// What the rows of tables have in common: a contract, lots and prices, and the units that turnovers tell.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/statement_sheet.h"

namespace tradebill {

/// What a row of a table holds, beside its amounts. The pointers point into its sheet.
struct RowFacts {
    std::string contract;  ///< with its delivery month where that stands apart; empty if the row names none
    std::string side;      ///< as printed
    std::string currency;  ///< likewise
    std::int64_t lots = 0;
    std::vector<SheetCell*> prices;
    SheetCell* turnover = nullptr;
};

[[nodiscard]] RowFacts FactsOf(StatementSheet& sheet, const SheetRow& row);

/// Nothing where it doesn't fit.
[[nodiscard]] std::optional<std::int64_t> ProductOf(std::int64_t one, std::int64_t other);

/// The units of an account's products, as its turnovers tell them.
class CUnitBook {
public:
    void Feed(StatementSheet& sheet);

    /// Of a contract as RowFacts has it; nothing if no turnover told.
    [[nodiscard]] std::optional<std::int64_t> Of(std::string_view contract) const;

private:
    std::map<std::string, std::int64_t, std::less<>> units_;
};

}  // namespace tradebill
