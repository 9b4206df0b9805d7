// The lines above a table that name its columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/cell_meaning.h"

namespace tradebill {

/// Parts of a line that blanks keep from each other.
[[nodiscard]] std::vector<std::string_view> WordsOf(std::string_view line);

/// Where something stands in its line, in bytes.
struct LineSpan {
    std::size_t begin;
    std::size_t end;
};

class CTableHeading {
public:
    void AddLine(std::string_view line);

    /// Of the cell behind so many bars.
    [[nodiscard]] Meaning AtBar(std::size_t column) const;

    /// Of word `index` of `count` in its row: by its number where the heading has as many, else by what stands above.
    [[nodiscard]] Meaning AtWord(const LineSpan& span, std::size_t index, std::size_t count) const;

private:
    struct Word {
        LineSpan span;
        Meaning meaning;
    };
    struct Line {
        std::vector<Word> words;
        bool hasBars;
    };
    std::vector<Line> lines_;
};

}  // namespace tradebill
