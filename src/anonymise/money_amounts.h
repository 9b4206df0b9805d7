// The money section of a statement: figures that are sums of rows follow the changed rows, balances follow the figures,
// and each day opens with what the day before closes with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/sheet_watch.h"
#include "anonymise/statement_sheet.h"
#include "anonymise/table_amounts.h"
#include "readers/printed_money_reader.h"
#include "report/money_identity.h"
#include "report/printed_money.h"
#include "report/statement_format.h"

namespace tradebill {

/// The figures of one statement and currency, with the cells that they are printed in.
struct MoneyFigures {
    PrintedMoney money;
    std::array<std::vector<SheetCell*>, kPrintedFigures> cells = {};

    [[nodiscard]] std::vector<SheetCell*>& CellsOf(PrintedFigure figure) {
        return cells[static_cast<std::size_t>(figure)];
    }
};

/// Of a domestic statement; nothing if it has no money record. Its rows are marked as those of money.
///
/// REQUIRES: the tables of `sheet` are changed after this, since those rows aren't theirs.
[[nodiscard]] std::optional<MoneyFigures> FiguresOf(StatementSheet& sheet, const CSheetWatch& watch, EquityRule equity);

/// Of a foreign one, a column for each currency; the base comes first.
[[nodiscard]] std::vector<MoneyFigures> CurrencyFiguresOf(StatementSheet& sheet, const CSheetWatch& watch);

/// Sold less bought in trades of options.
[[nodiscard]] ChangedSum OptionTurnoverOf(StatementSheet& sheet);

/// Changes the money sections of an account's statements.
class CMoneyAmounts {
public:
    /// `identity` is what the account's balances keep; `factor` must outlive this.
    CMoneyAmounts(const CAmountFactor& factor, const MoneyIdentity& identity) : factor_(factor), identity_(identity) {}

    // REQUIRES, of both: statements come in the order of their days, and the tables of `sheet` are changed.

    void ChangeDomestic(StatementSheet& sheet, MoneyFigures figures, const std::vector<ColumnSum>& sums);
    void ChangeForeign(std::vector<MoneyFigures> figures, const std::vector<ColumnSum>& sums);

private:
    class CChange;

    /// Opens with what the last statement closed with.
    void ChangeOpening(CChange& change) const;

    const CAmountFactor& factor_;
    MoneyIdentity identity_;
    std::map<std::string, ChangedSum> closed_;  ///< by currency: what the last statement closed with
};

/// Changes what is left: amounts that nothing is known of.
void ChangeRest(StatementSheet& sheet, const CAmountFactor& factor);

}  // namespace tradebill
