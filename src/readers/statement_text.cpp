#include "readers/statement_text.h"

#include <cstddef>
#include <optional>
#include <string_view>

#include "base/text.h"

namespace tradebill {

std::optional<std::string_view> FindDate(std::string_view text, std::string_view dateWord) {
    const std::size_t at = FindText(text, dateWord);
    if (at == std::string_view::npos || at == 0) return std::nullopt;
    text.remove_prefix(at + dateWord.size());
    std::size_t length = 0;
    while (length < text.size() && (IsDigit(text[length]) || text[length] == '.' || text[length] == ' ')) ++length;
    return text.substr(0, length);
}

std::string_view ScanDate(std::string_view text, std::string_view dateWord) {
    return FindDate(text, dateWord).value_or(std::string_view());
}

}  // namespace tradebill
