// PNG files put together by hand, of any kind of pixels, sound or broken.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tradebill {

inline std::string BigEndian(unsigned value, int bytes) {
    std::string text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) text += static_cast<char>((value >> shift) & 0xFF);
    return text;
}

/// The check sum that ends a PNG chunk.
inline unsigned CheckSum(const std::string& bytes) {
    unsigned sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320U : 0);
    }
    return ~sum;
}

inline std::string Chunk(const std::string& type, const std::string& data) {
    return BigEndian(static_cast<unsigned>(data.size()), 4) + type + data + BigEndian(CheckSum(type + data), 4);
}

/// `rows` as image data that isn't compressed; each row begins with its filter, 0.
inline std::string StoredRows(std::string_view rows) {
    constexpr std::size_t kLongestBlock = 65535;
    std::string data = "\x78\x01";
    unsigned low = 1;
    unsigned high = 0;
    for (const char byte : rows) {
        low = (low + static_cast<unsigned char>(byte)) % 65521;
        high = (high + low) % 65521;
    }
    do {
        const std::string_view block = rows.substr(0, kLongestBlock);
        rows.remove_prefix(block.size());
        const auto size = static_cast<unsigned>(block.size());
        data += rows.empty() ? '\1' : '\0';
        for (const unsigned value : {size & 0xFF, size >> 8, ~size & 0xFF, ~size >> 8 & 0xFF}) {
            data += static_cast<char>(value);
        }
        data += block;
    } while (!rows.empty());
    return data + BigEndian(high << 16 | low, 4);
}

struct PngHead {
    unsigned width = 1;   ///< pixels
    unsigned height = 1;  ///< pixels
    unsigned depth = 8;   ///< bits of a channel
    unsigned kind = 6;    ///< 0 grey, 2 RGB, 3 palette, 4 grey with alpha, 6 RGB with alpha
};

/// A whole file; `chunks` stand between head and image data.
inline std::string PngOf(const PngHead& head, const std::string& imageData, const std::string& chunks = {}) {
    return "\x89PNG\r\n\x1A\n" +
           Chunk("IHDR", BigEndian(head.width, 4) + BigEndian(head.height, 4) + BigEndian(head.depth, 1) +
                             BigEndian(head.kind, 1) + std::string(3, '\0')) +
           chunks + Chunk("IDAT", imageData) + Chunk("IEND", "");
}

}  // namespace tradebill
