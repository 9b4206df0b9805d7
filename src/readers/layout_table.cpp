#include "readers/layout_table.h"

#include <algorithm>

#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {
namespace {

// clang-format off
constexpr Layout kLayouts[] = {
    {"fund-class",             0, false, PremiumRule::Any,     "资金类别"_gbk,                  ReadFundClassStatement},
    {"fund-status",            1, false, PremiumRule::Without, "资金状况"_gbk,                  ReadFundStatusStatement},
    {"fund-status-premium",    1, false, PremiumRule::With,    "资金状况"_gbk,                  ReadFundStatusPremiumStatement},
    {"client-bill",            2, false, PremiumRule::Without, "客户帐单_资金清单"_gbk,         ReadClientBillStatement},
    {"client-bill-premium",    2, false, PremiumRule::With,    "客户帐单_资金清单"_gbk,         ReadClientBillPremiumStatement},
    {"tabulated",              3, false, PremiumRule::Without, "制表时间："_gbk,                ReadTabulatedStatement},
    {"bilingual",              3, false, PremiumRule::With,    "客户权益 Client Equity：："_gbk, ReadBilingualStatement},
    {"bilingual-new",          3, false, PremiumRule::With,    "客户权益 Client Equity:"_gbk,   ReadBilingualStatementNew},
    {"spaced-title",           6, false, PremiumRule::Without, "成 交 记 录 单"_gbk,            ReadSpacedTitleStatement},
    {"spaced-title-premium",   6, false, PremiumRule::With,    "成 交 记 录 单"_gbk,            ReadSpacedTitlePremiumStatement},
    {"client-bill",          201, false, PremiumRule::Without, "客户帐单_资金清单"_gbk,         ReadClientBillStatement},
    {"client-bill-premium",  201, false, PremiumRule::With,    "客户帐单_资金清单"_gbk,         ReadClientBillPremiumStatement},
    {"foreign",                0, true,  PremiumRule::Any,     "资金汇总"_gbk,                  ReadForeignStatement},
};
// clang-format on

bool Fits(PremiumRule rule, std::string_view text) {
    return rule == PremiumRule::Any || Contains(text, PremiumWord()) == (rule == PremiumRule::With);
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
