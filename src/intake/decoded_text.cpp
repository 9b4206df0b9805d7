#include "intake/decoded_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/line_counter.h"
#include "base/text.h"
#include "base/utf8.h"
#include "intake/utf16_text.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

DecodedText Refused(std::string_view encoding, std::string why) {
    return {.encoding = encoding, .refusal = std::move(why)};
}

bool IsIn(char byte, unsigned char first, unsigned char last) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= first && value <= last;
}

/// A character of GB18030 that GBK lacks: four bytes.
bool IsQuad(std::string_view text) {
    return text.size() >= 4 && IsIn(text[0], 0x81, 0xFE) && IsIn(text[1], '0', '9') && IsIn(text[2], 0x81, 0xFE) &&
           IsIn(text[3], '0', '9');
}

/// Bytes of the GBK character, ASCII included, that `text` opens with; 0 if there is none.
std::size_t GbkLength(std::string_view text) {
    if (IsIn(text[0], 0x00, 0x7F)) return 1;
    const bool isPair = text.size() >= 2 && IsIn(text[0], 0x81, 0xFE) && IsIn(text[1], 0x40, 0xFE) && text[1] != 0x7F;
    return isPair ? 2 : 0;
}

/// What is known of a line.
struct LineFacts {
    int number;
    bool hasFigures;
};

/// What was replaced, and why nothing more is.
class CReplacements {
public:
    /// Replaces the character `shown`, UTF-8, of a line.
    void Replace(std::string& text, std::string_view shown, LineFacts line) {
        text += '?';
        ++count_;
        if (line.hasFigures && refusal_.empty()) {
            refusal_ =
                "line " + std::to_string(line.number) + " has figures, and " + std::string(shown) + ", which GBK lacks";
        }
        if (count_ == kMost && refusal_.empty()) {
            refusal_ = "it has " + std::to_string(kMost) + " characters or more that GBK lacks";
        }
        if (count_ > kMostTold) return;
        told_ += (told_.empty() ? "" : ", ") + std::string(shown) + " in line " + std::to_string(line.number);
    }

    [[nodiscard]] bool IsRefused() const { return !refusal_.empty(); }
    [[nodiscard]] const std::string& Refusal() const { return refusal_; }

    /// "GBK lacks 㐂 in line 3, which is ? now"
    [[nodiscard]] std::string Sentence() const {
        if (count_ == 0) return {};
        const std::string more = count_ > kMostTold ? " and " + std::to_string(count_ - kMostTold) + " more" : "";
        return "GBK lacks " + told_ + more + (count_ == 1 ? ": it is" : ": they are") + " replaced by ?";
    }

private:
    static constexpr std::size_t kMost = 1000;  // a statement's names have a few at most; each costs a look-up
    static constexpr std::size_t kMostTold = 3;

    std::size_t count_ = 0;
    std::string told_;
    std::string refusal_;
};

/// Calls onLine(line, number) for each line of `text`, its line end left out, and puts what it returns down with CRLF.
/// Ends with "\r\r\n", which copying between systems makes of CRLF, are one too. Stops when it returns nothing.
template <class OnLine>
std::string WithCrlf(std::string_view text, OnLine onLine) {
    std::string result;
    result.reserve(text.size() + text.size() / 64);
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t size = std::min(text.find_first_of("\r\n"), text.size());
        const std::optional<std::string_view> line = onLine(text.substr(0, size), number);
        if (!line) break;
        result += *line;
        text.remove_prefix(size);
        if (text.empty()) break;
        const bool isDoubled = text.starts_with("\r\r\n");
        text.remove_prefix(isDoubled ? 3 : text.starts_with("\r\n") ? 2 : 1);
        result += "\r\n";
    }
    return result;
}

/// `text` with CRLF, each of its lines as convert(line, number, replacements) gives it.
template <class Convert>
DecodedText Converted(std::string_view text, std::string_view encoding, Convert convert) {
    constexpr int kMostLines = 2'000'000;  // a year of a busy account has a tenth
    CReplacements replacements;
    std::string converted;
    bool hasTooMany = false;
    std::string result = WithCrlf(text, [&](std::string_view line, int number) -> std::optional<std::string_view> {
        hasTooMany = number > kMostLines;
        if (hasTooMany) return std::nullopt;
        const std::string_view given = convert(line, number, replacements, converted);
        return replacements.IsRefused() ? std::nullopt : std::optional(given);
    });
    if (hasTooMany) return Refused(encoding, "it has more than " + std::to_string(kMostLines) + " lines");
    if (replacements.IsRefused()) return Refused(encoding, replacements.Refusal());
    return {.text = std::move(result), .encoding = encoding, .replaced = replacements.Sentence()};
}

/// The line as it is.
std::string_view AsItIs(std::string_view line, int, CReplacements&, std::string&) {
    return line;
}

/// The start of `utf8`, of about so many bytes, that ends with a character.
std::string_view ChunkOf(std::string_view utf8) {
    constexpr std::size_t kChunk = 512;
    std::size_t size = std::min(kChunk, utf8.size());
    while (size < utf8.size() && IsIn(utf8[size], 0x80, 0xBF)) ++size;
    return utf8.substr(0, size);
}

/// Appends the characters of UTF-8 one by one, or what replaces them.
void AppendEach(std::string& text, std::string_view utf8, LineFacts line, CReplacements& replacements) {
    while (!utf8.empty() && !replacements.IsRefused()) {
        const std::string_view character = utf8.substr(0, FirstUtf8Character(utf8).size);
        if (const auto gbk = Utf8ToGbk(character)) {
            text += *gbk;
        } else {
            replacements.Replace(text, character, line);
        }
        utf8.remove_prefix(character.size());
    }
}

/// A line of UTF-8 as GBK.
std::string LineToGbk(std::string_view line, int number, CReplacements& replacements) {
    if (auto gbk = Utf8ToGbk(line)) return *std::move(gbk);
    std::string ascii(line);  // figures are ASCII
    std::ranges::replace_if(
        ascii, [](char byte) { return IsIn(byte, 0x80, 0xFF); }, 'x');
    const bool hasFigures = HasFigures(ascii);
    std::string text;
    while (!line.empty()) {
        const std::string_view chunk = ChunkOf(line);
        line.remove_prefix(chunk.size());
        if (const auto gbk = Utf8ToGbk(chunk)) {
            text += *gbk;
        } else {
            AppendEach(text, chunk, {number, hasFigures}, replacements);
        }
        if (replacements.IsRefused()) break;
    }
    return text;
}

DecodedText FromMarkless(std::string_view utf8, std::string_view encoding) {
    if (const auto whole = Utf8ToGbk(utf8)) return Converted(*whole, encoding, AsItIs);
    return Converted(utf8, encoding,
                     [](std::string_view line, int number, CReplacements& replacements, std::string& text) {
                         text = LineToGbk(line, number, replacements);
                         return std::string_view(text);
                     });
}

/// Without the marks at the starts of lines, which files have that were put one behind the other.
std::string WithoutMarks(std::string_view utf8) {
    std::string text;
    for (;;) {
        const std::size_t at = utf8.find(kUtf8Mark);
        text += utf8.substr(0, at);
        if (at == std::string_view::npos) return text;
        utf8.remove_prefix(at + kUtf8Mark.size());
        const bool beginsLine = text.empty() || text.back() == '\n' || text.back() == '\r';
        if (!beginsLine) text += kUtf8Mark;
    }
}

/// REQUIRES: `utf8` is UTF-8 without a zero byte.
DecodedText FromUtf8(std::string_view utf8, std::string_view encoding) {
    if (utf8.find(kUtf8Mark) != std::string_view::npos) return FromMarkless(WithoutMarks(utf8), encoding);
    return FromMarkless(utf8, encoding);
}

DecodedText FromUtf16(std::string_view bytes, ByteOrder order, std::string_view encoding) {
    const auto utf8 = Utf16ToUtf8(bytes, order);
    if (!utf8) return Refused(encoding, "it has bytes that are no characters of UTF-16");
    if (utf8->find('\0') != std::string::npos) return Refused(encoding, "it has zero characters");
    return FromUtf8(*utf8, encoding);
}

/// How the characters of a text follow each other: in GBK all are pairs, in GB18030 a few are quads.
struct GbkLook {
    bool hasQuads = false;
    std::optional<std::size_t> strange = {};  ///< first byte that belongs to no character
};

GbkLook LookAtGbk(std::string_view text) {
    GbkLook look;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = GbkLength(text.substr(at));
        const bool isQuad = length == 0 && IsQuad(text.substr(at));
        if (length == 0 && !isQuad) return {look.hasQuads, at};
        look.hasQuads |= isQuad;
        at += isQuad ? 4 : length;
    }
    return look;
}

/// A line of GB18030 as GBK. REQUIRES: all of it is characters.
std::string LineWithoutQuads(std::string_view line, int number, CReplacements& replacements) {
    const bool hasFigures = HasFigures(line);
    std::string text;
    while (!line.empty() && !replacements.IsRefused()) {
        const std::size_t length = GbkLength(line);
        if (length == 0) {
            replacements.Replace(text, "a character of four bytes", {number, hasFigures});
        } else {
            text += line.substr(0, length);
        }
        line.remove_prefix(length == 0 ? 4 : length);
    }
    return text;
}

std::string WhyStrange(std::string_view bytes, std::size_t at) {
    if (at + 1 == bytes.size()) return "it is cut: its last byte is half a character";
    return "line " + std::to_string(LineAt(bytes, at)) + " has bytes that are characters neither of GBK nor of UTF-8";
}

DecodedText FromGbk(std::string_view bytes) {
    const GbkLook look = LookAtGbk(bytes);
    if (look.strange) return Refused("", WhyStrange(bytes, *look.strange));
    if (!look.hasQuads) return Converted(bytes, "GBK", AsItIs);
    return Converted(bytes, "GB18030",
                     [](std::string_view line, int number, CReplacements& replacements, std::string& text) {
                         text = LineWithoutQuads(line, number, replacements);
                         return std::string_view(text);
                     });
}

bool IsAscii(std::string_view text) {
    return std::ranges::none_of(text, [](char byte) { return IsIn(byte, 0x80, 0xFF); });
}

/// Whether a digit, a point or a comma: what numbers are written with.
bool IsOfNumber(char byte) {
    return IsDigit(byte) || byte == '.' || byte == ',';
}

/// Digits on both sides of its one point; dates have two of them.
bool IsDecimal(std::string_view number) {
    const std::size_t point = number.find('.');
    return point != std::string_view::npos && number.find('.', point + 1) == std::string_view::npos && point > 0 &&
           point + 1 < number.size() && IsDigit(number[point - 1]) && IsDigit(number[point + 1]);
}

bool IsNumber(std::string_view cell) {
    if (cell.starts_with('-') || cell.starts_with('+')) cell.remove_prefix(1);
    if (cell.ends_with('%')) cell.remove_suffix(1);
    return std::ranges::any_of(cell, IsDigit) && std::ranges::all_of(cell, IsOfNumber);
}

}  // namespace

bool HasFigures(std::string_view line) {
    constexpr int kCellsOfARow = 3;
    for (std::size_t at = 0; at < line.size();) {
        std::size_t end = at;
        while (end < line.size() && IsOfNumber(line[end])) ++end;
        if (IsDecimal(line.substr(at, end - at))) return true;
        at = std::max(end, at + 1);
    }
    int numbers = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const std::size_t end = std::min(line.find_first_of(" \t|", at), line.size());
        if (IsNumber(line.substr(at, end - at))) ++numbers;
        at = end;
    }
    return numbers >= kCellsOfARow;
}

DecodedText DecodeText(std::string_view bytes) {
    if (bytes.starts_with(kLittleEndianMark)) {
        return FromUtf16(bytes.substr(kLittleEndianMark.size()), ByteOrder::LittleEndian, "UTF-16LE with a mark");
    }
    if (bytes.starts_with(kBigEndianMark)) {
        return FromUtf16(bytes.substr(kBigEndianMark.size()), ByteOrder::BigEndian, "UTF-16BE with a mark");
    }
    if (bytes.find('\0') != std::string_view::npos) {
        const auto order = GuessUtf16(bytes);
        if (order == ByteOrder::LittleEndian) return FromUtf16(bytes, *order, "UTF-16LE");
        if (order == ByteOrder::BigEndian) return FromUtf16(bytes, *order, "UTF-16BE");
        return Refused("", "it has zero bytes, as no text has");
    }
    const bool hasMark = bytes.starts_with(kUtf8Mark);
    const std::string_view text = hasMark ? bytes.substr(kUtf8Mark.size()) : bytes;
    if (IsUtf8(text) && !IsAscii(text)) return FromUtf8(text, hasMark ? "UTF-8 with a mark" : "UTF-8");
    return FromGbk(text);
}

}  // namespace tradebill
