// Wall-clock time of one action.
#pragma once

#include <algorithm>
#include <chrono>

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

}  // namespace tradebill
