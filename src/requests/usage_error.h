// What the program says when it was called wrongly: one clear line, exit code 2, and the words of such lines.
#pragma once

#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string>

namespace tradebill {

class CUsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitFindings = 3;   ///< all was done, and something is wrong in what was read
inline constexpr int kExitTryAgain = 75;  ///< it was stopped or kept from its work: the same call is worth another try

/// What may be said, in words: "a, b or c".
template <class Rows, class NameOf>
[[nodiscard]] std::string OneOf(const Rows& rows, NameOf nameOf) {
    std::string text;
    std::size_t left = std::size(rows);
    for (const auto& row : rows) {
        text += nameOf(row);
        --left;
        text += left > 1 ? ", " : left == 1 ? " or " : "";
    }
    return text;
}

}  // namespace tradebill
