// The switch of mutants: each source that was given some asks it at every place that it passes.
#pragma once

namespace tradebill {

inline constexpr int kMostMutants = 100000;
inline constexpr int kNoMutant = 0;      ///< mutants count from 1
inline constexpr int kTellReached = -1;  ///< no mutant, but keep account of those that were asked for

extern int activeMutant;                   ///< TRADEBILL_MUTANT in the environment
extern bool reachedMutants[kMostMutants];  ///< since they were cleared

/// Whether `number` is the one that is switched on.
inline bool Mutant(int number) {
    if (activeMutant == kTellReached) reachedMutants[number] = true;
    return number == activeMutant;
}

}  // namespace tradebill
