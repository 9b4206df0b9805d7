// The parts of report_bench. Each prints its figures, with what they may be beside them; none judges. They throw
// std::runtime_error if something that is measured fails.
#pragma once

#include <string>

#include "bench_account.h"

namespace tradebill {

struct BenchSettings {
    std::string folder;  ///< where data and pages go: in memory, if the system has such a place
    int runs;
    bool isTiny;  ///< as little as shows that everything runs
};

/// The program and the unavoidable work in turn, as whole processes: time, memory, and what the exports add.
void ShowWholeReport(const BenchSize& size, const BenchAccount& account, const BenchSettings& settings);

/// A report that looks at a host's stop event against one that has none.
void ShowStopCost(const BenchAccount& account, const BenchSettings& settings);

/// What a row costs with more and more days.
void ShowRowCosts(const BenchSettings& settings);

/// Reading and keeping alone, layout by layout.
void ShowLayouts(const BenchSettings& settings);

}  // namespace tradebill
