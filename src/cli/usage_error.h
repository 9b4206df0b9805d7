// What the program says when it was called wrongly: one clear line, exit code 2.
#pragma once

#include <stdexcept>

namespace tradebill {

class CUsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

}  // namespace tradebill
