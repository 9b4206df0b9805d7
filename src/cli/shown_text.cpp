#include "cli/shown_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <iostream>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

#include "base/control_character.h"
#include "base/utf8.h"

namespace tradebill {
namespace {

/// Marks that show what follows them from right to left, or end that.
bool IsDirection(char32_t point) {
    return (point >= 0x202A && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069);
}

bool IsSentAsItIs(char byte) {
    return (byte >= ' ' && byte < '\x7F') || byte == '\n' || byte == '\t';
}

using ShortText = std::array<char, 12>;

/// "\xff"
ShortText ByteText(char byte) {
    ShortText text{};
    std::snprintf(text.data(), text.size(), "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    return text;
}

/// "\u202e"
ShortText PointText(char32_t point) {
    ShortText text{};
    std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(point));
    return text;
}

std::string Escape(char32_t point) {
    switch (point) {
        case '\n':
            return "\\n";
        case '\t':
            return "\\t";
        case '\r':
            return "\\r";
        default:
            return PointText(point).data();
    }
}

/// Appends the first character of `text` as it is shown.
void AppendCharacter(std::string& shown, std::string_view text, const Utf8Character& character) {
    if (!character.point) {
        shown += ByteText(text.front()).data();
        return;
    }
    const char32_t point = *character.point;
    if (IsControl(point) || IsDirection(point)) {
        shown += Escape(point);
    } else {
        shown += text.substr(0, character.size);
    }
}

}  // namespace

std::string ShownText(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character character = FirstUtf8Character(text);
        AppendCharacter(shown, text, character);
        text.remove_prefix(character.size);
    }
    return shown;
}

CShownBuffer::~CShownBuffer() {
    for (const char byte : waiting_) SendOrders(ByteText(byte).data());  // nothing is allocated here
}

void CShownBuffer::SendOrders(std::string_view orders) {
    inner_.sputn(orders.data(), static_cast<std::streamsize>(orders.size()));
}

/// Streams call it with a byte alone.
CShownBuffer::int_type CShownBuffer::overflow(int_type byte) {
    const char single = traits_type::to_char_type(byte);
    return HandOn({&single, 1}) ? byte : traits_type::eof();
}

std::streamsize CShownBuffer::xsputn(const char* bytes, std::streamsize size) {
    return HandOn({bytes, static_cast<std::size_t>(size)}) ? size : 0;
}

int CShownBuffer::sync() {
    return inner_.pubsync();
}

bool CShownBuffer::HandOn(std::string_view text) {
    while (!waiting_.empty() && !text.empty()) {
        waiting_ += text.front();
        text.remove_prefix(1);
        std::string_view begun = waiting_;
        if (!SendCharacters(begun)) return false;
        waiting_.erase(0, waiting_.size() - begun.size());
    }
    if (!SendCharacters(text)) return false;
    waiting_ += text;
    return true;
}

/// Sends all characters up to one that is cut, and takes them off `text`. What says that memory has run out goes this
/// way too: plain texts, and one of a single character, need none.
bool CShownBuffer::SendCharacters(std::string_view& text) {
    while (!text.empty()) {
        const auto plain = static_cast<std::size_t>(std::ranges::find_if_not(text, IsSentAsItIs) - text.begin());
        if (plain > 0) {
            if (!Send(text.substr(0, plain))) return false;
            text.remove_prefix(plain);
            continue;
        }
        const Utf8Character character = FirstUtf8Character(text);
        if (character.isCut) return true;
        std::string shown;
        AppendCharacter(shown, text, character);
        if (!Send(shown)) return false;
        text.remove_prefix(character.size);
    }
    return true;
}

bool CShownBuffer::Send(std::string_view shown) {
    const auto size = static_cast<std::streamsize>(shown.size());
    return inner_.sputn(shown.data(), size) == size;
}

void SendOrders(std::ostream& out, std::string_view orders) {
    auto* const shown = dynamic_cast<CShownBuffer*>(out.rdbuf());
    if (shown != nullptr) {
        shown->SendOrders(orders);
    } else {
        out << orders;
    }
}

void SendColoured(std::ostream& out, Colour colour, std::string_view text) {
    constexpr std::string_view kOrders[] = {"\x1B[1;31m", "\x1B[1;33m", "\x1B[1;36m"};
    constexpr std::string_view kPlainAgain = "\x1B[0m";
    auto* const buffer = dynamic_cast<CShownBuffer*>(out.rdbuf());
    const bool isColoured = buffer != nullptr && buffer->UsesColours();
    if (isColoured) buffer->SendOrders(kOrders[static_cast<std::size_t>(colour)]);
    out << text;
    if (isColoured) buffer->SendOrders(kPlainAgain);
}

CShownStreams::CShownStreams()
    : output_(std::cout.rdbuf()), error_(std::cerr.rdbuf()), shownOutput_(*output_), shownError_(*error_) {
    std::cout.rdbuf(&shownOutput_);
    std::cerr.rdbuf(&shownError_);
}

CShownStreams::~CShownStreams() {
    std::cout.rdbuf(output_);
    std::cerr.rdbuf(error_);
}

}  // namespace tradebill
