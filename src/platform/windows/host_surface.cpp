#include "platform/host_surface.h"

#include "platform/windows/gdiplus.h"

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

std::int32_t ShowOnSurface(ChartTarget* target, const ShownPixels& pixels, const ChartRect& part, SurfacePlace at) {
    const CGdiplusUse use;
    const CGdiplusImage image = ImageOn({.top = const_cast<std::uint32_t*>(pixels.top),  // only read
                                         .width = pixels.width,
                                         .height = pixels.height,
                                         .pitch = pixels.pitch,
                                         .format = PixelFormat32bppRGB});
    if (image.Get() == nullptr) return kChartOutOfMemory;
    return GdipDrawImagePointRectI(GraphicsAt(target).native, image.Get(), at.x, at.y, part.Left, part.Top,
                                   part.Right - part.Left, part.Bottom - part.Top, UnitPixel);
}

void SetSurfaceStatus(ChartTarget* target, std::int32_t status) {
    GraphicsAt(target).lastStatus = static_cast<Status>(status);
}

std::int32_t PaintAsHost(const PaintedPixels& pixels, const std::function<void(ChartTarget* target)>& paint) {
    const CGdiplusUse use;
    const CGdiplusImage image = ImageOn({.top = pixels.top,
                                         .width = pixels.width,
                                         .height = pixels.height,
                                         .pitch = pixels.width,
                                         .format = PixelFormat32bppARGB});
    HostGraphics graphics{};
    if (image.Get() == nullptr || GdipGetImageGraphicsContext(image.Get(), &graphics.native) != Ok) {
        return kChartOutOfMemory;
    }
    paint(&graphics);
    GdipDeleteGraphics(graphics.native);
    return graphics.lastStatus;
}

}  // namespace tradebill
