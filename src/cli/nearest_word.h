// The word that somebody may have meant who typed another.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tradebill {

/// How many letters have to be put in, taken out, changed, or swapped with their neighbour to make one word of the
/// other (Damerau's distance, with no letter touched twice).
[[nodiscard]] std::size_t WordDistance(std::string_view one, std::string_view other);

/// The one of `words` that is nearest to `typed`, the first of several; empty if none is near: more than a third of its
/// letters would have to change, or all of a short one.
[[nodiscard]] std::string_view NearestWord(std::string_view typed, std::span<const std::string> words);

}  // namespace tradebill
