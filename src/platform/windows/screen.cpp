#include "platform/screen.h"

#include <windows.h>

namespace tradebill {

int DisplayWidth() {
    constexpr int kUsualWidth = 1920;  // where there is no display
    const HDC display = ::CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    if (display == nullptr) return kUsualWidth;
    const int width = ::GetDeviceCaps(display, HORZRES);
    ::DeleteDC(display);
    return width > 0 ? width : kUsualWidth;
}

}  // namespace tradebill
