#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

#include "paint/geometry.h"
#include "paint/raster/raster.h"

namespace tradebill {
namespace {

constexpr std::int64_t kMostExact = 1 << 15;  // wide or high: up to here the rim is followed pixel by pixel
constexpr int kFarCorners = 4096;             // of what stands for the whole rim of a larger one

bool IsFar(std::int64_t width, std::int64_t height) {
    return std::max(width, height) > kMostExact;
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

/// What stands for it if the ellipse is too large to follow.
Figure FarRimQuarter(std::int64_t width, std::int64_t height) {
    Figure points;
    for (int i = 0; i < kFarCorners / 4; ++i) {
        const double angle = 2 * std::numbers::pi * i / kFarCorners;
        const double x = (1 + std::cos(angle)) / 2 * static_cast<double>(width - 1);
        const double y = (1 + std::sin(angle)) / 2 * static_cast<double>(height - 1);
        points.push_back({std::llround(x), std::llround(y)});
    }
    return points;
}

/// The whole rim: its quarter, mirrored. Where a size is odd, the pixels in the middle come twice. Places on it count
/// counter-clockwise from the right end.
class CRim {
public:
    CRim(std::int64_t width, std::int64_t height)
        : width_(width),
          height_(height),
          quarter_(IsFar(width, height) ? FarRimQuarter(width, height) : RimQuarter(width, height)) {}

    /// Of places.
    [[nodiscard]] std::size_t Size() const { return 4 * quarter_.size(); }

    /// Counted from the box's left top corner. Places behind the last one begin anew.
    [[nodiscard]] FarPoint At(std::size_t place) const {
        const std::size_t number = place / quarter_.size() % 4;
        const std::size_t along = place % quarter_.size();
        const FarPoint& point = quarter_[number % 2 == 0 ? along : quarter_.size() - 1 - along];
        const bool isLeft = number == 1 || number == 2;
        const bool isUpper = number < 2;
        return {isLeft ? width_ - 1 - point.x : point.x, isUpper ? height_ - 1 - point.y : point.y};
    }

    /// The first place at or past a direction, as seen from the middle; below the middle, past it. It is looked for in
    /// the direction's own quarter, and if there is none, it is where the next one begins: from 0 to Size().
    [[nodiscard]] std::size_t FirstAt(const FarPoint& direction) const {
        const bool isRight = direction.x >= 0;
        const bool isUpper = direction.y <= 0;
        const std::int64_t x = std::abs(direction.x);
        const std::int64_t y = std::abs(direction.y);
        const auto first = std::ranges::find_if(quarter_, [&](const FarPoint& point) {
            const __int128 steeper =
                static_cast<__int128>(point.y - height_ / 2) * x - static_cast<__int128>(point.x - width_ / 2) * y;
            return isRight ? steeper >= 0 : steeper > 0;
        });
        const auto along = static_cast<std::size_t>(first - quarter_.begin());
        if (isUpper) return isRight ? along : 2 * quarter_.size() - along;
        return isRight ? Size() - along : 2 * quarter_.size() + along;
    }

private:
    std::int64_t width_;
    std::int64_t height_;
    Figure quarter_;
};

/// Places from `first` to before `end`, in the bitmap's coordinates if the box's left top corner is `leftTop`; no pixel
/// twice in a row.
Figure PartOf(const CRim& rim, std::size_t first, std::size_t end, FarPoint leftTop) {
    Figure part;
    for (std::size_t place = first; place < end; ++place) {
        const FarPoint at = rim.At(place);
        const FarPoint placed{at.x + leftTop.x, at.y + leftTop.y};
        if (part.empty() || part.back() != placed) part.push_back(placed);
    }
    return part;
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
    const CRim rim(width, height);
    shape_.rim = PartOf(rim, 0, rim.Size(), {0, 0});
    for (const FarPoint& at : shape_.rim) {
        EllipseShape::Extent& row = shape_.rows[static_cast<std::size_t>(at.y)];
        row = {std::min(row.left, at.x), std::max(row.right, at.x)};
    }
    return shape_;
}

void CRaster::DrawFarEllipse(const Box& box, const Stroke& stroke, const std::uint32_t* brush) {
    const CRim rim(std::int64_t{box.right} - box.left, std::int64_t{box.bottom} - box.top);
    const Figure corners = PartOf(rim, 0, rim.Size(), {box.left, box.top});
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
    if (IsFar(width, height)) {
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
    const std::int64_t width = std::int64_t{sorted.right} - sorted.left;
    const std::int64_t height = std::int64_t{sorted.bottom} - sorted.top;
    const FarPoint middle{sorted.left + width / 2, sorted.top + height / 2};
    const CRim rim(width, height);
    const auto placeOf = [&](Point point) { return rim.FirstAt({point.x - middle.x, point.y - middle.y}); };
    const std::size_t first = placeOf(start);
    const std::size_t last = placeOf(end);
    const std::size_t behind = last > first ? last : last + rim.Size();
    if (behind == first) return;  // from the end of a round to its beginning
    Figure outline = PartOf(rim, first, behind, {sorted.left, sorted.top});
    outline.push_back(middle);
    if (brush != nullptr) FillFigure(outline, FillRule::NonZero, *brush);
    DrawOutline(outline, stroke.width, stroke.pixel);
}

}  // namespace tradebill
