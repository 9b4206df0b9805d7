// What a statement's layout can be told by, for people who don't know its number. Reports never guess.
#pragma once

#include <string_view>
#include <vector>

#include "readers/layout_table.h"

namespace tradebill {

/// The layouts whose marks stand in `text`, one for each format, in the order of the table; the foreign one last.
[[nodiscard]] std::vector<const Layout*> MarkedLayouts(std::string_view text);

/// The domestic layouts among them that read `text` differently: of two formats that print the same sheets, the
/// one that the money figures speak for, or both if they don't tell.
[[nodiscard]] std::vector<const Layout*> LikelyLayouts(std::string_view text);

}  // namespace tradebill
