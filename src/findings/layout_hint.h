// Which layout a statement looks like, in the words of the program's options.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "readers/layout_table.h"

namespace tradebill {

/// The layouts that the marks in `text` speak for: the domestic ones that read it differently, and the foreign one.
[[nodiscard]] std::vector<const Layout*> FittingLayouts(std::string_view text);

/// "--format 2", "--kind foreign"; with a template's place where the layout needs one and `hasTemplate` says that none
/// is given.
[[nodiscard]] std::string OptionFor(const Layout& layout, bool hasTemplate);

}  // namespace tradebill
