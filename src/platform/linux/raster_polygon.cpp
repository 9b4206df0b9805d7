#include <algorithm>
#include <limits>

#include "platform/linux/raster.h"

namespace tradebill {
namespace {

/// Where an edge crosses a row.
struct Crossing {
    std::int64_t y;
    std::int64_t x;
    int direction;  ///< 1 downwards, -1 upwards
};

/// An edge counts from its upper end's row up to but without its lower end's.
void AddCrossings(FarPoint from, FarPoint to, std::int64_t height, std::vector<Crossing>& crossings) {
    if (from.y == to.y) return;
    const int direction = from.y < to.y ? 1 : -1;
    const FarPoint upper = direction > 0 ? from : to;
    const FarPoint lower = direction > 0 ? to : from;
    const std::int64_t dx = lower.x - upper.x;
    const std::int64_t dy = lower.y - upper.y;
    const std::int64_t last = std::min(lower.y, height);
    for (std::int64_t y = std::max<std::int64_t>(upper.y, 0); y < last; ++y) {
        crossings.push_back({y, upper.x + DivideUp(static_cast<__int128>(dx) * (y - upper.y), dy), direction});
    }
}

}  // namespace

void CRaster::FillFigures(std::span<const Figure> figures, FillRule rule, std::uint32_t pixel) {
    std::vector<Crossing> crossings;
    for (const Figure& figure : figures) {
        for (std::size_t i = 0; i < figure.size(); ++i) {
            AddCrossings(figure[i], figure[(i + 1) % figure.size()], bitmap_.Height(), crossings);
        }
    }
    std::ranges::sort(crossings, [](const Crossing& left, const Crossing& right) {
        return left.y != right.y ? left.y < right.y : left.x < right.x;
    });
    int winding = 0;
    for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
        winding = rule == FillRule::Alternate ? winding ^ 1 : winding + crossings[i].direction;
        if (crossings[i].y != crossings[i + 1].y) {
            winding = 0;
        } else if (winding != 0) {
            FillRow(crossings[i].x, crossings[i + 1].x, crossings[i].y, pixel);
        }
    }
}

void CRaster::DrawPolygon(std::span<const Point> corners, const Stroke& stroke, const std::uint32_t* brush) {
    Figure figure;
    for (const Point& corner : corners) figure.push_back({corner.x, corner.y});
    if (brush != nullptr) FillFigures({&figure, 1}, FillRule::Alternate, *brush);
    DrawOutline(figure, stroke.width, stroke.pixel);
}

}  // namespace tradebill
