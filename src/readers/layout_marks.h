// What a statement's layout can be told by, for people who don't know its number. Reports never guess.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "readers/layout_table.h"

namespace tradebill {

/// The layouts whose marks stand in `text`, one for each format, in the order of the table; the foreign one last.
[[nodiscard]] std::vector<const Layout*> MarkedLayouts(std::string_view text);

/// Whether a layout of `format`, or the foreign one, is among them. Quicker than asking for all of them.
[[nodiscard]] bool BearsMarksOf(std::string_view text, std::int32_t format, bool isForeign);

/// The domestic layouts among them that read `text` differently: of two formats that print the same sheets, the
/// one that the money figures speak for, or both if they don't tell.
[[nodiscard]] std::vector<const Layout*> LikelyLayouts(std::string_view text);

}  // namespace tradebill
