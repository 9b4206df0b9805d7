#include "platform/screen.h"

#include <cstdint>

#include "driver/report_request.h"

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

void SetScreenWidth(std::int32_t width) {
    tradebill::SetScreenWidthPixels(width);
}
