// Printed numbers as they are changed: scaled by an account's factor, and written back into their own width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/decimal.h"

namespace tradebill {

/// A number as it is printed.
struct PrintedNumber {
    std::int64_t steps = 0;  ///< as base/decimal.h counts
    int places = 0;          ///< that `steps` knows, at most 4
    int printedPlaces = 0;
    bool hasMarks = false;  ///< thousands commas
    bool hasPlus = false;
};

/// Nothing for what isn't a number as a whole.
[[nodiscard]] std::optional<PrintedNumber> ParsePrinted(std::string_view text);

/// `steps` in the form of `like`.
[[nodiscard]] std::string PrintedText(std::int64_t steps, const PrintedNumber& like);

/// Steps of one unit of the last place; of the fourth for more.
[[nodiscard]] constexpr std::int64_t UnitOf(int places) {
    std::int64_t unit = kDecimalSteps;
    for (int i = 0; i < places && unit > 1; ++i) unit /= 10;
    return unit;
}

/// To the nearest of the last place, halves away from 0. What is beyond all that can be printed is held to it.
[[nodiscard]] std::int64_t RoundedTo(std::int64_t steps, int places);

/// A factor between 0 and 1, so that numbers don't grow.
class CAmountFactor {
public:
    static constexpr std::int64_t kParts = 1000000;

    /// REQUIRES: `parts` is above 0 and below kParts.
    explicit CAmountFactor(std::int64_t parts) : parts_(parts) {}

    /// An amount, rounded to its places. It is never the amount that it was, unless that is 0.
    [[nodiscard]] std::int64_t OfAmount(std::int64_t steps, int places) const;

    /// The same, but a price that isn't 0 doesn't become 0, since units are worked out of it.
    [[nodiscard]] std::int64_t OfPrice(std::int64_t steps, int places) const;

    /// What is left over between figures: it may stay as it is.
    [[nodiscard]] std::int64_t OfRest(std::int64_t steps, int places) const;

private:
    std::int64_t parts_;
};

/// Where a text may be replaced by one of another length without moving anything else.
struct TextPlace {
    std::size_t at;
    std::size_t size;
};

/// Puts `number` into `text` at `place`. A shorter one is padded by blanks, where blanks are already; a longer one
/// takes those in front of it, but for one that parts it from its neighbour. False, with `text` unchanged, if there are
/// too few.
[[nodiscard]] bool PutNumber(std::string& text, const TextPlace& place, std::string_view number);

}  // namespace tradebill
