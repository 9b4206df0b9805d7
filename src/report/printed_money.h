// The money figures that statements print, whether a MoneyRecord has a field for them or not: what the account's
// balances are proven with. Kept only in runs that are asked to.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tradebill {

enum class PrintedFigure : std::uint8_t {
    Opening,
    Closing,
    Equity,
    CashFlow,  ///< deposits less withdrawals
    Deposits,
    Withdrawals,
    ClosedPL,
    PositionPL,  ///< mark to market
    DayPL,       ///< of closed and open positions together
    FloatingPL,  ///< since the opening of the positions
    ExercisePL,
    Fees,
    ExerciseFees,
    DeliveryFees,
    Premium,  ///< received less paid
    PremiumReceived,
    PremiumPaid,
    PledgeChange,
    FxPledgeChange,
    Margin,
    DeliveryMargin,
    Frozen,
    Available,
    Count
};

inline constexpr std::size_t kPrintedFigures = static_cast<std::size_t>(PrintedFigure::Count);

/// What one statement prints of one currency; of a domestic account there is one without a name. Amounts are in
/// 1/10000, as base/decimal.h has them.
struct PrintedMoney {
    std::string Day;       ///< of the statement's file, yyyymmdd
    std::string Currency;  ///< GBK
    bool IsBase = false;   ///< the column of a foreign account that holds all currencies together
    int Row = 0;           ///< of the file, from 1: where the figures begin
    std::array<std::optional<std::int64_t>, kPrintedFigures> Figures{};
    std::int64_t OptionTurnover = 0;  ///< of the option trades: sold less bought

    [[nodiscard]] const std::optional<std::int64_t>& operator[](PrintedFigure figure) const {
        return Figures[static_cast<std::size_t>(figure)];
    }
    [[nodiscard]] std::optional<std::int64_t>& operator[](PrintedFigure figure) {
        return Figures[static_cast<std::size_t>(figure)];
    }
    /// 0 for what isn't printed.
    [[nodiscard]] std::int64_t Amount(PrintedFigure figure) const { return (*this)[figure].value_or(0); }
};

/// Oldest statement first.
using PrintedMoneyList = std::vector<PrintedMoney>;

}  // namespace tradebill
