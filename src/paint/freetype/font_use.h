// One piece of work on fonts, all of it or nothing.
#pragma once

#include <mutex>

namespace tradebill {

/// Holds FontLock() for as long as it lives. If an exception ends the work, all that is kept of fonts is forgotten: no
/// face that lacks a table, and no glyph that lacks its picture, is met again.
class CFontUse {
public:
    CFontUse();
    ~CFontUse();
    CFontUse(const CFontUse&) = delete;
    CFontUse& operator=(const CFontUse&) = delete;

private:
    std::unique_lock<std::recursive_mutex> guard_;
    int exceptions_;  ///< under way when it began
};

}  // namespace tradebill
