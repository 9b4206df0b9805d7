// Zip files as tests need them: sound ones, and such as nobody's program writes.
#pragma once

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

struct ZipPart {
    std::string name;
    std::string bytes;
    bool isPacked = false;
    std::uint16_t flags = 0;              ///< 1: encrypted
    std::uint32_t toldSize = UINT32_MAX;  ///< unpacked, as the archive has it; UINT32_MAX: the true one
};

inline std::string Little(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i) & 0xFF);
    return text;
}

/// Packed without a head, as zip files have it.
inline std::string Packed(std::string_view bytes) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY) != Z_OK) {
        std::abort();
    }
    std::string packed(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    if (deflate(&stream, Z_FINISH) != Z_STREAM_END) std::abort();
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

inline std::string ZipFile(const std::vector<ZipPart>& parts) {
    std::string file;
    std::string list;
    for (const ZipPart& part : parts) {
        const std::string stored = part.isPacked ? Packed(part.bytes) : part.bytes;
        const auto crc =
            crc32(0, reinterpret_cast<const Bytef*>(part.bytes.data()), static_cast<uInt>(part.bytes.size()));
        const std::size_t size = part.toldSize == UINT32_MAX ? part.bytes.size() : part.toldSize;
        const std::string facts = Little(part.flags, 2) + Little(part.isPacked ? 8 : 0, 2) + Little(0, 4) +
                                  Little(crc, 4) + Little(stored.size(), 4) + Little(size, 4) +
                                  Little(part.name.size(), 2) + Little(0, 2);
        list += "PK\x01\x02" + Little(20, 2) + Little(20, 2) + facts + std::string(10, '\0') + Little(file.size(), 4) +
                part.name;
        file += "PK\x03\x04" + Little(20, 2) + facts + part.name + stored;
    }
    const std::string end = "PK\x05\x06" + Little(0, 4) + Little(parts.size(), 2) + Little(parts.size(), 2) +
                            Little(list.size(), 4) + Little(file.size(), 4) + Little(0, 2);
    return file + list + end;
}

}  // namespace tradebill
