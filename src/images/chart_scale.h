// The value axes of the account charts: where they begin and end, and how many ticks they have. Amounts that are
// infinite or no number still give a scale; that of equity and yields is finite even then.
#pragma once

#include <cstdint>
#include <optional>

namespace tradebill {

struct ChartScale {
    double minTick = 0;
    double maxTick = 0;
    double tickSpace = 0;
    std::int32_t numTicks = 0;             ///< intervals; at least 1
    std::optional<std::int32_t> decimals;  ///< of the tick labels, if the scale decides them
};

/// The step at or below an equity: nothing under 10,000, tens of thousands under 100,000, then hundreds of thousands.
[[nodiscard]] double FloorToStep(double equity);

/// The step above an equity; one that is a step already still moves up.
[[nodiscard]] double CeilToStep(double equity);

/// Intervals of `tick` that fill `range`; 10 if they can't be counted.
[[nodiscard]] std::int32_t TickIntervals(double range, double tick);

/// From step to step around the lowest and highest equity, the opening one among them. Never below zero.
[[nodiscard]] ChartScale EquityScale(double opening, double lowest, double highest);

/// Symmetrical about zero, in multiples of 0.05 beyond both ends.
[[nodiscard]] ChartScale YieldScale(double lowest, double highest);

/// A little beyond the worst and the best day. `tickSpace` is 0 only for amounts next to nothing.
[[nodiscard]] ChartScale RealisedScale(double worst, double best);

}  // namespace tradebill
