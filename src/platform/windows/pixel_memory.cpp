#include "platform/pixel_memory.h"

#include <new>

#include <windows.h>

namespace tradebill {

CPixelMemory::CPixelMemory(std::int32_t width, std::int32_t height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;  // positive: the lowest row comes first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    info.bmiHeader.biSizeImage = static_cast<DWORD>(width) * static_cast<DWORD>(height) * 32 / 8;
    void* bits = nullptr;
    nativeBitmap_ = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (nativeBitmap_ == nullptr) throw std::bad_alloc();
    pixels_ = static_cast<std::uint32_t*>(bits);
}

CPixelMemory::~CPixelMemory() {
    if (nativeBitmap_ != nullptr) ::DeleteObject(nativeBitmap_);
}

bool CPixelMemory::ServeFor(std::int32_t /*width*/, std::int32_t /*height*/) {
    return false;
}

}  // namespace tradebill
