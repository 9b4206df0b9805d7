#include "readers/layout_table.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"
#include "readers/fixed_readers.h"

namespace tradebill {
namespace {

constexpr LayoutMarks kClassMarks{.mark = "资金类别"_gbk};
constexpr LayoutMarks kStatusMarks{.mark = "资金状况"_gbk, .yieldsToFramed = true};
constexpr LayoutMarks kBillMarks{.mark = "客户帐单_资金清单"_gbk, .sharesSheets = true};
constexpr LayoutMarks kTabulatedMarks{.mark = "制表时间："_gbk, .isFramed = true, .needsFramedRows = true};
constexpr LayoutMarks kBilingualMarks{.mark = "客户权益 Client Equity：："_gbk, .isFramed = true};
constexpr LayoutMarks kNewBilingualMarks{
    .mark = "客户权益 Client Equity:"_gbk, .isFramed = true, .needsTemplate = true};
constexpr LayoutMarks kSpacedMarks{.mark = "成 交 记 录 单"_gbk,
                                   .instead = "资 金 清 单"_gbk};  // on days without trades
constexpr LayoutMarks kForeignMarks{.mark = "资金汇总"_gbk, .alongside = "Base"};

// clang-format off
constexpr Layout kLayouts[] = {
    {"fund-class",             0, false, PremiumRule::Any,     kClassMarks,        ReadFundClassStatement},
    {"fund-status",            1, false, PremiumRule::Without, kStatusMarks,       ReadFundStatusStatement},
    {"fund-status-premium",    1, false, PremiumRule::With,    kStatusMarks,       ReadFundStatusPremiumStatement},
    {"client-bill",            2, false, PremiumRule::Without, kBillMarks,         ReadClientBillStatement},
    {"client-bill-premium",    2, false, PremiumRule::With,    kBillMarks,         ReadClientBillPremiumStatement},
    {"tabulated",              3, false, PremiumRule::Without, kTabulatedMarks,    ReadTabulatedStatement},
    {"bilingual",              3, false, PremiumRule::With,    kBilingualMarks,    ReadBilingualStatement},
    {"bilingual-new",          3, false, PremiumRule::With,    kNewBilingualMarks, ReadBilingualStatementNew},
    {"spaced-title",           6, false, PremiumRule::Without, kSpacedMarks,       ReadSpacedTitleStatement},
    {"spaced-title-premium",   6, false, PremiumRule::With,    kSpacedMarks,       ReadSpacedTitlePremiumStatement},
    {"client-bill",          201, false, PremiumRule::Without, kBillMarks,         ReadClientBillStatement},
    {"client-bill-premium",  201, false, PremiumRule::With,    kBillMarks,         ReadClientBillPremiumStatement},
    {"foreign",                0, true,  PremiumRule::Any,     kForeignMarks,      ReadForeignStatement},
};
// clang-format on

bool Fits(PremiumRule rule, std::string_view text) {
    return rule == PremiumRule::Any ||
           (FindText(text, PremiumWord()) != std::string_view::npos) == (rule == PremiumRule::With);
}

}  // namespace

std::span<const Layout> Layouts() {
    return kLayouts;
}

std::string_view PremiumWord() {
    return "权利金"_gbk;
}

const Layout* FindLayout(std::int32_t format, std::string_view text) {
    for (const Layout& layout : kLayouts) {
        if (!layout.isForeign && layout.format == format && Fits(layout.premium, text)) return &layout;
    }
    return nullptr;
}

const Layout& ForeignLayout() {
    return *std::ranges::find_if(kLayouts, &Layout::isForeign);
}

}  // namespace tradebill
