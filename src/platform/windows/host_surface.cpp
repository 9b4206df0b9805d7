#include "platform/host_surface.h"

#include "paint/codecs/gdiplus_image.h"

namespace tradebill {

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

namespace {

/// A Gdiplus::Graphics object as it lies in memory, whichever compiler's header the host has it from.
struct HostGraphics {
    GpGraphics* native;
    Status lastStatus;
};

HostGraphics& GraphicsAt(ChartTarget* target) {
    return *static_cast<HostGraphics*>(target);
}

}  // namespace

std::int32_t ShowOnSurface(ChartTarget* target, const CBitmap& bitmap, const Box& part, Point at) {
    const CPictureWork work;
    const CGdiplusImage image = ImageOf(bitmap);
    if (image.Get() == nullptr) return kChartOutOfMemory;
    return GdipDrawImagePointRectI(GraphicsAt(target).native, image.Get(), at.x, at.y, part.left, part.top,
                                   part.right - part.left, part.bottom - part.top, UnitPixel);
}

void SetSurfaceStatus(ChartTarget* target, std::int32_t status) {
    GraphicsAt(target).lastStatus = static_cast<Status>(status);
}

std::int32_t PaintAsHost(CPicture& picture, const std::function<void(ChartTarget* target)>& paint) {
    const CPictureWork work;
    const CGdiplusImage image = ImageOf(picture);
    HostGraphics graphics{};
    if (image.Get() == nullptr || GdipGetImageGraphicsContext(image.Get(), &graphics.native) != Ok) {
        return kChartOutOfMemory;
    }
    paint(&graphics);
    GdipDeleteGraphics(graphics.native);
    return graphics.lastStatus;
}

}  // namespace tradebill
