#include "platform/windows/far_line.h"

#include <cmath>

namespace tradebill {
namespace {

/// A line from 0 at its start to 1 at its end, as far as it isn't cut off.
struct LinePart {
    double begin = 0;
    double end = 1;

    /// Keeps what lies between both bounds along one axis.
    void Cut(double from, double to) {
        const double length = to - from;
        if (length == 0) {
            if (std::abs(from) > kFarthest) end = -1;
            return;
        }
        const double one = (-kFarthest - from) / length;
        const double other = (kFarthest - from) / length;
        begin = std::max(begin, std::min(one, other));
        end = std::min(end, std::max(one, other));
    }
};

std::int32_t Between(double from, double to, double part) {
    return Held(static_cast<std::int32_t>(std::llround(from + (to - from) * part)));
}

}  // namespace

std::optional<std::pair<Point, Point>> NearPartOf(Point from, Point to) {
    if (Held(from) == from && Held(to) == to) return std::pair(from, to);
    LinePart part;
    part.Cut(from.x, to.x);
    part.Cut(from.y, to.y);
    if (part.begin > part.end) return std::nullopt;
    const auto at = [&](double place) { return Point{Between(from.x, to.x, place), Between(from.y, to.y, place)}; };
    return std::pair(at(part.begin), at(part.end));
}

}  // namespace tradebill
