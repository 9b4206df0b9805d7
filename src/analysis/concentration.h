// How much of a sum hangs on its largest parts.
#pragma once

#include <optional>
#include <vector>

#include "analysis/compensated_sum.h"

namespace tradebill {

/// Gains and losses alike count by their size.
class CConcentration {
public:
    void Add(double part);

    /// The five largest by all; nothing if there is nothing.
    [[nodiscard]] std::optional<double> Share() const;

private:
    CCompensatedSum all_;
    std::vector<double> largest_;  // at most five, the least of them in front of the heap
};

}  // namespace tradebill
