// The money figures of a statement by their printed labels: also those that no field of a MoneyRecord takes. One table
// of words serves all layouts, since counters name the same figures alike and only space and punctuate them in their
// own ways.
#pragma once

#include <array>
#include <string_view>

#include "report/money_record.h"
#include "report/printed_money.h"
#include "report/statement_format.h"

namespace tradebill {

/// Where the money figures of a statement stand.
struct MoneyBlock {
    std::string_view text;      ///< the statement's
    std::string_view titleRow;  ///< of the money section; points into `text`
    std::string_view endRow;    ///< the row that ends it; empty if no row does
};

/// Where each figure of a statement is printed, in its text; empty for those that aren't.
using FigurePlaces = std::array<std::string_view, kPrintedFigures>;

/// Takes the figures of `block` into `money`, by labels in front of them or by a heading above them. They may go on
/// below the row that ends the section for its reader. What isn't known stays out. Sets Row to the title's line.
/// `places`, which may be null, gets the place of each.
void ReadPrintedMoney(const MoneyBlock& block, PrintedMoney& money, FigurePlaces* places = nullptr);

/// Fills what `money` lacks from `record`, for layouts whose labels only a template knows.
void CompleteFromRecord(const MoneyRecord& record, EquityRule equity, PrintedMoney& money);

/// The figures of one currency of a foreign statement.
void TakeForeignMoney(const MoneyRecord& record, PrintedMoney& money);

}  // namespace tradebill
