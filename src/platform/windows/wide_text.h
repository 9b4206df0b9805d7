// Texts as the system's own functions take them, whatever the system's locale.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

inline constexpr unsigned kGbkCodePage = 936;

/// GBK as UTF-16; each byte that belongs to no character becomes one U+FFFD.
[[nodiscard]] std::wstring WideOf(std::string_view gbk);

/// UTF-8 as UTF-16.
[[nodiscard]] std::wstring WideOfUtf8(std::string_view text);

/// A path in the system's code page as UTF-16.
[[nodiscard]] std::wstring WidePath(const std::string& path);

/// UTF-16 in a code page. What the page lacks becomes what stands for it there.
[[nodiscard]] std::string NarrowOf(unsigned codePage, std::wstring_view wide);
[[nodiscard]] std::string Utf8Of(std::wstring_view wide);

}  // namespace tradebill
