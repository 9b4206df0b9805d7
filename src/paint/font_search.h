// Fonts found ahead of the first text.
#pragma once

#include <memory>

namespace tradebill {

/// Looks for the fonts of a report's texts beside other work, for as long as it lives at most: its end waits for the
/// end of the search. Who asks for a font meanwhile waits as well, and gets what it would have got alone.
class CFontSearch {
public:
    /// Where fonts are ready at once, or no thread can be had, it does nothing.
    CFontSearch();
    ~CFontSearch();
    CFontSearch(const CFontSearch&) = delete;
    CFontSearch& operator=(const CFontSearch&) = delete;

private:
    struct Worker;
    std::unique_ptr<Worker> worker_;
};

}  // namespace tradebill
