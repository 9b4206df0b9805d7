// What a closed row comes to, and all that it is grouped by.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analysis/closed_tally.h"

namespace tradebill {

class CProductNames;
class CReport;
class CTradeTally;
struct PingDetail;
struct ProductName;

/// Texts point into the report, the tally of its trades and its products' names.
struct GroupedRow {
    ClosedRow row;
    std::string_view currency;
    const ProductName& product;
    std::string contract;   ///< ContractKey
    std::string_view side;  ///< empty for a foreign row that doesn't tell
    std::string_view exchange;
    std::string month;  ///< empty for a row without a day
};

class CClosedRows {
public:
    /// REQUIRES: all three outlive this.
    CClosedRows(const CReport& report, const CTradeTally& trades, CProductNames& products)
        : report_(report), trades_(trades), products_(products) {}

    /// Of a row of the domestic store. Nothing for one that names no side: it has no P/L.
    [[nodiscard]] std::optional<GroupedRow> OfDomestic(const PingDetail& row) const;

    /// Of a row of the foreign store. Its P/L is the stated one: opening prices and units are missing.
    [[nodiscard]] GroupedRow OfForeign(const PingDetail& row) const;

private:
    [[nodiscard]] GroupedRow Begin(const PingDetail& row) const;
    void TakeDays(const PingDetail& row, GroupedRow& grouped) const;

    const CReport& report_;
    const CTradeTally& trades_;
    CProductNames& products_;
};

}  // namespace tradebill
