// Values written beside the points of a line, where they don't run into each other.
#pragma once

#include <cstdint>
#include <string>

#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {

/// Whether two rectangles share a pixel; an empty one shares none.
[[nodiscard]] bool Overlap(const Box& left, const Box& right);

/// A value as its label shows it; nothing for one that shows as zero.
[[nodiscard]] std::string ShownValue(double value, double divisor, std::int32_t decimals);

/// Where a point and its label may stand.
struct LabelledPoint {
    Point at;
    std::int32_t nextX;  ///< of the point behind it
    bool isFirst;
    bool isLast;
};

/// Places the labels of one group, point by point.
class CValueLabels {
public:
    CValueLabels(std::int32_t radius, std::int32_t minGap) : radius_(radius), minGap_(minGap) {}

    /// Whether a label is wanted at a point at all: `text` of Place is only needed then.
    [[nodiscard]] bool IsWanted(const LabelledPoint& point) const;
    /// Above the point if there is room, else below it, else nowhere.
    /// REQUIRES: the font of the label is selected.
    void Place(CCanvas& canvas, const LabelledPoint& point, const std::string& text);
    /// REQUIRES: called once for each point from the first on, behind Place where that is called.
    void PassPoint(Point at);

private:
    [[nodiscard]] bool IsFree(const Box& label, const Box& nextDot, bool isLast) const;
    [[nodiscard]] Box DotAt(Point at) const;

    std::int32_t radius_;
    std::int32_t minGap_;
    Box lastLabel_;
    Box previousDot_;
};

}  // namespace tradebill
