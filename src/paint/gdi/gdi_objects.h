// Objects of the device context's kind, released at the end of their scope.
#pragma once

#include <windows.h>

#include <utility>

#include "paint/geometry.h"

namespace tradebill {

/// A pen, brush, font or region. Null for none.
class CGdiObject {
public:
    CGdiObject() = default;
    explicit CGdiObject(HGDIOBJ object) : object_(object) {}
    CGdiObject(CGdiObject&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    CGdiObject& operator=(CGdiObject&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~CGdiObject() {
        if (object_ != nullptr) ::DeleteObject(object_);
    }

    [[nodiscard]] HGDIOBJ Get() const { return object_; }

private:
    HGDIOBJ object_ = nullptr;
};

/// A device context in memory. What is selected into it must outlive it: it is released with it.
class CMemoryContext {
public:
    CMemoryContext() : context_(::CreateCompatibleDC(nullptr)) {}
    CMemoryContext(const CMemoryContext&) = delete;
    CMemoryContext& operator=(const CMemoryContext&) = delete;
    ~CMemoryContext() { ::DeleteDC(context_); }

    [[nodiscard]] HDC Get() const { return context_; }

private:
    HDC context_;
};

/// An object stays selected for as long as it lives; then the one before comes back. To be declared after what owns it.
class CGdiSelection {
public:
    CGdiSelection(HDC context, HGDIOBJ object) : context_(context), former_(::SelectObject(context, object)) {}
    CGdiSelection(const CGdiSelection&) = delete;
    CGdiSelection& operator=(const CGdiSelection&) = delete;
    ~CGdiSelection() { ::SelectObject(context_, former_); }

private:
    HDC context_;
    HGDIOBJ former_;
};

/// What lies in the box; nothing if it has no inside, however far its edges have passed each other.
[[nodiscard]] inline CGdiObject MakeRegion(const Box& box) {
    const bool isEmpty = box.right <= box.left || box.bottom <= box.top;
    return CGdiObject(isEmpty ? ::CreateRectRgn(0, 0, 0, 0)
                              : ::CreateRectRgn(box.left, box.top, box.right, box.bottom));
}

}  // namespace tradebill
