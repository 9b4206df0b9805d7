// Which bytes of a text are this or that, 64 at a time as the bits of a number: so a row is cut without looking at its
// bytes one by one. With SSE2, which every x86-64 has; elsewhere in a plain loop with the same result.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "base/text.h"

namespace tradebill {

inline constexpr std::size_t kMaskedBytes = 64;

namespace plain {

/// Bit i is set if `text` has a byte at `at` + i and the test holds for it.
template <class Test>
[[nodiscard]] std::uint64_t MaskOf(std::string_view text, std::size_t at, Test test) {
    std::uint64_t mask = 0;
    const std::string_view block = text.substr(at, kMaskedBytes);
    for (std::size_t i = 0; i < block.size(); ++i) mask |= std::uint64_t{test(block[i])} << i;
    return mask;
}

[[nodiscard]] inline std::uint64_t EqualMask(std::string_view text, std::size_t at, char byte) {
    return MaskOf(text, at, [byte](char other) { return other == byte; });
}

[[nodiscard]] inline std::uint64_t WhiteSpaceMask(std::string_view text, std::size_t at) {
    return MaskOf(text, at, IsWhiteSpace);
}

[[nodiscard]] inline std::uint64_t WideMask(std::string_view text, std::size_t at) {
    return MaskOf(text, at, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

}  // namespace plain

#ifdef __SSE2__

namespace sse2 {

inline constexpr std::size_t kBytes = sizeof(__m128i);

[[nodiscard]] inline __m128i Load(const char* bytes) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

[[nodiscard]] inline std::uint64_t Bits(__m128i marks) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(marks));
}

template <class Test>
[[nodiscard]] std::uint64_t FullMask(const char* block, Test test) {
    return Bits(test(Load(block))) | Bits(test(Load(block + kBytes))) << kBytes |
           Bits(test(Load(block + 2 * kBytes))) << (2 * kBytes) | Bits(test(Load(block + 3 * kBytes))) << (3 * kBytes);
}

/// Of a block of less than 64 bytes at the end of a text that fills a vector at least: the last vector reaches back
/// into what stands before.
template <class Test>
[[nodiscard]] std::uint64_t LastMask(const char* block, std::size_t size, Test test) {
    std::uint64_t mask = 0;
    std::size_t i = 0;
    for (; i + kBytes <= size; i += kBytes) mask |= Bits(test(Load(block + i))) << i;
    if (i < size) mask |= Bits(test(Load(block + size - kBytes))) >> (i + kBytes - size) << i;
    return mask;
}

/// `test` marks the bytes of a vector. No byte outside of `text` is read.
template <class Test, class PlainTest>
[[nodiscard]] std::uint64_t MaskOf(std::string_view text, std::size_t at, Test test, PlainTest plainTest) {
    const std::size_t size = text.size() - at;
    if (size >= kMaskedBytes) return FullMask(text.data() + at, test);
    return text.size() >= kBytes ? LastMask(text.data() + at, size, test) : plain::MaskOf(text, at, plainTest);
}

[[nodiscard]] inline std::uint64_t EqualMask(std::string_view text, std::size_t at, char byte) {
    const __m128i wanted = _mm_set1_epi8(byte);
    return MaskOf(
        text, at, [wanted](__m128i bytes) { return _mm_cmpeq_epi8(bytes, wanted); },
        [byte](char other) { return other == byte; });
}

[[nodiscard]] inline std::uint64_t WhiteSpaceMask(std::string_view text, std::size_t at) {
    const __m128i blank = _mm_set1_epi8(' ');
    const __m128i firstControl = _mm_set1_epi8('\t');
    const __m128i lastControl = _mm_set1_epi8('\r' - '\t');
    const auto test = [=](__m128i bytes) {
        const __m128i above = _mm_sub_epi8(bytes, firstControl);  // bytes below it wrap round to large ones
        const __m128i isControl = _mm_cmpeq_epi8(_mm_min_epu8(above, lastControl), above);
        return _mm_or_si128(isControl, _mm_cmpeq_epi8(bytes, blank));
    };
    return MaskOf(text, at, test, IsWhiteSpace);
}

/// The bytes that are no ASCII: those whose highest bit is set, which is what a vector's bits are made of.
[[nodiscard]] inline std::uint64_t WideMask(std::string_view text, std::size_t at) {
    return MaskOf(
        text, at, [](__m128i bytes) { return bytes; },
        [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

}  // namespace sse2

using sse2::EqualMask;
using sse2::WhiteSpaceMask;
using sse2::WideMask;

#else

using plain::EqualMask;
using plain::WhiteSpaceMask;
using plain::WideMask;

#endif

/// How often `byte` stands in `text`.
[[nodiscard]] inline std::size_t CountByte(std::string_view text, char byte) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += kMaskedBytes) {
        count += static_cast<std::size_t>(std::popcount(EqualMask(text, at, byte)));
    }
    return count;
}

}  // namespace tradebill
