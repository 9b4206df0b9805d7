#include "base/text.h"

namespace tradebill {
namespace {

/// The common case: a delimiter of one byte is found by memchr.
void SplitAtByte(std::string_view rest, char delimiter, std::vector<std::string_view>& parts) {
    while (!rest.empty()) {
        const std::size_t at = rest.find(delimiter);
        if (at == std::string_view::npos) {
            parts.push_back(rest);
            return;
        }
        if (at > 0) parts.push_back(TrimRight(rest.substr(0, at)));
        rest = TrimLeft(rest.substr(at + 1));
    }
}

void SplitAtString(std::string_view rest, std::string_view delimiter, std::vector<std::string_view>& parts) {
    while (!rest.empty()) {
        const std::size_t at = rest.find(delimiter);
        if (at == std::string_view::npos) {
            parts.push_back(rest);
            return;
        }
        if (at > 0) parts.push_back(TrimRight(rest.substr(0, at)));
        rest = TrimLeft(rest.substr(at + delimiter.size()));
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
        SplitAtByte(trimmed, delimiter.front(), parts);
    } else {
        SplitAtString(trimmed, delimiter, parts);
    }
    return parts.size();
}

}  // namespace tradebill
