#include "driver/repaint.h"

#include <cstdint>
#include <new>

#include "base/report_error.h"
#include "driver/report_request.h"
#include "images/account_charts.h"
#include "images/chart_kinds.h"
#include "images/chart_values.h"
#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "platform/host_surface.h"

namespace tradebill {
namespace {

/// Left or top edge of the part where its middle is that of the area.
std::int32_t CentredEdge(std::int32_t from, std::int32_t to, std::int32_t area) {
    return static_cast<std::int32_t>((std::int64_t{from} - to + area) / 2);
}

/// What is to be painted, and on what.
struct Repainting {
    const CReport& report;
    const AccountChart& chart;
    ChartTarget* target;
    ChartRect part;
    PictureSize size;
};

/// All of a bitmap; its rows lie bottom-up.
ShownPixels PixelsOf(const CBitmap& bitmap) {
    return {.top = bitmap.Row(0), .width = bitmap.Width(), .height = bitmap.Height(), .pitch = -bitmap.Width()};
}

std::int32_t PaintAndShow(const Repainting& work) {
    const auto& [report, chart, target, part, size] = work;
    CBitmap area(size.width, size.height, 0);
    if (area.Width() == 0) return kChartInvalidParameter;
    StretchAccountChart(*MakeCanvas(area), report, chart, {part.Left, part.Top, part.Right, part.Bottom});
    const SurfacePlace at{CentredEdge(part.Left, part.Right, size.width),
                          CentredEdge(part.Top, part.Bottom, size.height)};
    return ShowOnSurface(target, PixelsOf(area), part, at);
}

std::int32_t StatusOf(const Repainting& work) {
    try {
        return PaintAndShow(work);
    } catch (const CReportError&) {
        return kChartWrongState;
    } catch (const std::bad_alloc&) {
        return kChartOutOfMemory;
    } catch (...) {
        return kChartInvalidParameter;
    }
}

}  // namespace

void Repaint(const CReport& report, const AccountChart& chart, ChartTarget* target, const ChartRect* rect,
             const PictureSize& size) {
    if (target == nullptr || rect == nullptr) return;
    if (rect->Right <= rect->Left || rect->Bottom <= rect->Top) return;
    const std::int32_t status = StatusOf({report, chart, target, *rect, size});
    if (status != kChartDone) SetSurfaceStatus(target, status);
}

}  // namespace tradebill
