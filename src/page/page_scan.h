// How a full pass over a page reads it, and the look through what is appended for anything that such a pass would
// change.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tradebill {

inline constexpr std::string_view kHeadEnd = "</head>";

/// Takes the first line off `rest`, as a full pass reads it: its line end is the line feed with all carriage returns
/// before it.
[[nodiscard]] std::string_view TakePageLine(std::string_view& rest);

/// Whether ClosePage drops the line: it holds one of the tags that stand around the page.
[[nodiscard]] bool IsWrapperLine(std::string_view line);

class CPageScan {
public:
    /// Takes note of text appended to the page.
    void Feed(std::string_view text);

    /// The same of whole lines that are known to be plain and to open with a tag of their own.
    void TakePlainLines();

    /// No wrapper tag, no </head>, and no line end but "\r\n" so far: a full pass would keep every byte of it.
    [[nodiscard]] bool IsPlain() const { return isPlain_ && !tail_.ends_with('\r'); }
    [[nodiscard]] bool EndsInLine() const { return !tail_.empty() && tail_.back() != '\n'; }

private:
    void CheckTags(std::string_view text);
    void CheckLineEnds(std::string_view text, std::size_t from);

    bool isPlain_ = true;
    std::string tail_;  // the last few bytes, where a tag or line end may have begun
};

}  // namespace tradebill
