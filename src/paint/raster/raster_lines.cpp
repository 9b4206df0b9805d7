#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "paint/geometry.h"
#include "paint/raster/raster.h"

namespace tradebill {
namespace {

/// The steps of a line along its longer axis that lie in [0, size): the first one, and the one behind the last.
struct Steps {
    std::int64_t first;
    std::int64_t last;
};

Steps VisibleSteps(std::int64_t start, std::int64_t direction, std::int64_t length, std::int64_t size) {
    const std::int64_t nearest = direction > 0 ? -start : start - (size - 1);
    const std::int64_t furthest = direction > 0 ? size - start : start + 1;
    return {std::max<std::int64_t>(0, nearest), std::min(length, furthest)};
}

struct Offset {
    std::int64_t across;
    std::int64_t along;
};

/// Half of a wide line's width, seen from its middle: the odd pixel goes to the right.
Offset HalfWidth(double a, double b, double extra) {
    return {static_cast<std::int64_t>((a + extra) / 2 + 0.5), static_cast<std::int64_t>((b + extra) / 2 + 0.5)};
}

}  // namespace

std::int64_t DivideUp(__int128 dividend, std::int64_t divisor) {
    const __int128 quotient = dividend / divisor;
    return static_cast<std::int64_t>(quotient + (dividend % divisor > 0 ? 1 : 0));
}

Box Sorted(const Box& box) {
    return {std::min(box.left, box.right), std::min(box.top, box.bottom), std::max(box.left, box.right),
            std::max(box.top, box.bottom)};
}

void CRaster::ClipTo(const std::optional<Box>& clip) {
    const Box whole = WholeOf(bitmap_);
    seen_ = clip ? Intersection(whole, *clip) : whole;
}

void CRaster::FillBox(FarPoint leftTop, FarPoint rightBottom, std::uint32_t pixel) {
    const std::int64_t left = std::max<std::int64_t>(leftTop.x, seen_.left);
    const std::int64_t right = std::min<std::int64_t>(rightBottom.x, seen_.right);
    const std::int64_t top = std::max<std::int64_t>(leftTop.y, seen_.top);
    const std::int64_t bottom = std::min<std::int64_t>(rightBottom.y, seen_.bottom);
    if (left >= right || top >= bottom) return;
    std::uint32_t* const lowest = bitmap_.Row(static_cast<std::int32_t>(bottom - 1)) + left;
    std::uint32_t* row = lowest;
    if (right - left == 1) {  // a grid's columns
        for (std::int64_t y = top; y < bottom; ++y, row += bitmap_.Width()) *row = pixel;
        return;
    }
    std::fill(row, row + (right - left), pixel);
    for (std::int64_t y = top + 1; y < bottom; ++y) std::copy_n(lowest, right - left, row += bitmap_.Width());
}

/// A thin line along a row or a column, without its last pixel.
void CRaster::DrawStraightLine(FarPoint from, FarPoint to, std::uint32_t pixel) {
    if (from.y == to.y) {
        const std::int64_t left = to.x > from.x ? from.x : to.x + 1;
        FillRow(left, left + std::abs(to.x - from.x), from.y, pixel);
    } else {
        const std::int64_t top = to.y > from.y ? from.y : to.y + 1;
        FillBox({from.x, top}, {from.x + 1, top + std::abs(to.y - from.y)}, pixel);
    }
}

/// One pixel for each step along the longer axis, at the nearest whole coordinate of the other; an exact half goes to
/// the smaller one, whichever way the line runs.
void CRaster::DrawThinLine(FarPoint from, FarPoint to, std::uint32_t pixel) {
    const std::int64_t dx = to.x - from.x;
    const std::int64_t dy = to.y - from.y;
    if (dx == 0 || dy == 0) {
        DrawStraightLine(from, to, pixel);
        return;
    }
    const bool isFlat = std::abs(dx) >= std::abs(dy);
    const std::int64_t length = isFlat ? std::abs(dx) : std::abs(dy);
    const std::int64_t direction = (isFlat ? dx : dy) > 0 ? 1 : -1;
    const std::int64_t rise = isFlat ? dy : dx;
    const std::int64_t start = isFlat ? from.x : from.y;
    const std::int64_t base = isFlat ? from.y : from.x;
    const auto [first, last] = VisibleSteps(start, direction, length, isFlat ? bitmap_.Width() : bitmap_.Height());
    if (first >= last) return;

    // other = base + ceil((2 * rise * step - length) / (2 * length)), kept as a quotient and what is missing to it.
    const __int128 dividend = static_cast<__int128>(2 * rise) * first - length;
    std::int64_t other = DivideUp(dividend, 2 * length);
    auto missing = static_cast<std::int64_t>(static_cast<__int128>(other) * 2 * length - dividend);
    for (std::int64_t step = first; step < last; ++step) {
        const std::int64_t along = start + direction * step;
        SetPixel(isFlat ? along : base + other, isFlat ? base + other : along, pixel);
        missing -= 2 * rise;
        if (missing < 0) {
            ++other;
            missing += 2 * length;
        } else if (missing >= 2 * length) {
            --other;
            missing -= 2 * length;
        }
    }
}

/// Whether anything within `reach` of the box between two points can be seen.
bool CRaster::IsSeen(FarPoint from, FarPoint to, std::int64_t reach) const {
    return std::max(from.x, to.x) + reach >= 0 && std::min(from.x, to.x) - reach < bitmap_.Width() &&
           std::max(from.y, to.y) + reach >= 0 && std::min(from.y, to.y) - reach < bitmap_.Height();
}

/// The filled ellipse of the pen's size around a point; of even sizes the larger part lies up and left.
void CRaster::DrawCap(FarPoint at, std::int32_t width, std::uint32_t pixel) {
    const std::int64_t left = at.x - width / 2;
    const std::int64_t top = at.y - width / 2;
    if (!IsSeen({left, top}, {left + width, top + width}, 0)) return;
    const auto x = static_cast<std::int32_t>(left);
    const auto y = static_cast<std::int32_t>(top);
    DrawEllipse({x, y, x + width, y + width}, {.width = 1, .pixel = pixel}, &pixel);
}

/// A quadrangle with two corners to each end; the larger half of the width is always on the right.
void CRaster::DrawSlantedBody(FarPoint from, FarPoint to, std::int32_t width, std::uint32_t pixel) {
    const auto dx = static_cast<double>(to.x - from.x);
    const auto dy = static_cast<double>(to.y - from.y);
    const double length = std::hypot(dx, dy);
    const double across = width * std::abs(dy) / length;
    const double along = width * std::abs(dx) / length;
    const Offset left = HalfWidth(across, along, 0);
    const Offset right = HalfWidth(across, along, 1);
    const std::int64_t down = (dx > 0) == (dy > 0) ? -1 : 1;  // of a line that falls to the right, the upper corner
    const auto leftOf = [&](FarPoint at) { return FarPoint{at.x - left.across, at.y - down * left.along}; };
    const auto rightOf = [&](FarPoint at) { return FarPoint{at.x + right.across, at.y + down * right.along}; };
    const FarPoint body[] = {leftOf(from), rightOf(from), rightOf(to), leftOf(to)};
    FillFigure(body, FillRule::Alternate, pixel);
}

void CRaster::DrawWideLine(FarPoint from, FarPoint to, std::int32_t width, std::uint32_t pixel) {
    if (!IsSeen(from, to, width)) return;
    const std::int64_t half = width / 2;
    DrawCap(from, width, pixel);
    DrawCap(to, width, pixel);
    if (from.y == to.y) {
        FillBox({std::min(from.x, to.x), from.y - half}, {std::max(from.x, to.x), from.y - half + width}, pixel);
    } else if (from.x == to.x) {
        FillBox({from.x - half, std::min(from.y, to.y)}, {from.x - half + width, std::max(from.y, to.y)}, pixel);
    } else {
        DrawSlantedBody(from, to, width, pixel);
    }
}

void CRaster::DrawLine(Point from, Point to, const Stroke& stroke) {
    const FarPoint first{from.x, from.y};
    const FarPoint last{to.x, to.y};
    if (stroke.width <= 1) {
        DrawThinLine(first, last, stroke.pixel);
    } else {
        DrawWideLine(first, last, stroke.width, stroke.pixel);
    }
}

/// The outline of a box, its last column and row told, where each line leaves out its last pixel: of one pixel there is
/// nothing to see.
void CRaster::DrawThinBox(FarPoint leftTop, FarPoint last, std::uint32_t pixel) {
    if (leftTop == last) return;
    FillRow(leftTop.x, last.x + 1, leftTop.y, pixel);
    FillRow(leftTop.x, last.x + 1, last.y, pixel);
    FillBox({leftTop.x, leftTop.y + 1}, {leftTop.x + 1, last.y}, pixel);
    FillBox({last.x, leftTop.y + 1}, {last.x + 1, last.y}, pixel);
}

/// A box without width or height paints nothing at all, not even a line.
void CRaster::DrawBox(const Box& box, const Stroke& stroke, const std::uint32_t* brush) {
    const Box sorted = Sorted(box);
    if (sorted.left == sorted.right || sorted.top == sorted.bottom) return;
    const FarPoint leftTop{sorted.left, sorted.top};
    const FarPoint last{std::int64_t{sorted.right} - 1, std::int64_t{sorted.bottom} - 1};
    if (brush != nullptr) FillBox({leftTop.x + 1, leftTop.y + 1}, last, *brush);
    if (stroke.width <= 1) {
        DrawThinBox(leftTop, last, stroke.pixel);
    } else {
        DrawOutline({leftTop, {last.x, leftTop.y}, last, {leftTop.x, last.y}}, stroke.width, stroke.pixel);
    }
}

}  // namespace tradebill
