// Figures that a day's workbook doesn't print for each position: the margin and the floating profit.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "intake/workbook_day.h"

namespace tradebill {

/// Contract units of one day: as its trades tell them, and else as a table has them.
class CDayUnits {
public:
    /// `units` is an INI file with [UNITS].
    CDayUnits(const WorkbookDay& day, std::string_view units);

    /// Nothing if nobody knows.
    [[nodiscard]] std::optional<std::int64_t> Of(const std::string& contract) const;

private:
    std::map<std::string, std::int64_t> units_;  // by product
};

/// The margin of each position, in cents that add up: what stands beside it, or its part by settlement value of that of
/// its contract, or of the account's, less what options have.
[[nodiscard]] std::vector<std::int64_t> MarginsOf(const WorkbookDay& day, const CDayUnits& units);

/// What a position has gained since it was opened; nothing if its unit isn't known.
[[nodiscard]] std::optional<std::int64_t> FloatingOf(const DayPosition& position, const CDayUnits& units);

}  // namespace tradebill
