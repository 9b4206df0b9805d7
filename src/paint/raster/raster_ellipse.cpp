#include <algorithm>
#include <cmath>
#include <numbers>

#include "paint/raster/raster.h"

namespace tradebill {
namespace {

constexpr std::int64_t kMostExact = 1 << 15;  // wide or high: up to here the rim is followed pixel by pixel
constexpr int kFarCorners = 4096;             // of what stands for the rim of a larger one

bool IsFar(const Box& box) {
    return std::max(std::int64_t{box.right} - box.left, std::int64_t{box.bottom} - box.top) > kMostExact;
}

/// The rim's quarter right and below the middle, from the right end down to the lowest row, by an integer error term.
/// Coordinates count from the box's left top corner.
Figure RimQuarter(std::int64_t width, std::int64_t height) {
    const std::int64_t a = width - 1;
    const std::int64_t b = height - 1;
    const std::int64_t odd = b % 2;
    const std::int64_t stepX = 8 * b * b;
    const std::int64_t stepY = 8 * a * a;
    std::int64_t dx = 4 * (1 - a) * b * b;
    std::int64_t dy = 4 * (odd + 1) * a * a;
    std::int64_t error = dx + dy + odd * a * a;
    Figure points;
    FarPoint at{a, height / 2};
    while (at.x >= width / 2) {
        points.push_back(at);
        const std::int64_t doubled = 2 * error;
        if (doubled >= dx) {
            --at.x;
            dx += stepX;
            error += dx;
        }
        if (doubled <= dy) {
            ++at.y;
            dy += stepY;
            error += dy;
        }
    }
    return points;
}

struct Direction {
    std::int64_t x;
    std::int64_t y;
    bool isLowerHalf;  ///< of a way round from the right end, over the top first

    Direction(std::int64_t toX, std::int64_t toY) : x(toX), y(toY), isLowerHalf(y > 0 || (y == 0 && x < 0)) {}
};

/// A pixel of the rim, and the direction in which it is looked at. Mirrored pixels are looked at in the mirrored
/// direction, so that of an even height both middle rows lie level with the middle.
struct RimPixel {
    FarPoint at;
    Direction direction;
};

/// The whole rim, counter-clockwise from the right end, no pixel twice in a row.
std::vector<RimPixel> Rim(std::int64_t width, std::int64_t height) {
    const Figure quarter = RimQuarter(width, height);
    std::vector<RimPixel> rim;
    const auto add = [&](FarPoint point, bool flipX, bool flipY) {
        const FarPoint placed{flipX ? width - 1 - point.x : point.x, flipY ? height - 1 - point.y : point.y};
        if (!rim.empty() && rim.back().at == placed) return;
        const FarPoint seen{point.x - width / 2, point.y - height / 2};
        rim.push_back({placed, {flipX ? -seen.x : seen.x, flipY ? -seen.y : seen.y}});
    };
    for (auto point = quarter.begin(); point != quarter.end(); ++point) add(*point, false, true);
    for (auto point = quarter.rbegin(); point != quarter.rend(); ++point) add(*point, true, true);
    for (auto point = quarter.begin(); point != quarter.end(); ++point) add(*point, true, false);
    for (auto point = quarter.rbegin(); point != quarter.rend(); ++point) add(*point, false, false);
    rim.back().direction.isLowerHalf = true;  // a whole turn, not the start of one
    return rim;
}

/// Corners on the rim of an ellipse too large to follow.
std::vector<RimPixel> FarRim(std::int64_t width, std::int64_t height) {
    std::vector<RimPixel> rim;
    for (int i = 0; i < kFarCorners; ++i) {
        const double angle = 2 * std::numbers::pi * i / kFarCorners;
        const double x = (1 + std::cos(angle)) / 2 * static_cast<double>(width - 1);
        const double y = (1 - std::sin(angle)) / 2 * static_cast<double>(height - 1);
        const FarPoint at{std::llround(x), std::llround(y)};
        rim.push_back({at, {at.x - width / 2, at.y - height / 2}});
    }
    return rim;
}

/// 1 if `direction` lies behind `other` on the way round from the right end, counter-clockwise; 0 if it is the same.
int Compare(const Direction& direction, const Direction& other) {
    if (direction.isLowerHalf != other.isLowerHalf) return direction.isLowerHalf ? 1 : -1;
    const __int128 cross = static_cast<__int128>(direction.x) * other.y - static_cast<__int128>(direction.y) * other.x;
    return cross > 0 ? 1 : cross < 0 ? -1 : 0;
}

/// The first rim pixel at or past a direction; below the middle, past it.
std::size_t FirstAt(const std::vector<RimPixel>& rim, const Direction& direction) {
    const int least = direction.y > 0 ? 1 : 0;
    for (std::size_t i = 0; i < rim.size(); ++i) {
        if (Compare(rim[i].direction, direction) >= least) return i;
    }
    return 0;
}

/// The rim of a box, in the bitmap's coordinates.
std::vector<RimPixel> RimIn(const Box& box) {
    const std::int64_t width = std::int64_t{box.right} - box.left;
    const std::int64_t height = std::int64_t{box.bottom} - box.top;
    std::vector<RimPixel> rim = IsFar(box) ? FarRim(width, height) : Rim(width, height);
    for (RimPixel& pixel : rim) pixel.at = {pixel.at.x + box.left, pixel.at.y + box.top};
    return rim;
}

}  // namespace

/// Joins the corners and closes.
void CRaster::DrawOutline(const Figure& corners, std::int32_t width, std::uint32_t pixel) {
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const FarPoint& next = corners[(i + 1) % corners.size()];
        if (width > 1) {
            DrawWideLine(corners[i], next, width, pixel);
        } else {
            DrawThinLine(corners[i], next, pixel);
        }
    }
}

/// Outline and fill come from the same pixels: a row's brush lies between its outermost ones.
const EllipseShape& CRaster::ShapeOf(std::int64_t width, std::int64_t height) {
    if (shape_.width == width && shape_.height == height) return shape_;
    shape_ = {.width = width, .height = height, .rim = {}, .rows = {}};
    shape_.rows.assign(static_cast<std::size_t>(height), {width, 0});
    for (const RimPixel& pixel : Rim(width, height)) {
        shape_.rim.push_back(pixel.at);
        EllipseShape::Extent& row = shape_.rows[static_cast<std::size_t>(pixel.at.y)];
        row = {std::min(row.left, pixel.at.x), std::max(row.right, pixel.at.x)};
    }
    return shape_;
}

void CRaster::DrawFarEllipse(const Box& box, const Stroke& stroke, const std::uint32_t* brush) {
    Figure corners;
    for (const RimPixel& corner : RimIn(box)) corners.push_back(corner.at);
    if (brush != nullptr) FillFigure(corners, FillRule::Alternate, *brush);
    DrawOutline(corners, stroke.width, stroke.pixel);
}

void CRaster::DrawEllipse(const Box& box, const Stroke& stroke, const std::uint32_t* brush) {
    constexpr std::int64_t kMostLikeABox = 2;  // wide or high
    const Box sorted = Sorted(box);
    const std::int64_t width = std::int64_t{sorted.right} - sorted.left;
    const std::int64_t height = std::int64_t{sorted.bottom} - sorted.top;
    if (std::min(width, height) <= kMostLikeABox) {
        DrawBox(sorted, stroke, brush);
        return;
    }
    if (IsFar(sorted)) {
        DrawFarEllipse(sorted, stroke, brush);
        return;
    }
    const EllipseShape& shape = ShapeOf(width, height);
    if (brush != nullptr) {
        std::int64_t y = sorted.top;
        for (const auto& row : shape.rows) FillRow(sorted.left + row.left, sorted.left + row.right, y++, *brush);
    }
    if (stroke.width > 1) {
        Figure rim = shape.rim;  // a wide pen's caps are ellipses themselves
        for (FarPoint& at : rim) at = {at.x + sorted.left, at.y + sorted.top};
        DrawOutline(rim, stroke.width, stroke.pixel);
    } else {
        for (const FarPoint& at : shape.rim) SetPixel(at.x + sorted.left, at.y + sorted.top, stroke.pixel);
    }
}

void CRaster::DrawPie(const Box& box, Point start, Point end, const Stroke& stroke, const std::uint32_t* brush) {
    const Box sorted = Sorted(box);
    if (sorted.left == sorted.right || sorted.top == sorted.bottom) return;
    const std::vector<RimPixel> rim = RimIn(sorted);
    if (rim.empty()) return;
    const FarPoint middle{sorted.left + (std::int64_t{sorted.right} - sorted.left) / 2,
                          sorted.top + (std::int64_t{sorted.bottom} - sorted.top) / 2};
    const auto directionOf = [&](Point point) { return Direction{point.x - middle.x, point.y - middle.y}; };
    const std::size_t behind = FirstAt(rim, directionOf(end));
    Figure outline;
    std::size_t at = FirstAt(rim, directionOf(start));
    do {
        outline.push_back(rim[at].at);
        at = (at + 1) % rim.size();
    } while (at != behind);
    outline.push_back(middle);
    if (brush != nullptr) FillFigure(outline, FillRule::NonZero, *brush);
    DrawOutline(outline, stroke.width, stroke.pixel);
}

}  // namespace tradebill
