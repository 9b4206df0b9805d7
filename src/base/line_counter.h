// Lines of a text, counted from 1.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/byte_mask.h"

namespace tradebill {

/// The line in which the byte at `at` stands; from 1.
[[nodiscard]] inline int LineAt(std::string_view text, std::size_t at) {
    return static_cast<int>(CountByte(text.substr(0, at), '\n')) + 1;
}

/// Where lines begin in a text that is looked at from top to bottom, mostly.
class CLineCounter {
public:
    void Begin(std::string_view text) {
        text_ = text;
        at_ = 0;
        line_ = 1;
    }

    /// The line of `row`, which points into the text; from 1.
    [[nodiscard]] int LineOf(std::string_view row) {
        const auto at = static_cast<std::size_t>(row.data() - text_.data());
        if (at >= at_) {
            line_ += static_cast<int>(CountByte(text_.substr(at_, at - at_), '\n'));
        } else {
            line_ -= static_cast<int>(CountByte(text_.substr(at, at_ - at), '\n'));
        }
        at_ = at;
        return line_;
    }

private:
    std::string_view text_;
    std::size_t at_ = 0;
    int line_ = 1;
};

}  // namespace tradebill
