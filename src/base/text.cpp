#include "base/text.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace tradebill {
namespace {

/// `rest` is trimmed, and stays so from part to part. A delimiter of one byte goes as a byte: memchr finds it.
template <class Delimiter>
void SplitAt(std::string_view rest, Delimiter delimiter, std::size_t delimiterSize,
             std::vector<std::string_view>& parts) {
    while (!rest.empty()) {
        const std::size_t at = rest.find(delimiter);
        if (at == std::string_view::npos) {
            parts.push_back(rest);
            return;
        }
        if (at > 0) parts.push_back(TrimRight(rest.substr(0, at)));
        rest = TrimLeft(rest.substr(at + delimiterSize));
    }
}

}  // namespace

std::size_t SplitText(std::string_view text, std::string_view delimiter, std::vector<std::string_view>& parts) {
    parts.clear();
    const std::string_view trimmed = Trim(text);
    if (trimmed.empty()) return 0;
    if (delimiter.empty()) {
        parts.push_back(trimmed);
    } else if (delimiter.size() == 1) {
        SplitAt(trimmed, delimiter.front(), 1, parts);
    } else {
        SplitAt(trimmed, delimiter, delimiter.size(), parts);
    }
    return parts.size();
}

}  // namespace tradebill
