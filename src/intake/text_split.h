// A text of several statements cut into one for each day.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

struct SplitStatement {
    std::string_view text = {};           ///< from its title on, line ends included
    std::optional<std::string> day = {};  ///< yyyymmdd as it is printed; nothing: it states none
    bool isDayMade = false;               ///< the day is that on which the statement was made
};

struct StatementSplit {
    std::vector<SplitStatement> statements = {};  ///< at least one
    std::optional<std::string> account = {};      ///< that all of them state; nothing: they state none
    std::string refusal = {};                     ///< why they can't be told apart, or aren't those of days, UTF-8
};

/// Cuts `text`, GBK with CRLF, before the title of each statement of another day; what stands before the first title
/// goes with the first.
[[nodiscard]] StatementSplit SplitStatements(std::string_view text);

}  // namespace tradebill
