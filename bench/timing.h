// Wall-clock time of actions, and what many measurements come to.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace tradebill {

template <class Action>
double SecondsOf(Action action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The quickest of some runs: what the work costs when nothing else disturbs it.
template <class Action>
double LeastSecondsOf(int repeats, Action action) {
    double least = SecondsOf(action);
    for (int i = 1; i < repeats; ++i) least = std::min(least, SecondsOf(action));
    return least;
}

/// The same measured several times.
class CMeasurements {
public:
    void Add(double value) { values_.insert(std::ranges::upper_bound(values_, value), value); }

    // REQUIRES of all: there is a value.

    [[nodiscard]] double Least() const { return values_.front(); }
    [[nodiscard]] double Greatest() const { return values_.back(); }
    [[nodiscard]] double Median() const {
        const std::size_t middle = values_.size() / 2;
        return values_.size() % 2 != 0 ? values_[middle] : (values_[middle - 1] + values_[middle]) / 2;
    }

private:
    std::vector<double> values_;  ///< in order of size
};

}  // namespace tradebill
