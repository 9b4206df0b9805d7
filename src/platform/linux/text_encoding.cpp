#include "platform/text_encoding.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace tradebill {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Bytes of the GBK character that `text` seems to open with; 0 for a byte that opens none. iconv alone would read 0x80
/// as a euro sign, which is no character of GBK.
std::size_t CharacterLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) return 1;
    return lead == 0x80 || lead == 0xFF ? 0 : 2;
}

struct CloseConverter {
    void operator()(iconv_t converter) const { ::iconv_close(converter); }
};
using UniqueConverter = std::unique_ptr<std::remove_pointer_t<iconv_t>, CloseConverter>;

/// A converter keeps what it is in the midst of, so each thread has its own.
UniqueConverter MakeConverter(const char* to, const char* from) {
    const iconv_t converter = ::iconv_open(to, from);
    return UniqueConverter(converter == reinterpret_cast<iconv_t>(-1) ? nullptr : converter);
}

/// Converts as much as it can, takes it off `text`, and returns it.
std::string ConvertRun(iconv_t converter, std::string_view& text) {
    std::string result;
    std::array<char, 256> buffer;
    for (;;) {
        char* in = const_cast<char*>(text.data());  // iconv doesn't write to it
        std::size_t inLeft = text.size();
        char* out = buffer.data();
        std::size_t outLeft = buffer.size();
        const std::size_t status = ::iconv(converter, &in, &inLeft, &out, &outLeft);
        text = text.substr(text.size() - inLeft);
        result.append(buffer.data(), buffer.size() - outLeft);
        if (status != static_cast<std::size_t>(-1) || errno != E2BIG) return result;
    }
}

}  // namespace

std::string GbkToUtf8(std::string_view text) {
    thread_local const UniqueConverter converter = MakeConverter("UTF-8", "GBK");
    if (converter == nullptr) return std::string(text);
    std::string result;
    while (!text.empty()) {
        std::string_view character = text.substr(0, CharacterLength(text));
        const std::size_t length = character.size();
        const std::string decoded = length == 0 ? std::string() : ConvertRun(converter.get(), character);
        const bool isCharacter = length != 0 && character.empty();
        result += isCharacter ? std::string_view(decoded) : kReplacement;
        text.remove_prefix(isCharacter ? length : 1);
    }
    return result;
}

std::optional<std::string> Utf8ToGbk(std::string_view text) {
    thread_local const UniqueConverter converter = MakeConverter("GBK", "UTF-8");
    constexpr std::string_view kEuro = "\xE2\x82\xAC";  // iconv would make it 0x80, which is no character of GBK
    if (converter == nullptr || text.find(kEuro) != std::string_view::npos) return std::nullopt;
    std::string result = ConvertRun(converter.get(), text);
    if (!text.empty()) return std::nullopt;
    return result;
}

}  // namespace tradebill
