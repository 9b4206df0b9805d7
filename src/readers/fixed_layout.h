// The engine of the layouts whose money section is a block of labels and whose other sections are tables. A reader is
// one FixedLayout; there is no other code to it.
#pragma once

#include <span>
#include <string_view>

#include "readers/money_labels.h"
#include "readers/section_scan.h"
#include "readers/statement_text.h"
#include "readers/table_layout.h"

namespace tradebill {

/// Option premium that the money section states as income and payment.
struct PremiumWords {
    std::string_view income;
    std::string_view payment;
    LabelMatch match = LabelMatch::Contains;
};

struct FixedLayout {
    SearchFrom searchFrom = SearchFrom::Cursor;
    /// The date behind it is BILL_DATE, empty if the statement lacks the word. Without a date word the file's day is.
    std::string_view dateWord = {};
    bool skipsStoredDay = false;  ///< a date that the money store already holds ends the reader
    SectionLayout money;
    std::span<const MoneyLabel> labels;
    PremiumWords premium = {};  ///< with words QLJSZ is always income less payment
    TableLayout<MatchRecord> trades;
    TableLayout<PingDetail> closed;
    TableLayout<OpiDetail> open;
    SectionLayout summary = {};
    SidesLayout summarySides = {};  ///< without sides the layout has no summary
};

/// Reads a statement into `report`.
void ReadFixedLayout(const FixedLayout& layout, const StatementText& statement, CReport& report);

}  // namespace tradebill
