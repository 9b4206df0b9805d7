#include "platform/screen.h"

#include <windows.h>

namespace tradebill {
namespace {

int ChosenWidth = 0;  ///< 0: that of the display

int DisplayWidth() {
    constexpr int kUsualWidth = 1920;  // where there is no display
    const HDC display = ::CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    if (display == nullptr) return kUsualWidth;
    const int width = ::GetDeviceCaps(display, HORZRES);
    ::DeleteDC(display);
    return width > 0 ? width : kUsualWidth;
}

}  // namespace

int ScreenWidth() {
    return ChosenWidth > 0 ? ChosenWidth : DisplayWidth();
}

void SetScreenWidthPixels(int width) {
    ChosenWidth = width;
}

}  // namespace tradebill
