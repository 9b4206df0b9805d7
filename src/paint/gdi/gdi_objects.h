// Objects of the device context's kind, released at the end of their scope.
#pragma once

#include <windows.h>

#include <utility>

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

}  // namespace tradebill
