// Rows that stand packed in a page, unpacked by zlib's own inflate.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "support/packed_text.h"

namespace tradebill {

/// A page with packed rows, taken apart.
struct UnfoldedRows {
    std::string plain;                ///< the page with rows in the place of what is packed, without note and lines
    std::vector<std::string> lines;   ///< the texts of the lines that unfold something
    std::vector<std::string> pieces;  ///< rows of each packed body
    std::vector<std::string> order;   ///< of bodies: "note", "line", "rows"
};

inline UnfoldedRows Unfold(std::string_view page) {
    constexpr std::string_view kBody = "<tbody";
    constexpr std::string_view kBodyEnd = "</tbody>\r\n";
    constexpr std::string_view kPacked = "<tbody data-packed><script type=\"application/octet-stream\">";
    constexpr std::string_view kPackedEnd = "</script></tbody>\r\n";
    UnfoldedRows unfolded;
    for (std::size_t at = page.find(kBody); at != std::string_view::npos; at = page.find(kBody)) {
        unfolded.plain += page.substr(0, at);
        const std::size_t end = page.find(kBodyEnd, at) + kBodyEnd.size();
        std::string_view body = page.substr(at, end - at);
        page.remove_prefix(end);
        if (body.starts_with(kPacked)) {
            EXPECT_TRUE(body.ends_with(kPackedEnd)) << body.substr(0, 200);
            body.remove_prefix(kPacked.size());
            body.remove_suffix(kPackedEnd.size());
            unfolded.plain += unfolded.pieces.emplace_back(Inflated(DecodedBase64(body)));
            unfolded.order.emplace_back("rows");
        } else if (body.starts_with("<tbody data-unpackable>")) {
            unfolded.order.emplace_back("note");
        } else {
            const std::size_t text =
                body.find("<span") == std::string_view::npos ? 0 : body.find("'>", body.find("<span")) + 2;
            unfolded.lines.emplace_back(body.substr(text, body.find("</span>") - text));
            unfolded.order.emplace_back("line");
        }
    }
    unfolded.plain += page;
    return unfolded;
}

}  // namespace tradebill
