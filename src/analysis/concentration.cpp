#include "analysis/concentration.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <optional>

#include "analysis/compensated_sum.h"

namespace tradebill {

void CConcentration::Add(double part) {
    constexpr std::size_t kLargest = 5;
    const double size = std::fabs(part);
    all_.Add(size);
    largest_.push_back(size);
    std::ranges::push_heap(largest_, std::greater{});
    if (largest_.size() <= kLargest) return;
    std::ranges::pop_heap(largest_, std::greater{});
    largest_.pop_back();
}

std::optional<double> CConcentration::Share() const {
    if (!(all_.Total() > 0)) return std::nullopt;
    CCompensatedSum largest;
    for (const double size : largest_) largest.Add(size);
    return largest.Total() / all_.Total();
}

}  // namespace tradebill
