#include "base/base64.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tradebill {
namespace {

constexpr std::size_t kGroup = 3;

/// `group` has one to three bytes.
void AddGroup(std::string_view group, std::string& text) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < kGroup; ++i)
        bits = bits << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0u);
    for (std::size_t i = 0; i <= kGroup; ++i) text += i <= group.size() ? kDigits[bits >> (18 - 6 * i) & 0x3F] : '=';
}

}  // namespace

std::string Base64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + kGroup - 1) / kGroup * (kGroup + 1));
    CBase64Text base64;
    base64.Add(bytes, text);
    base64.Finish(text);
    return text;
}

void CBase64Text::Add(std::string_view bytes, std::string& text) {
    if (!left_.empty()) {
        const std::string_view missing = bytes.substr(0, kGroup - left_.size());
        left_ += missing;
        bytes.remove_prefix(missing.size());
        if (left_.size() < kGroup) return;
        AddGroup(left_, text);
    }
    const std::size_t whole = bytes.size() / kGroup * kGroup;
    for (std::size_t at = 0; at < whole; at += kGroup) AddGroup(bytes.substr(at, kGroup), text);
    left_ = bytes.substr(whole);
}

void CBase64Text::Finish(std::string& text) {
    if (!left_.empty()) AddGroup(left_, text);
    left_.clear();
}

}  // namespace tradebill
