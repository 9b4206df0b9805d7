#include "findings/layout_hint.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "readers/layout_marks.h"
#include "readers/layout_table.h"

namespace tradebill {

std::vector<const Layout*> FittingLayouts(std::string_view text) {
    std::vector<const Layout*> fitting = LikelyLayouts(text);
    std::ranges::copy_if(MarkedLayouts(text), std::back_inserter(fitting), &Layout::isForeign);
    return fitting;
}

std::string OptionFor(const Layout& layout, bool hasTemplate) {
    if (layout.isForeign) return "--kind foreign";
    const bool lacksTemplate = layout.marks.needsTemplate && !hasTemplate;
    return "--format " + std::to_string(layout.format) + (lacksTemplate ? " --template FILE.ini" : "");
}

}  // namespace tradebill
