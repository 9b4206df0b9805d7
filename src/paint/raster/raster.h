// Shapes as whole pixels on a bitmap, to the rules of the device contexts that the charts were designed on: no
// smoothing, thin lines without their last pixel, boxes without their right and bottom edge. Everything is clipped at
// the bitmap's edge and costs no more than what can be seen, wherever its coordinates lie.
//
// raster_lines.cpp has lines and boxes, raster_polygon.cpp fills, raster_ellipse.cpp has all that is round.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "paint/bitmap.h"
#include "paint/geometry.h"

namespace tradebill {

/// A corner of a fill: those of wide lines may lie outside of 32 bits.
struct FarPoint {
    std::int64_t x = 0;
    std::int64_t y = 0;
    bool operator==(const FarPoint&) const = default;
};

using Figure = std::vector<FarPoint>;

enum class FillRule { Alternate, NonZero };

/// What outlines are drawn with. Width 0 and 1 are thin.
struct Stroke {
    std::int32_t width = 1;
    std::uint32_t pixel = 0;
};

/// Where an edge of a fill crosses a row.
struct Crossing {
    std::int64_t y;
    std::int64_t x;
    int direction;  ///< 1 downwards, -1 upwards
};

/// An ellipse of some size, counted from its box's left top corner.
struct EllipseShape {
    /// A row's outermost rim pixels.
    struct Extent {
        std::int64_t left;
        std::int64_t right;
    };

    std::int64_t width = 0;
    std::int64_t height = 0;
    Figure rim;  ///< counter-clockwise from the right end
    std::vector<Extent> rows;
};

/// REQUIRES: the bitmap outlives it.
class CRaster {
public:
    explicit CRaster(CBitmap& bitmap) : bitmap_(bitmap), seen_(WholeOf(bitmap)) {}

    /// From here on nothing outside of the box is painted; without one all of the bitmap is.
    void ClipTo(const std::optional<Box>& clip);

    /// The part of the bitmap that is painted on; right and bottom are left out.
    [[nodiscard]] const Box& Seen() const { return seen_; }

    void SetPixel(std::int64_t x, std::int64_t y, std::uint32_t pixel) {
        if (x < seen_.left || y < seen_.top || x >= seen_.right || y >= seen_.bottom) return;
        bitmap_.Row(static_cast<std::int32_t>(y))[x] = pixel;
    }

    /// From `left` up to but without `right`, in row `y`.
    void FillRow(std::int64_t left, std::int64_t right, std::int64_t y, std::uint32_t pixel) {
        if (y < seen_.top || y >= seen_.bottom) return;
        left = std::max<std::int64_t>(left, seen_.left);
        right = std::min<std::int64_t>(right, seen_.right);
        if (left >= right) return;
        std::uint32_t* const row = bitmap_.Row(static_cast<std::int32_t>(y));
        std::fill(row + left, row + right, pixel);
    }
    void FillBox(FarPoint leftTop, FarPoint rightBottom, std::uint32_t pixel);

    /// A thin line leaves out its last pixel; a wider one has round caps at both ends.
    void DrawLine(Point from, Point to, const Stroke& stroke);

    /// Fills figures, each closed. A row is cut at its whole y; crossings are rounded up.
    void FillFigures(std::span<const Figure> figures, FillRule rule, std::uint32_t pixel);
    void FillFigure(std::span<const FarPoint> corners, FillRule rule, std::uint32_t pixel);

    // Shapes with an outline; a null brush leaves the inside alone.
    void DrawBox(const Box& box, const Stroke& stroke, const std::uint32_t* brush);
    void DrawEllipse(const Box& box, const Stroke& stroke, const std::uint32_t* brush);
    /// From one direction to the other counter-clockwise, as seen from the middle.
    void DrawPie(const Box& box, Point start, Point end, const Stroke& stroke, const std::uint32_t* brush);
    void DrawPolygon(std::span<const Point> corners, const Stroke& stroke, const std::uint32_t* brush);

private:
    [[nodiscard]] static Box WholeOf(const CBitmap& bitmap) { return {0, 0, bitmap.Width(), bitmap.Height()}; }
    [[nodiscard]] bool IsSeen(FarPoint from, FarPoint to, std::int64_t reach) const;
    void DrawThinBox(FarPoint leftTop, FarPoint last, std::uint32_t pixel);
    void DrawStraightLine(FarPoint from, FarPoint to, std::uint32_t pixel);
    void DrawThinLine(FarPoint from, FarPoint to, std::uint32_t pixel);
    void DrawWideLine(FarPoint from, FarPoint to, std::int32_t width, std::uint32_t pixel);
    void DrawSlantedBody(FarPoint from, FarPoint to, std::int32_t width, std::uint32_t pixel);
    void DrawCap(FarPoint at, std::int32_t width, std::uint32_t pixel);
    void DrawOutline(const Figure& corners, std::int32_t width, std::uint32_t pixel);
    void DrawFarEllipse(const Box& box, const Stroke& stroke, const std::uint32_t* brush);
    [[nodiscard]] const EllipseShape& ShapeOf(std::int64_t width, std::int64_t height);
    void AddEdges(std::span<const FarPoint> corners);
    void AddCrossings(FarPoint from, FarPoint to);
    void FillCrossings(FillRule rule, std::uint32_t pixel);

    CBitmap& bitmap_;
    Box seen_;
    std::vector<Crossing> crossings_;  // of the fill at hand; kept for its memory
    EllipseShape shape_;               // of the last ellipse: the dots of a line are all alike
};

/// A box with its corners in order.
[[nodiscard]] Box Sorted(const Box& box);

/// `dividend` / `divisor`, rounded up.
/// REQUIRES: divisor > 0.
[[nodiscard]] std::int64_t DivideUp(__int128 dividend, std::int64_t divisor);

}  // namespace tradebill
