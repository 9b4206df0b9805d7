#include "platform/pixel_memory.h"

#include <sys/mman.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace tradebill {
namespace {

constexpr std::size_t kHugePage = std::size_t{1} << 21;

/// Pixels of a page's largest picture are touched 4 KB a fault, which takes longer than painting them: from half a huge
/// page on the system is asked for whole ones.
void* Allocate(std::size_t bytes) {
    if (bytes < kHugePage / 2) return std::malloc(bytes);
    const std::size_t wholePages = (bytes + kHugePage - 1) / kHugePage * kHugePage;
    void* const memory = std::aligned_alloc(kHugePage, wholePages);
    if (memory != nullptr) ::madvise(memory, wholePages, MADV_HUGEPAGE);  // or else it is as any other
    return memory;
}

}  // namespace

CPixelMemory::CPixelMemory(std::int32_t width, std::int32_t height) : room_(std::int64_t{width} * height) {
    pixels_ = static_cast<std::uint32_t*>(Allocate(static_cast<std::size_t>(room_) * sizeof(std::uint32_t)));
    if (pixels_ == nullptr) throw std::bad_alloc();
}

CPixelMemory::~CPixelMemory() {
    std::free(pixels_);
}

bool CPixelMemory::ServeFor(std::int32_t width, std::int32_t height) {
    return std::int64_t{width} * height <= room_;
}

}  // namespace tradebill
