#include "paint/freetype/font_memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <utility>

namespace tradebill {
namespace {

/// More than one call of FreeType takes for a glyph or a face. Its pages cost nothing before they are needed.
constexpr std::size_t kReserveBytes = std::size_t{1} << 20;

/// Hands out one piece behind the other, and is whole again when all are back.
struct Reserve {
    alignas(std::max_align_t) char bytes[kReserveBytes];
    std::size_t used;
    std::size_t pieces;
};
Reserve ReserveOfFonts;

bool IsOfReserve(const void* block) {
    const auto* const at = static_cast<const char*>(block);
    const std::less<const char*> isBefore;
    return !isBefore(at, ReserveOfFonts.bytes) && isBefore(at, ReserveOfFonts.bytes + kReserveBytes);
}

void* TakeFromReserve(std::size_t size) {
    constexpr std::size_t kStep = alignof(std::max_align_t);
    if (size > kReserveBytes) return nullptr;
    const std::size_t rounded = (size + kStep - 1) / kStep * kStep;
    if (rounded > kReserveBytes - ReserveOfFonts.used) return nullptr;
    void* const block = ReserveOfFonts.bytes + ReserveOfFonts.used;
    ReserveOfFonts.used += rounded;
    ++ReserveOfFonts.pieces;
    return block;
}

void* Allocate(FT_Memory /*memory*/, long size) {
    if (void* const block = std::malloc(static_cast<std::size_t>(size)); block != nullptr) return block;
    NoteFontShortage();
    return TakeFromReserve(static_cast<std::size_t>(size));
}

void Free(FT_Memory /*memory*/, void* block) {
    if (!IsOfReserve(block)) {
        std::free(block);
    } else if (--ReserveOfFonts.pieces == 0) {
        ReserveOfFonts.used = 0;
    }
}

void* Reallocate(FT_Memory memory, long formerSize, long size, void* former) {
    if (!IsOfReserve(former)) {
        void* const block = std::realloc(former, static_cast<std::size_t>(size));
        if (block != nullptr) return block;
    }
    void* const block = Allocate(memory, size);
    if (block == nullptr) return nullptr;
    std::memcpy(block, former, static_cast<std::size_t>(std::min(formerSize, size)));
    Free(memory, former);
    return block;
}

bool IsShort = false;

}  // namespace

FT_Memory FontMemory() {
    static FT_MemoryRec_ memory{.user = nullptr, .alloc = Allocate, .free = Free, .realloc = Reallocate};
    return &memory;
}

void NoteFontShortage() {
    IsShort = true;
}

bool TakeFontShortage() {
    return std::exchange(IsShort, false);
}

}  // namespace tradebill
