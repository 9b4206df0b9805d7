// Where the statements of a text begin: the lines that state an account and a day.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// One place that states whose statement follows, of which day, or both. A statement repeats it where each of its
/// sheets has a head.
struct StatementHead {
    std::size_t line = 0;  ///< the first of its lines, from 0
    std::optional<std::string> account = {};
    std::optional<std::string> day = {};  ///< yyyymmdd, as it is printed
    bool isRange = false;                 ///< another day follows: the text is of all days between them
    bool isDayMade = false;               ///< the day is that on which the statement was made
    bool isOfOtherForm = false;           ///< its labels are others than those of the text's first head
};

/// All heads of `lines`, from top to bottom. One with other labels than the first is only told if it states both.
[[nodiscard]] std::vector<StatementHead> FindHeads(const std::vector<std::string_view>& lines);

}  // namespace tradebill
