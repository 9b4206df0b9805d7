// Numbers as the records of old workbooks hold them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tradebill {

/// The number in `size` bytes at `at`, the lowest first.
///
/// REQUIRES: the bytes are there.
[[nodiscard]] inline std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t size) {
    constexpr int kByteBits = 8;
    std::uint64_t number = 0;
    for (std::size_t i = size; i-- > 0;) number = number << kByteBits | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

[[nodiscard]] inline std::uint16_t Word16(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint16_t>(LittleEndian(bytes, at, sizeof(std::uint16_t)));
}

[[nodiscard]] inline std::uint32_t Word32(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint32_t>(LittleEndian(bytes, at, sizeof(std::uint32_t)));
}

}  // namespace tradebill
