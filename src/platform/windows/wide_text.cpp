#include "platform/windows/wide_text.h"

#include <algorithm>
#include <array>

#include <windows.h>

namespace tradebill {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// The code page has more than GBK: a euro sign of one byte, and places for characters that users make themselves.
bool IsPrivate(wchar_t character) {
    return character >= 0xE000 && character <= 0xF8FF;
}

/// The character of two bytes that `text` opens with; 0 if it opens with none.
wchar_t DoubleByteCharacter(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (text.size() < 2 || lead <= 0x80 || lead == 0xFF) return 0;
    std::array<wchar_t, 2> wide{};
    const int count = ::MultiByteToWideChar(kGbkCodePage, MB_ERR_INVALID_CHARS, text.data(), 2, wide.data(), 2);
    return count == 1 && !IsPrivate(wide[0]) ? wide[0] : L'\0';
}

}  // namespace

std::wstring WideOf(std::string_view gbk) {
    std::wstring wide;
    wide.reserve(gbk.size());
    while (!gbk.empty()) {
        const bool isAscii = IsAscii(gbk.front());
        const wchar_t character = isAscii ? static_cast<wchar_t>(gbk.front()) : DoubleByteCharacter(gbk);
        wide += isAscii || character != 0 ? character : kReplacement;
        gbk.remove_prefix(!isAscii && character != 0 ? 2 : 1);
    }
    return wide;
}

std::wstring WideOfUtf8(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)),
                      L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::wstring WidePath(const std::string& path) {
    const int size = static_cast<int>(path.size());
    std::wstring wide(path.size(), L'\0');  // a character has one byte at least
    wide.resize(static_cast<std::size_t>(::MultiByteToWideChar(CP_ACP, 0, path.data(), size, wide.data(), size)));
    return wide;
}

std::string NarrowOf(unsigned codePage, std::wstring_view wide) {
    constexpr std::size_t kMostBytes = 3;  // of one unit in UTF-8; GBK has fewer
    const int size = static_cast<int>(wide.size());
    std::string text(wide.size() * kMostBytes, '\0');
    const int room = static_cast<int>(text.size());
    text.resize(static_cast<std::size_t>(
        ::WideCharToMultiByte(codePage, 0, wide.data(), size, text.data(), room, nullptr, nullptr)));
    return text;
}

std::string Utf8Of(std::wstring_view wide) {
    return NarrowOf(CP_UTF8, wide);
}

}  // namespace tradebill
