#include "driver/repaint.h"

#include <new>

#include "base/report_error.h"
#include "platform/host_surface.h"

namespace tradebill {
namespace {

/// Left or top edge of the part where its middle is that of the area.
std::int32_t CentredEdge(std::int32_t from, std::int32_t to, std::int32_t area) {
    return static_cast<std::int32_t>((std::int64_t{from} - to + area) / 2);
}

std::int32_t PaintAndShow(ChartTarget* target, const Box& part, const PictureSize& size, ChartPainter* paint) {
    CBitmap area(size.width, size.height, 0);
    if (area.Width() == 0) return kChartInvalidParameter;
    paint(*MakeCanvas(area), part);
    const Point at{CentredEdge(part.left, part.right, size.width), CentredEdge(part.top, part.bottom, size.height)};
    return ShowOnSurface(target, area, part, at);
}

std::int32_t StatusOf(ChartTarget* target, const Box& part, const PictureSize& size, ChartPainter* paint) {
    try {
        return PaintAndShow(target, part, size, paint);
    } catch (const CReportError&) {
        return kChartWrongState;
    } catch (const std::bad_alloc&) {
        return kChartOutOfMemory;
    } catch (...) {
        return kChartInvalidParameter;
    }
}

}  // namespace

void Repaint(ChartTarget* target, const ChartRect* rect, const PictureSize& size, ChartPainter* paint) {
    if (target == nullptr || rect == nullptr) return;
    const Box part{rect->Left, rect->Top, rect->Right, rect->Bottom};
    if (part.right <= part.left || part.bottom <= part.top) return;
    const std::int32_t status = StatusOf(target, part, size, paint);
    if (status != kChartDone) SetSurfaceStatus(target, status);
}

}  // namespace tradebill
