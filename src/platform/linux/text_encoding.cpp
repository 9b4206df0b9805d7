#include "platform/text_encoding.h"

#include <iconv.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/shortage.h"
#include "base/word_bytes.h"
#include "platform/spare_means.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

struct CloseConverter {
    void operator()(iconv_t converter) const { ::iconv_close(converter); }
};
using UniqueConverter = std::unique_ptr<std::remove_pointer_t<iconv_t>, CloseConverter>;

/// Null if the system has none. Throws CShortage if it could have one at another time: it loads converters from files,
/// and says of those that it can't load that there are none. What passed meanwhile isn't met by a second try.
UniqueConverter MakeConverter(const char* to, const char* from) {
    constexpr int kTries = 2;
    for (int i = 0; i < kTries; ++i) {
        iconv_t const converter = ::iconv_open(to, from);
        if (converter != reinterpret_cast<iconv_t>(-1)) return UniqueConverter(converter);
    }
    if (MayPass(LastSystemError()) || !HasSpareMeans()) throw CShortage("the system's text converters can't be loaded");
    return nullptr;
}

/// A converter keeps what it is in the midst of: one thread at a time has it. Each thread's own would be torn down by a
/// list that the system can't do without memory for. No converter isn't kept.
class CConverter {
public:
    constexpr CConverter(const char* to, const char* from) : to_(to), from_(from) {}

    /// As ConvertRun. Nothing if the system has no such converter. Throws as MakeConverter.
    std::optional<std::string> Convert(std::string_view& text);

private:
    const char* to_;
    const char* from_;
    std::mutex lock_;
    UniqueConverter kept_;
};

/// Converts as much as it can, takes it off `text`, and returns it.
std::string ConvertRun(iconv_t converter, std::string_view& text) {
    // The library decodes some 2,000 characters at a time, and those that don't fit again with the next piece.
    constexpr std::size_t kPiece = 8192;
    std::string result;
    std::array<char, kPiece> buffer;
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

std::optional<std::string> CConverter::Convert(std::string_view& text) {
    const std::scoped_lock guard(lock_);
    if (kept_ == nullptr) kept_ = MakeConverter(to_, from_);
    return kept_ == nullptr ? std::nullopt : std::optional(ConvertRun(kept_.get(), text));
}

/// A character in UTF-8: its bytes, the first one lowest, and their number in the highest byte.
using PackedCharacter = std::uint32_t;
constexpr PackedCharacter kUnknown = 0;  // nobody has asked for it yet, or nobody can tell

constexpr unsigned char kFirstLead = 0x81;  // iconv would read 0x80 as a euro sign, which is no character of GBK
constexpr unsigned char kLastLead = 0xFE;

constexpr PackedCharacter Packed(std::string_view utf8) {
    PackedCharacter packed = static_cast<PackedCharacter>(utf8.size()) << 24;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        packed |= static_cast<PackedCharacter>(static_cast<unsigned char>(utf8[i])) << 8 * i;
    }
    return packed;
}
constexpr PackedCharacter kNoCharacter = Packed(kReplacement);

void AppendPacked(std::string& text, PackedCharacter packed) {
    for (PackedCharacter left = packed >> 24; left > 0; --left, packed >>= 8) text += static_cast<char>(packed & 0xFF);
}

PackedCharacter Decode(std::string_view pair) {
    static CConverter converter("UTF-8", "GBK");
    const auto utf8 = converter.Convert(pair);
    if (!utf8) return kUnknown;
    return pair.empty() && utf8->size() <= 3 ? Packed(*utf8) : kNoCharacter;
}

/// The character of a lead byte and any byte behind it. What iconv said of a pair once is kept for all threads: a
/// year's page has millions of characters, and few different ones.
PackedCharacter CharacterOf(std::string_view pair) {
    static std::array<std::atomic<PackedCharacter>, std::size_t{kLastLead - kFirstLead + 1} * 256> characters;
    const auto lead = static_cast<unsigned char>(pair[0]);
    const auto trail = static_cast<unsigned char>(pair[1]);
    auto& known = characters[static_cast<std::size_t>(lead - kFirstLead) * 256 + trail];
    PackedCharacter character = known.load(std::memory_order_relaxed);
    if (character == kUnknown) {
        character = Decode(pair);
        known.store(character, std::memory_order_relaxed);
    }
    return character == kUnknown ? kNoCharacter : character;
}

/// How many bytes at the start of `text` are ASCII.
std::size_t AsciiLength(std::string_view text) {
    std::size_t at = 0;
    while (at + kWordBytes <= text.size() && (LoadWord(text.data() + at) & kHighBits) == 0) at += kWordBytes;
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) ++at;
    return at;
}

}  // namespace

std::string GbkToUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 2 + 3);
    while (!text.empty()) {
        const std::size_t ascii = AsciiLength(text);
        result.append(text.substr(0, ascii));
        text.remove_prefix(ascii);
        if (text.empty()) break;
        const auto lead = static_cast<unsigned char>(text.front());
        const bool isPair = lead >= kFirstLead && lead <= kLastLead && text.size() > 1;
        const PackedCharacter character = isPair ? CharacterOf(text.substr(0, 2)) : kNoCharacter;
        AppendPacked(result, character);
        text.remove_prefix(character == kNoCharacter ? 1 : 2);
    }
    return result;
}

std::optional<std::string> Utf8ToGbk(std::string_view text) {
    static CConverter converter("GBK", "UTF-8");
    constexpr std::string_view kEuro = "\xE2\x82\xAC";  // iconv would make it 0x80, which is no character of GBK
    if (text.find(kEuro) != std::string_view::npos) return std::nullopt;
    auto result = converter.Convert(text);
    return text.empty() ? result : std::nullopt;
}

}  // namespace tradebill
