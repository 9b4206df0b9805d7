#include "page/page_scan.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/text.h"

namespace tradebill {
namespace {

constexpr std::string_view kWrappers[] = {"<html>", "<body>", "</body>", "</html>"};
constexpr std::size_t kTailLength = 6;  // one less than the longest tag

bool OpensTag(std::string_view text) {
    // Nearly every "<" of a page opens td, span or tr: the second letter settles it.
    const char second = text.size() > 1 ? text[1] : '\0';
    if (second != '/' && second != 'h' && second != 'b') return false;
    const auto opens = [text](std::string_view tag) { return text.starts_with(tag); };
    return std::ranges::any_of(kWrappers, opens) || opens(kHeadEnd);
}

}  // namespace

std::string_view TakePageLine(std::string_view& rest) {
    std::string_view line = TakeLine(rest);
    while (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

bool IsWrapperLine(std::string_view line) {
    return std::ranges::any_of(kWrappers, [line](std::string_view tag) { return Contains(line, tag); });
}

void CPageScan::CheckTags(std::string_view text) {
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        if (OpensTag(text.substr(at))) isPlain_ = false;
    }
}

void CPageScan::CheckLineEnds(std::string_view text, std::size_t from) {
    for (std::size_t at = text.find('\n', from); at != std::string_view::npos; at = text.find('\n', at + 1)) {
        const bool afterReturn = at > 0 && text[at - 1] == '\r';
        const bool afterTwo = at > 1 && text[at - 2] == '\r';
        if (!afterReturn || afterTwo) isPlain_ = false;
    }
}

void CPageScan::Feed(std::string_view text) {
    const std::string joint = tail_ + std::string(text.substr(0, kTailLength));
    CheckTags(joint);
    CheckLineEnds(joint, tail_.size());
    CheckTags(text);
    CheckLineEnds(text, kTailLength);
    tail_ += text.substr(text.size() - std::min(text.size(), kTailLength));
    tail_.erase(0, tail_.size() - std::min(tail_.size(), kTailLength));
}

void CPageScan::TakePlainLines() {
    tail_ = "\r\n";
}

}  // namespace tradebill
