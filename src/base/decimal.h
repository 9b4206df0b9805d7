// Amounts as the decimals that a statement prints, for whoever compares them: 0.1 and 0.2 make 0.3 here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// Steps of a printed amount to one: amounts count in 1/10000.
inline constexpr std::int64_t kDecimalSteps = 10000;

struct Decimal {
    std::int64_t steps = 0;  ///< 1/10000
    int places = 0;          ///< digits printed behind the point, at most 4
    bool hasMarks = false;   ///< thousands are marked by commas

    /// Half a unit of the last printed place: how far the printed amount may lie from the true one.
    [[nodiscard]] constexpr std::int64_t Rounding() const { return HalfUnit(places); }

    [[nodiscard]] static constexpr std::int64_t HalfUnit(int places) {
        std::int64_t unit = kDecimalSteps;
        for (int i = 0; i < places; ++i) unit /= 10;
        return unit / 2;
    }
};

/// A sum that wraps where a broken file's amounts leave 64 bits.
[[nodiscard]] constexpr std::int64_t WrappingSum(std::int64_t left, std::int64_t right) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) + static_cast<std::uint64_t>(right));
}

/// A difference that wraps, as WrappingSum does.
[[nodiscard]] constexpr std::int64_t WrappingDifference(std::int64_t left, std::int64_t right) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) - static_cast<std::uint64_t>(right));
}

/// How far two amounts lie apart.
[[nodiscard]] constexpr std::uint64_t DistanceOf(std::int64_t one, std::int64_t other) {
    const auto left = static_cast<std::uint64_t>(one);
    const auto right = static_cast<std::uint64_t>(other);
    return one > other ? left - right : right - left;
}

/// `text` as a whole, white space around it aside: a sign, digits with or without thousands commas, a point and digits.
/// Digits behind the fourth place are cut. Nothing if it is no such number, or one of more than 13 whole digits, so
/// that a few dozen can be added up.
[[nodiscard]] std::optional<Decimal> ParseDecimal(std::string_view text);

/// "-1234.50": with two places, or as many more as it takes.
[[nodiscard]] std::string DecimalText(std::int64_t steps);

}  // namespace tradebill
