#include "cli/explain_words.h"

#include <algorithm>

#include "platform/text_encoding.h"
#include "readers/layout_table.h"

namespace tradebill {

std::string_view KindText(SectionKind kind) {
    switch (kind) {
        case SectionKind::Money:
            return "money";
        case SectionKind::Trades:
            return "trades";
        case SectionKind::Closed:
            return "closed positions";
        case SectionKind::Open:
            return "open positions";
        case SectionKind::Summary:
            return "position summary";
    }
    return {};
}

std::string_view KindName(SectionKind kind) {
    switch (kind) {
        case SectionKind::Money:
            return "money";
        case SectionKind::Trades:
            return "trades";
        case SectionKind::Closed:
            return "closed";
        case SectionKind::Open:
            return "open";
        case SectionKind::Summary:
            return "summary";
    }
    return {};
}

std::string FateText(const PassedOverRow& row) {
    switch (row.fate) {
        case RowFate::Read:
            return "read";
        case RowFate::TooShort:
            return std::to_string(row.columns) + (row.columns == 1 ? " column, " : " columns, ") +
                   std::to_string(row.needed) + " needed";
        case RowFate::NoLots:
            return "no lots on either side";
        case RowFate::Subtotal:
            return "a subtotal or count";
        case RowFate::Heading:
            return "a heading, the exchange of the rows below";
        case RowFate::FirstOfPair:
            return "the first of the two rows of a closed position";
    }
    return {};
}

std::string_view FateName(RowFate fate) {
    switch (fate) {
        case RowFate::Read:
            return "read";
        case RowFate::TooShort:
            return "too_short";
        case RowFate::NoLots:
            return "no_lots";
        case RowFate::Subtotal:
            return "subtotal";
        case RowFate::Heading:
            return "heading";
        case RowFate::FirstOfPair:
            return "first_of_pair";
    }
    return {};
}

std::string ReasonText(std::string_view layout) {
    const auto found = std::ranges::find(Layouts(), layout, &Layout::name);
    if (found == Layouts().end() || found->premium == PremiumRule::Any) return {};
    const std::string word = "\"" + GbkToUtf8(PremiumWord()) + "\"";
    const std::string name = std::string(layout) + " because ";
    if (found->premium == PremiumRule::Without) return name + word + " isn't in the text";
    const bool byDate = layout == "bilingual-new";
    return name + word + " is in the text" + (byDate ? " and the template's change date is reached" : "");
}

}  // namespace tradebill
