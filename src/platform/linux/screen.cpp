#include "platform/screen.h"

namespace tradebill {
namespace {

constexpr int kUsualWidth = 1920;

int Width = kUsualWidth;

}  // namespace

int ScreenWidth() {
    return Width;
}

void SetScreenWidthPixels(int width) {
    Width = width > 0 ? width : kUsualWidth;
}

}  // namespace tradebill
