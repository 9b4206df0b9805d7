// The data of a page as its script gets them: from base64 and zlib's format back to JSON.
#pragma once

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

#include "support/packed_text.h"

namespace tradebill {

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
