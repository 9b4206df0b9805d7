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

/// All of a bitmap; its rows lie bottom-up.
ShownPixels PixelsOf(const CBitmap& bitmap) {
    return {.top = bitmap.Row(0), .width = bitmap.Width(), .height = bitmap.Height(), .pitch = -bitmap.Width()};
}

std::int32_t PaintAndShow(ChartTarget* target, const ChartRect& part, const PictureSize& size, ChartPainter* paint) {
    CBitmap area(size.width, size.height, 0);
    if (area.Width() == 0) return kChartInvalidParameter;
    paint(*MakeCanvas(area), {part.Left, part.Top, part.Right, part.Bottom});
    const SurfacePlace at{CentredEdge(part.Left, part.Right, size.width),
                          CentredEdge(part.Top, part.Bottom, size.height)};
    return ShowOnSurface(target, PixelsOf(area), part, at);
}

std::int32_t StatusOf(ChartTarget* target, const ChartRect& part, const PictureSize& size, ChartPainter* paint) {
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
    if (rect->Right <= rect->Left || rect->Bottom <= rect->Top) return;
    const std::int32_t status = StatusOf(target, *rect, size, paint);
    if (status != kChartDone) SetSurfaceStatus(target, status);
}

}  // namespace tradebill
