// Texts that are turned.
#pragma once

#include <cmath>
#include <cstdint>

#include "paint/escapement.h"
#include "paint/geometry.h"
#include "paint/raster/raster.h"

namespace tradebill {

/// Places along a text and down from its left top corner, for a font's escapement.
class CTurnedText {
public:
    /// `escapement` in tenths of a degree, counter-clockwise.
    CTurnedText(Point leftTop, std::int32_t escapement)
        : leftTop_(leftTop),
          cosine_(std::cos(EscapementRadians(escapement))),
          sine_(std::sin(EscapementRadians(escapement))) {}

    [[nodiscard]] FarPoint At(double along, double down) const {
        return {leftTop_.x + std::llround(along * cosine_ + down * sine_),
                leftTop_.y + std::llround(down * cosine_ - along * sine_)};
    }

private:
    Point leftTop_;
    double cosine_;
    double sine_;
};

}  // namespace tradebill
