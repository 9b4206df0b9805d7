// What pages hold packed, unpacked by zlib's own inflate.
#pragma once

#include <zlib.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tradebill {

/// Throws for what is no base64.
inline std::string DecodedBase64(std::string_view digits) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char digit : digits) {
        if (digit == '=') break;
        const std::size_t value = kDigits.find(digit);
        if (value == std::string_view::npos) throw std::runtime_error("no base64");
        bits = (bits << 6U) | static_cast<unsigned>(value);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>((bits >> static_cast<unsigned>(count)) & 255U);
    }
    return bytes;
}

/// Of zlib's format; throws for any other, and for one that is cut off.
inline std::string Inflated(std::string packed) {
    z_stream stream{};
    if (::inflateInit(&stream) != Z_OK) throw std::runtime_error("no memory");
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    std::string bytes;
    std::array<char, 4096> piece{};
    int end = Z_OK;
    while (end == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_out = piece.size();
        end = ::inflate(&stream, Z_NO_FLUSH);
        bytes.append(piece.data(), piece.size() - stream.avail_out);
    }
    ::inflateEnd(&stream);
    if (end != Z_STREAM_END) throw std::runtime_error("not zlib's format");
    return bytes;
}

}  // namespace tradebill
