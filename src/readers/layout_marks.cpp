#include "readers/layout_marks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "readers/layout_table.h"
#include "readers/section_scan.h"
#include "report/statement_format.h"

namespace tradebill {
namespace {

bool HasFramedRows(std::string_view text) {
    std::vector<std::string_view> rows;
    SplitText(text, "\n", rows);
    return std::ranges::any_of(rows, [](std::string_view row) { return row.starts_with('|'); });
}

bool ShowsMarks(const LayoutMarks& marks, std::string_view text) {
    if (!marks.instead.empty() && Contains(text, marks.instead)) return true;
    return Contains(text, marks.mark) && Contains(text, marks.alongside) &&
           (!marks.needsFramedRows || HasFramedRows(text));
}

/// Where the money figures of a client bill stand.
struct BillFigures {
    std::size_t closing;
    std::size_t available;
    std::size_t margin;
};

/// By which rule the figures of a client bill come to its equity; nothing if they don't tell.
std::optional<EquityRule> EquityRuleOfBill(std::string_view text) {
    constexpr std::int32_t kMoneyRow = 4;
    constexpr std::size_t kColumnsWithEquity = 16;
    constexpr double kHalfACent = 0.005;
    const SectionLayout money{.title = "客户帐单_资金清单"_gbk, .minColumns = 9};
    CSectionScan scan(text, SearchFrom::Top);
    const auto title = scan.FindTitle(money);
    const auto row = title ? scan.ReadRowBelow(*title, kMoneyRow, money) : std::nullopt;
    if (!row) return std::nullopt;
    const bool withPremium = Contains(text, PremiumWord());
    if (withPremium && row->size() >= kColumnsWithEquity) return EquityRule::AsPrinted;
    const BillFigures at = withPremium ? BillFigures{6, 7, 9} : BillFigures{5, 6, 8};
    if (at.margin >= row->size()) return std::nullopt;
    const double byMargin = ParseAmount((*row)[at.available]) + ParseAmount((*row)[at.margin]);
    const bool isAlike = std::abs(byMargin - ParseAmount((*row)[at.closing])) < kHalfACent;
    return isAlike ? std::optional(EquityRule::MarginAndAvailable) : std::nullopt;
}

}  // namespace

std::vector<const Layout*> MarkedLayouts(std::string_view text) {
    std::vector<const Layout*> marked;
    const auto hasFormat = [&](const Layout& layout) {
        return std::ranges::any_of(marked, [&](const Layout* other) {
            return other->isForeign == layout.isForeign && other->format == layout.format;
        });
    };
    for (const Layout& layout : Layouts()) {
        if (ShowsMarks(layout.marks, text) && !hasFormat(layout)) marked.push_back(&layout);
    }
    // The framed layouts head their money block with the same words as the plain one.
    const bool isFramed = std::ranges::any_of(marked, [](const Layout* layout) { return layout->marks.isFramed; });
    if (isFramed) std::erase_if(marked, [](const Layout* layout) { return layout->marks.yieldsToFramed; });
    return marked;
}

bool BearsMarksOf(std::string_view text, std::int32_t format, bool isForeign) {
    const auto isFramed = [&] {
        return std::ranges::any_of(
            Layouts(), [&](const Layout& layout) { return layout.marks.isFramed && ShowsMarks(layout.marks, text); });
    };
    return std::ranges::any_of(Layouts(), [&](const Layout& layout) {
        return layout.isForeign == isForeign && (isForeign || layout.format == format) &&
               ShowsMarks(layout.marks, text) && !(layout.marks.yieldsToFramed && isFramed());
    });
}

std::vector<const Layout*> LikelyLayouts(std::string_view text) {
    std::vector<const Layout*> likely = MarkedLayouts(text);
    std::erase_if(likely, [](const Layout* layout) { return layout->isForeign; });
    if (std::ranges::none_of(likely, [](const Layout* layout) { return layout->marks.sharesSheets; })) return likely;
    const std::optional<EquityRule> rule = EquityRuleOfBill(text);
    std::erase_if(likely, [&](const Layout* layout) {
        return rule && layout->marks.sharesSheets && FormatOf(layout->format).equity != *rule;
    });
    return likely;
}

}  // namespace tradebill
