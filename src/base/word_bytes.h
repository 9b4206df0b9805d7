// Eight bytes of a text at a time, as the bytes of a number: most texts here are a few bytes long, too short to be
// worth a call of memchr or memcpy.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tradebill {

inline constexpr std::size_t kWordBytes = sizeof(std::uint64_t);
inline constexpr std::uint64_t kHighBits = 0x8080808080808080;  ///< of each byte; set where it is no ASCII

/// `byte` in each place of a word.
[[nodiscard]] constexpr std::uint64_t Repeated(char byte) {
    return std::uint64_t{0x0101010101010101} * static_cast<unsigned char>(byte);
}

/// REQUIRES: `bytes` has as many.
[[nodiscard]] inline std::uint64_t LoadWord(const char* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// Marks zero bytes by their high bits. 0 if there is none; the lowest mark is that of the lowest zero byte, those
/// above it may be of others.
[[nodiscard]] constexpr std::uint64_t ZeroBytes(std::uint64_t word) {
    return (word - Repeated(1)) & ~word & kHighBits;
}

/// Likewise the bytes that are `byte`.
[[nodiscard]] constexpr std::uint64_t EqualBytes(std::uint64_t word, char byte) {
    return ZeroBytes(word ^ Repeated(byte));
}

/// Copies `text` and hands `see(std::uint64_t)` all of its bytes in words; some may come twice, and zero bytes between
/// them. Two copies of a fixed size that overlap are done before a call of memcpy is.
///
/// REQUIRES: there is room for it at `to`, and they don't overlap.
template <class See>
void CopyWords(char* to, std::string_view text, See see) {
    const std::size_t size = text.size();
    const char* const bytes = text.data();
    const auto copyEnds = [&](auto first) {
        std::memcpy(&first, bytes, sizeof first);
        auto last = first;
        std::memcpy(&last, bytes + size - sizeof first, sizeof first);
        std::memcpy(to, &first, sizeof first);
        std::memcpy(to + size - sizeof first, &last, sizeof first);
        see(std::uint64_t{first});
        see(std::uint64_t{last});
    };
    if (size > 2 * kWordBytes) {
        std::memcpy(to, bytes, size);
        for (std::size_t at = 0; at + kWordBytes < size; at += kWordBytes) see(LoadWord(bytes + at));
        see(LoadWord(bytes + size - kWordBytes));
    } else if (size >= kWordBytes) {
        copyEnds(std::uint64_t{});
    } else if (size >= kWordBytes / 2) {
        copyEnds(std::uint32_t{});
    } else {
        for (std::size_t i = 0; i < size; ++i) {
            to[i] = bytes[i];
            see(std::uint64_t{static_cast<unsigned char>(bytes[i])});
        }
    }
}

}  // namespace tradebill
