// Sums whose rounding doesn't grow with their length.
#pragma once

#include <cmath>

namespace tradebill {

/// Neumaier's sum: what each addition rounds off is kept and added in the end.
class CCompensatedSum {
public:
    void Add(double value) {
        const double sum = sum_ + value;
        const bool isLess = std::fabs(sum_) < std::fabs(value);
        lost_ += isLess ? (value - sum) + sum_ : (sum_ - sum) + value;
        sum_ = sum;
    }

    [[nodiscard]] double Total() const { return sum_ + lost_; }

private:
    double sum_ = 0;
    double lost_ = 0;
};

}  // namespace tradebill
