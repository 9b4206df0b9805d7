#include "base/mutant_switch.h"

#include <cstdlib>

namespace tradebill {
namespace {

int NumberOf(const char* text) {
    return text == nullptr ? kNoMutant : std::atoi(text);
}

}  // namespace

int activeMutant = NumberOf(std::getenv("TRADEBILL_MUTANT"));
bool reachedMutants[kMostMutants] = {};

}  // namespace tradebill
