// Lines that fit a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tradebill {

/// How many columns of a terminal UTF-8 `text` takes: two for a character of Chinese, Japanese or Korean.
[[nodiscard]] std::size_t ColumnsOf(std::string_view text);

/// `text`, which begins at the column `indent`, broken into lines that end before `columns`, at blanks and between
/// Chinese characters; those behind the first begin with `indent` blanks. A word that is longer stays whole. Without a
/// line feed at the end.
[[nodiscard]] std::string WrappedText(std::string_view text, std::size_t columns, std::size_t indent);

}  // namespace tradebill
