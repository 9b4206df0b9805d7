#include "readers/layout_marks.h"

#include <algorithm>
#include <cmath>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "readers/section_scan.h"

namespace tradebill {
namespace {

constexpr std::int32_t kFundStatusFormat = 1;
constexpr std::int32_t kFramedFormat = 3;  // tables framed by bars
constexpr std::int32_t kSpacedFormat = 6;
constexpr std::int32_t kEquityByMargin = 2;     // equity is margin and available funds together
constexpr std::int32_t kEquityAsPrinted = 201;  // equity is what the sheet prints, or the closing balance

bool HasFramedRows(std::string_view text) {
    std::vector<std::string_view> rows;
    SplitText(text, "\n", rows);
    return std::ranges::any_of(rows, [](std::string_view row) { return row.starts_with('|'); });
}

/// The marks as the table has them, but for those that stand in other layouts too.
bool ShowsMark(const Layout& layout, std::string_view text) {
    if (layout.isForeign) return Contains(text, layout.mark) && Contains(text, "Base");
    // Also on days without trades.
    if (layout.format == kSpacedFormat && Contains(text, "资 金 清 单"_gbk)) return true;
    if (!Contains(text, layout.mark)) return false;
    return layout.format != kFramedFormat || layout.premium == PremiumRule::With || HasFramedRows(text);
}

/// Where the money figures of a client bill stand.
struct BillFigures {
    std::size_t closing;
    std::size_t available;
    std::size_t margin;
};

/// Which of two formats with the same sheets; both if the figures don't tell.
std::vector<std::int32_t> ClientBillFormats(std::string_view text) {
    constexpr std::int32_t kMoneyRow = 4;
    constexpr std::size_t kColumnsWithEquity = 16;
    constexpr double kHalfACent = 0.005;
    const std::vector<std::int32_t> both{kEquityByMargin, kEquityAsPrinted};
    const SectionLayout money{.title = "客户帐单_资金清单"_gbk, .minColumns = 9};
    CSectionScan scan(text, SearchFrom::Top);
    const auto title = scan.FindTitle(money);
    const auto row = title ? scan.ReadRowBelow(*title, kMoneyRow, money) : std::nullopt;
    if (!row) return both;
    const bool withPremium = Contains(text, PremiumWord());
    if (withPremium && row->size() >= kColumnsWithEquity) return {kEquityAsPrinted};
    const BillFigures at = withPremium ? BillFigures{6, 7, 9} : BillFigures{5, 6, 8};
    if (at.margin >= row->size()) return both;
    const double byMargin = ParseAmount((*row)[at.available]) + ParseAmount((*row)[at.margin]);
    const bool alike = std::abs(byMargin - ParseAmount((*row)[at.closing])) < kHalfACent;
    return alike ? std::vector<std::int32_t>{kEquityByMargin} : both;
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
        if (ShowsMark(layout, text) && !hasFormat(layout)) marked.push_back(&layout);
    }
    // The framed layouts head their money block with the same words as the plain one.
    const bool isFramed = std::ranges::any_of(
        marked, [](const Layout* layout) { return !layout->isForeign && layout->format == kFramedFormat; });
    if (isFramed) std::erase_if(marked, [](const Layout* layout) { return layout->format == kFundStatusFormat; });
    return marked;
}

std::vector<const Layout*> LikelyLayouts(std::string_view text) {
    std::vector<const Layout*> likely = MarkedLayouts(text);
    std::erase_if(likely, [](const Layout* layout) { return layout->isForeign; });
    const auto isClientBill = [](const Layout* layout) {
        return layout->format == kEquityByMargin || layout->format == kEquityAsPrinted;
    };
    if (std::ranges::none_of(likely, isClientBill)) return likely;
    const std::vector<std::int32_t> formats = ClientBillFormats(text);
    std::erase_if(likely, [&](const Layout* layout) {
        return isClientBill(layout) && std::ranges::find(formats, layout->format) == formats.end();
    });
    return likely;
}

}  // namespace tradebill
