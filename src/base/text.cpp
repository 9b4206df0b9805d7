#include "base/text.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/byte_mask.h"

namespace tradebill {
namespace {

using Parts = std::vector<std::string_view>;

/// White space that is no blank: a tab or a line end.
constexpr bool IsControl(char byte) {
    return byte >= '\t' && byte <= '\r';
}

/// Columns between runs of blanks: they begin and end where the mask of blanks changes.
void SplitAtBlanks(std::string_view text, Parts& parts) {
    std::uint64_t before = 1;  // whether the byte before the block is a blank; none counts as one
    std::size_t start = 0;
    bool isOpen = false;
    const auto add = [&](std::string_view part) {
        if (IsControl(part.front()) || IsControl(part.back())) part = Trim(part);
        if (!part.empty()) parts.push_back(part);
    };
    for (std::size_t at = 0; at < text.size(); at += kMaskedBytes) {
        const std::size_t size = std::min(kMaskedBytes, text.size() - at);
        const std::uint64_t blanks = EqualMask(text, at, ' ');
        std::uint64_t edges = blanks ^ (blanks << 1 | before);
        if (size < kMaskedBytes) edges &= (std::uint64_t{1} << size) - 1;
        before = blanks >> (kMaskedBytes - 1);
        for (; edges != 0; edges &= edges - 1) {
            const std::size_t edge = at + static_cast<std::size_t>(std::countr_zero(edges));
            if (isOpen) add({text.data() + start, edge - start});
            start = edge;
            isOpen = !isOpen;
        }
    }
    if (isOpen) add(text.substr(start));
}

/// Columns between bars and the like: each from the first to the last byte that is no white space.
void SplitAtByte(std::string_view text, char delimiter, Parts& parts) {
    std::size_t first = 0;
    std::size_t end = 0;  // of the column at hand; 0 while it has shown nothing
    const auto close = [&] {
        if (end != 0) parts.push_back(text.substr(first, end - first));
        end = 0;
    };
    for (std::size_t at = 0; at < text.size(); at += kMaskedBytes) {
        const std::size_t size = std::min(kMaskedBytes, text.size() - at);
        std::uint64_t delimiters = EqualMask(text, at, delimiter);
        std::uint64_t shown = ~(WhiteSpaceMask(text, at) | delimiters);
        if (size < kMaskedBytes) shown &= (std::uint64_t{1} << size) - 1;
        for (;;) {
            const std::uint64_t column = delimiters != 0 ? (delimiters & (~delimiters + 1)) - 1 : ~std::uint64_t{0};
            if (const std::uint64_t seen = shown & column; seen != 0) {
                if (end == 0) first = at + static_cast<std::size_t>(std::countr_zero(seen));
                end = at + static_cast<std::size_t>(std::bit_width(seen));
                shown &= ~column;
            }
            if (delimiters == 0) break;
            close();
            delimiters &= delimiters - 1;
        }
    }
    close();
}

/// Rows, which are long enough for memchr, or parts at a delimiter of several bytes.
template <class Delimiter>
void SplitAt(std::string_view rest, Delimiter delimiter, std::size_t delimiterSize, Parts& parts) {
    rest = Trim(rest);  // and stays so from part to part
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

std::size_t FindText(std::string_view text, std::string_view word) {
    if (word.empty() || word.size() > text.size()) return text.find(word);
    const std::string_view starts = text.substr(0, text.size() - word.size() + 1);
    const std::string_view ends = text.substr(word.size() - 1);
    for (std::size_t at = 0; at < starts.size(); at += kMaskedBytes) {
        std::uint64_t alike = EqualMask(starts, at, word.front()) & EqualMask(ends, at, word.back());
        for (; alike != 0; alike &= alike - 1) {
            const std::size_t start = at + static_cast<std::size_t>(std::countr_zero(alike));
            if (text.substr(start, word.size()) == word) return start;
        }
    }
    return std::string_view::npos;
}

std::size_t SplitText(std::string_view text, std::string_view delimiter, std::vector<std::string_view>& parts) {
    parts.clear();
    if (delimiter == " ") {
        SplitAtBlanks(text, parts);
    } else if (delimiter == "\n") {
        SplitAt(text, '\n', 1, parts);
    } else if (delimiter.size() == 1) {
        SplitAtByte(text, delimiter.front(), parts);
    } else if (!delimiter.empty()) {
        SplitAt(text, delimiter, delimiter.size(), parts);
    } else if (const std::string_view all = Trim(text); !all.empty()) {
        parts.push_back(all);
    }
    return parts.size();
}

}  // namespace tradebill
