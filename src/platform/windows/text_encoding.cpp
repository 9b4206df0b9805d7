#include "platform/text_encoding.h"

#include <windows.h>

#include "platform/windows/wide_text.h"

namespace tradebill {
namespace {

std::optional<std::wstring> StrictlyWideOf(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    const int count = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), size);
    if (count == 0 && size != 0) return std::nullopt;
    wide.resize(static_cast<std::size_t>(count));
    return wide;
}

}  // namespace

std::string GbkToUtf8(std::string_view text) {
    return Utf8Of(WideOf(text));
}

std::optional<std::string> Utf8ToGbk(std::string_view text) {
    const auto wide = StrictlyWideOf(text);
    if (!wide) return std::nullopt;
    std::string gbk = NarrowOf(kGbkCodePage, *wide);
    // The code page puts likenesses in the place of what it lacks: only what comes back was there.
    if (WideOf(gbk) != *wide || text.find("\xEF\xBF\xBD") != std::string_view::npos) return std::nullopt;
    return gbk;
}

}  // namespace tradebill
