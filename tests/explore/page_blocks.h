// The data of a page as its script gets them: from base64 and zlib's format back to JSON.
#pragma once

#include <zlib.h>

#include <array>
#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tradebill {

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

/// The text of each block by its name, packed.
inline std::map<std::string, std::string> PackedBlocksOf(const std::string& page) {
    constexpr std::string_view kStart = "<script type=\"application/octet-stream\" id=\"";
    constexpr std::string_view kEnd = "</script>\n";
    std::map<std::string, std::string> blocks;
    for (std::size_t at = page.find(kStart); at != std::string::npos; at = page.find(kStart, at)) {
        at += kStart.size();
        const std::size_t quote = page.find("\">", at);
        const std::size_t end = page.find(kEnd, quote);
        if (end == std::string::npos) throw std::runtime_error("a block without end");
        blocks[page.substr(at, quote - at)] = page.substr(quote + 2, end - quote - 2);
        at = end;
    }
    return blocks;
}

/// A block that isn't there is an error.
inline nlohmann::json BlockOf(const std::string& page, const std::string& name) {
    return nlohmann::json::parse(Inflated(DecodedBase64(PackedBlocksOf(page).at(name))));
}

}  // namespace tradebill
