#include "paint/gdi/far_line.h"

#include <cmath>

namespace tradebill {
namespace {

bool IsNear(Point point, std::int32_t limit) {
    const auto isBetween = [limit](std::int32_t value) { return value >= -limit && value <= limit; };
    return isBetween(point.x) && isBetween(point.y);
}

/// A line from 0 at its start to 1 at its end, as far as it isn't cut off.
struct LinePart {
    double begin = 0;
    double end = 1;

    /// Keeps what lies between both limits along one axis.
    void Cut(double from, double to, double limit) {
        const double length = to - from;
        if (length == 0) {
            if (std::abs(from) > limit) end = -1;
            return;
        }
        const double one = (-limit - from) / length;
        const double other = (limit - from) / length;
        begin = std::max(begin, std::min(one, other));
        end = std::min(end, std::max(one, other));
    }
};

}  // namespace

std::optional<std::pair<Point, Point>> NearPartOf(Point from, Point to, std::int32_t limit) {
    if (IsNear(from, limit) && IsNear(to, limit)) return std::pair(from, to);
    LinePart part;
    part.Cut(from.x, to.x, limit);
    part.Cut(from.y, to.y, limit);
    if (part.begin > part.end) return std::nullopt;
    const auto between = [limit](double first, double last, double place) {
        const auto value = static_cast<std::int32_t>(std::llround(first + (last - first) * place));
        return std::clamp(value, -limit, limit);
    };
    const auto at = [&](double place) { return Point{between(from.x, to.x, place), between(from.y, to.y, place)}; };
    return std::pair(at(part.begin), at(part.end));
}

}  // namespace tradebill
