#include "anonymise/table_heading.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "anonymise/cell_meaning.h"
#include "base/text.h"

namespace tradebill {
namespace {

std::size_t Gap(std::size_t one, std::size_t other) {
    return one > other ? one - other : other - one;
}

}  // namespace

std::vector<std::string_view> WordsOf(std::string_view line) {
    std::vector<std::string_view> words;
    std::size_t begin = 0;
    for (std::size_t at = 0; at <= line.size(); ++at) {
        if (at < line.size() && !IsWhiteSpace(line[at])) continue;
        if (at > begin) words.push_back(line.substr(begin, at - begin));
        begin = at + 1;
    }
    return words;
}

void CTableHeading::AddLine(std::string_view line) {
    Line made{.words = {}, .hasBars = line.find('|') != std::string_view::npos};
    const auto add = [&](std::string_view word) {
        const auto begin = static_cast<std::size_t>(word.data() - line.data());
        made.words.push_back({{begin, begin + word.size()}, MeaningOfHeading(word)});
    };
    if (made.hasBars) {
        std::string_view row = Trim(line);
        if (row.starts_with('|')) row.remove_prefix(1);
        while (!row.empty()) {
            const std::size_t bar = std::min(row.find('|'), row.size());
            add(row.substr(0, bar));
            row.remove_prefix(std::min(bar + 1, row.size()));
        }
    } else {
        for (const std::string_view word : WordsOf(line)) add(word);
    }
    lines_.push_back(std::move(made));
}

Meaning CTableHeading::AtBar(std::size_t column) const {
    for (const Line& line : lines_) {
        if (!line.hasBars || column >= line.words.size()) continue;
        if (line.words[column].meaning != Meaning::Unknown) return line.words[column].meaning;
    }
    return Meaning::Unknown;
}

Meaning CTableHeading::AtWord(const LineSpan& span, std::size_t index, std::size_t count) const {
    for (const Line& line : lines_) {
        if (!line.hasBars && line.words.size() == count && line.words[index].meaning != Meaning::Unknown)
            return line.words[index].meaning;
    }
    for (const Line& line : lines_) {
        const Word* best = nullptr;
        for (const Word& word : line.words) {
            const bool isAbove = word.span.begin < span.end && span.begin < word.span.end;
            if (!isAbove) continue;
            if (best == nullptr || Gap(word.span.end, span.end) < Gap(best->span.end, span.end)) best = &word;
        }
        if (best != nullptr && best->meaning != Meaning::Unknown) return best->meaning;
    }
    return Meaning::Unknown;
}

}  // namespace tradebill
