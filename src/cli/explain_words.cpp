#include "cli/explain_words.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"
#include "readers/layout_table.h"
#include "readers/scan_listener.h"
#include "requests/scan_report.h"

namespace tradebill {

namespace {

struct KindWords {
    SectionKind kind;
    std::string_view text;
};

struct FateWords {
    RowFate fate;
    std::string_view text;  ///< a short row says its columns instead
    std::string_view name;
};

// clang-format off
constexpr KindWords kKinds[] = {
    {SectionKind::Money,   "money"},
    {SectionKind::Trades,  "trades"},
    {SectionKind::Closed,  "closed positions"},
    {SectionKind::Open,    "open positions"},
    {SectionKind::Summary, "position summary"},
};

constexpr FateWords kFates[] = {
    {RowFate::Read,        "read",                                           "read"},
    {RowFate::TooShort,    "",                                               "too_short"},
    {RowFate::NoLots,      "no lots on either side",                         "no_lots"},
    {RowFate::Subtotal,    "a subtotal or count",                            "subtotal"},
    {RowFate::Heading,     "a heading, the exchange of the rows below",      "heading"},
    {RowFate::FirstOfPair, "the first of the two rows of a closed position", "first_of_pair"},
    {RowFate::Rule,        "a rule",                                         "rule"},
};
// clang-format on

const KindWords& WordsOf(SectionKind kind) {
    return *std::ranges::find(kKinds, kind, &KindWords::kind);
}

const FateWords& WordsOf(RowFate fate) {
    return *std::ranges::find(kFates, fate, &FateWords::fate);
}

}  // namespace

std::string_view KindText(SectionKind kind) {
    return WordsOf(kind).text;
}

std::string FateText(const PassedOverRow& row) {
    if (row.fate != RowFate::TooShort) return std::string(WordsOf(row.fate).text);
    return std::to_string(row.columns) + (row.columns == 1 ? " column, " : " columns, ") + std::to_string(row.needed) +
           " needed";
}

std::string_view FateName(RowFate fate) {
    return WordsOf(fate).name;
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
