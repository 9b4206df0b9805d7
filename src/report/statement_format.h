// The statement formats: in what the layouts of one number differ from those of another. Whoever must treat formats
// differently asks the row; which readers serve a format is told in readers/layout_table.h.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tradebill {

/// How a money record's equity follows from the statement.
enum class EquityRule {
    AsPrinted,
    MarginAndAvailable,  ///< no equity is printed: margin and available funds together
};

/// Which columns the page's table of trades has.
enum class TradeColumns { FundClass, FundStatus, Full };

struct StatementFormat {
    std::int32_t number;
    /// Product and delivery month stand in two columns: both together name a contract.
    bool namesDeliveryApart = false;
    bool printsNames = false;           ///< products go by their names, where others print codes
    bool showsExchangeOfClosed = true;  ///< the page names the exchange of closed positions
    EquityRule equity = EquityRule::AsPrinted;
    TradeColumns tradeColumns = TradeColumns::Full;
};

/// All formats that a fixed layout serves, by number.
[[nodiscard]] std::span<const StatementFormat> StatementFormats();

/// The row of `number`. A number that no row has, which a template may go with, is like one whose layouts print full
/// contract codes and an equity.
[[nodiscard]] const StatementFormat& FormatOf(std::int32_t number);

/// Whether a row has `number`.
[[nodiscard]] bool IsKnownFormat(std::int32_t number);

/// The numbers for people: "0, 1, 2".
[[nodiscard]] std::string FormatNumbers();

}  // namespace tradebill
