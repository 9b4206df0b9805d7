#include "graph/value_labels.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/number.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"

namespace tradebill {

bool Overlap(const Box& left, const Box& right) {
    return std::max(left.left, right.left) < std::min(left.right, right.right) &&
           std::max(left.top, right.top) < std::min(left.bottom, right.bottom);
}

std::string ShownValue(double value, double divisor, std::int32_t decimals) {
    const double shown = value / divisor;
    if (shown > -kSmallestAmount && shown < kSmallestAmount) return {};
    return std::string(CNumberText::Fixed(shown, decimals).View());
}

Box CValueLabels::DotAt(Point at) const {
    return {at.x - radius_, at.y - radius_, at.x + radius_, at.y + radius_};
}

/// The last point looks at nothing behind it.
bool CValueLabels::IsFree(const Box& label, const Box& nextDot, bool isLast) const {
    return !Overlap(label, lastLabel_) && !Overlap(label, previousDot_) && (isLast || !Overlap(label, nextDot));
}

/// Never the first. All but the last keep their distance from the label before.
bool CValueLabels::IsWanted(const LabelledPoint& point) const {
    if (point.isFirst) return false;
    return point.isLast || point.at.x - (lastLabel_.right - lastLabel_.left) / 2 - lastLabel_.left > minGap_;
}

void CValueLabels::Place(CCanvas& canvas, const LabelledPoint& point, const std::string& text) {
    const TextExtent extent = canvas.MeasureText(text);
    const auto [x, y] = point.at;
    const std::int32_t left = x - extent.width / 2;
    const std::int32_t right = x + extent.width / 2;
    const Box above{left, y - radius_ - extent.height - 5, right, y - radius_ - 5};
    const Box below{left, y + radius_ + 5, right, y + radius_ + extent.height + 5};
    const Box nextDot = DotAt({point.nextX, y});
    for (const Box& label : {above, below}) {
        if (!IsFree(label, nextDot, point.isLast)) continue;
        canvas.WriteText({label.left, label.top}, text);
        lastLabel_ = label;
        return;
    }
}

void CValueLabels::PassPoint(Point at) {
    previousDot_ = DotAt(at);
}

}  // namespace tradebill
