#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "paint/geometry.h"
#include "paint/raster/raster.h"

namespace tradebill {
namespace {

bool FitsHalf(std::int64_t value) {
    return value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max();
}

/// Where an edge that falls by (`dx`, `dy`) has got after some rows, rounded up.
std::int64_t XAfter(std::int64_t rows, std::int64_t dx, std::int64_t dy) {
    if (!FitsHalf(dx) || !FitsHalf(rows)) return DivideUp(static_cast<__int128>(dx) * rows, dy);
    const std::int64_t dividend = dx * rows;
    return dividend / dy + (dividend % dy > 0 ? 1 : 0);
}

}  // namespace

/// An edge counts from its upper end's row up to but without its lower end's.
void CRaster::AddCrossings(FarPoint from, FarPoint to) {
    if (from.y == to.y) return;
    const int direction = from.y < to.y ? 1 : -1;
    const FarPoint upper = direction > 0 ? from : to;
    const FarPoint lower = direction > 0 ? to : from;
    const std::int64_t dx = lower.x - upper.x;
    const std::int64_t dy = lower.y - upper.y;
    const std::int64_t last = std::min<std::int64_t>(lower.y, seen_.bottom);
    for (std::int64_t y = std::max<std::int64_t>(upper.y, seen_.top); y < last; ++y) {
        crossings_.push_back({y, upper.x + XAfter(y - upper.y, dx, dy), direction});
    }
}

void CRaster::FillCrossings(FillRule rule, std::uint32_t pixel) {
    std::ranges::sort(crossings_, [](const Crossing& left, const Crossing& right) {
        return left.y != right.y ? left.y < right.y : left.x < right.x;
    });
    int winding = 0;
    for (std::size_t i = 0; i + 1 < crossings_.size(); ++i) {
        winding = rule == FillRule::Alternate ? winding ^ 1 : winding + crossings_[i].direction;
        if (crossings_[i].y != crossings_[i + 1].y) {
            winding = 0;
        } else if (winding != 0) {
            FillRow(crossings_[i].x, crossings_[i + 1].x, crossings_[i].y, pixel);
        }
    }
}

void CRaster::FillFigures(std::span<const Figure> figures, FillRule rule, std::uint32_t pixel) {
    crossings_.clear();
    for (const Figure& figure : figures) AddEdges(figure);
    FillCrossings(rule, pixel);
}

void CRaster::FillFigure(std::span<const FarPoint> corners, FillRule rule, std::uint32_t pixel) {
    crossings_.clear();
    AddEdges(corners);
    FillCrossings(rule, pixel);
}

void CRaster::AddEdges(std::span<const FarPoint> corners) {
    for (std::size_t i = 0; i < corners.size(); ++i) AddCrossings(corners[i], corners[(i + 1) % corners.size()]);
}

void CRaster::DrawPolygon(std::span<const Point> corners, const Stroke& stroke, const std::uint32_t* brush) {
    Figure figure;
    for (const Point& corner : corners) figure.push_back({corner.x, corner.y});
    if (brush != nullptr) FillFigure(figure, FillRule::Alternate, *brush);
    DrawOutline(figure, stroke.width, stroke.pixel);
}

}  // namespace tradebill
