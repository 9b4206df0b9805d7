// Tables framed with bars under headings in two languages, as the bilingual layout prints them.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

struct TextColumn {
    std::string_view heading;  ///< UTF-8
    std::string_view english;
    std::size_t width;  ///< columns of a terminal, of which a Chinese character fills two; more where a cell needs them
};

/// Blanks in front of `text` to `width` columns of a terminal.
[[nodiscard]] std::string AlignedRight(std::string_view text, std::size_t width);

/// `text` without what would part a row: bars and line ends.
[[nodiscard]] std::string CellText(std::string_view text);

/// The table of `rows`, whose last is that of the totals, with an empty line behind it. Lines end in a line feed.
[[nodiscard]] std::string TextTable(std::string_view title, std::span<const TextColumn> columns,
                                    std::span<const std::vector<std::string>> rows);

}  // namespace tradebill
